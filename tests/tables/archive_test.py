"""Whether the program of docs/archives.md makes tables of all records, on two workers of which one is killed.

usage: archive_test.py ASTDUMP SIMULATE_RADAR TREE
"""
import collections
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import threading
import time

from dask.distributed import LocalCluster

ASKED = """
import { DuckDBInstance } from '@duckdb/node-api';
const database = await (await DuckDBInstance.create(':memory:')).connect();
const rows = await database.runAndReadAll(`
    select category, count(*)::int as records, count(distinct icao24)::int as aircraft
    from read_parquet('${process.argv[1]}/**/*.parquet', hive_partitioning = true) group by category`);
console.log(JSON.stringify(rows.getRowObjectsJson()));
"""


def program_of(page):
    program = page.read_text().split("```python\n")[1].split("```")[0]
    assert "def make" in program, "the program is no longer there"
    return program


def kill_one(cluster, folder):
    """As soon as there is some output, a worker dies; its nanny starts another."""
    while not list(folder.rglob("*.parquet")):
        time.sleep(0.02)
    os.kill(next(iter(cluster.workers.values())).process.process.pid, signal.SIGKILL)


def run(*command, **options):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, **options).stdout.decode()


def records_of(tool, recordings):
    """How many records and aircraft there are of each category."""
    records = collections.Counter()
    aircraft = collections.defaultdict(set)
    for recording in recordings:
        for line in run(tool, "--csv", "category,icao24", recording).splitlines()[1:]:
            *_, category, address = line.split(",")
            records[int(category)] += 1
            if address:
                aircraft[int(category)].add(address)
    return {category: (count, len(aircraft[category])) for category, count in records.items()}


def main():
    tool, simulate, tree = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    with tempfile.TemporaryDirectory() as name:
        here = pathlib.Path(name)
        folder = here / "tables"
        folder.mkdir()
        program = here / "archive.py"
        program.write_text(program_of(tree / "docs/archives.md"))
        recordings = [here / f"{seed}.pcap" for seed in range(2)]
        for seed, path in enumerate(recordings):
            run(simulate, "--seed", str(seed), "--size", "3M", "--output", path)
        os.environ["PATH"] = f"{tool.parent}:{os.environ['PATH']}"
        with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster:
            killer = threading.Thread(target=kill_one, args=(cluster, folder))
            killer.start()
            cluster_and_piece = {"DASK_SCHEDULER_ADDRESS": cluster.scheduler_address, "PIECE_OCTETS": "300000"}
            run(sys.executable, program, folder, *recordings, env={**os.environ, **cluster_and_piece})
            killer.join()
        rows = json.loads(run("node", "--input-type=module", "-e", ASKED, folder, cwd=tree / "tests/tables"))
        found = {int(row["category"]): (row["records"], row["aircraft"]) for row in rows}
        expected = records_of(tool, recordings)
        assert found == expected, f"{found} in the tables, {expected} in the recordings"


if __name__ == "__main__":
    main()
