"""How fast the package is on one core, beside json.loads over the same records as lines of JSON.

    PYTHONPATH=build/release/python python3 bench/python.py RECORDING...
"""

import json
import subprocess
import sys
import time

import libast

COLUMNS = "timestamp icao24 callsign fl range_nm azimuth_deg groundspeed_kt squawk".split()


def batches(path):
    """As a library that takes Arrow does: by batches, without looking at them."""
    stream = libast.open(path).columns(*COLUMNS)._stream
    count = 0
    while batch := stream.next_batch():
        count += batch[0]
    return count


def count_of(records, use):
    count = 0
    for record in records:
        use(record)
        count += 1
    return count


WAYS = {
    "whole dictionaries": lambda path: count_of(libast.open(path), lambda record: record.to_dict()),
    "lines of JSON": lambda path: count_of(libast.open(path), lambda record: record.to_json()),
    "lazy records": lambda path: count_of(libast.open(path), lambda record: record.category),
    "an answer of each": lambda path: count_of(libast.open(path), lambda record: record.callsign),
    "a field of each": lambda path: count_of(libast.open(path), lambda record: record.get("I040/RHO")),
    "eight columns as Arrow": batches,
    "eight columns, numpy": lambda path: len(libast.open(path).columns(*COLUMNS).to_numpy()["fl"]),
    "eight columns, pandas": lambda path: len(libast.open(path).columns(*COLUMNS).to_pandas()),
}


def rate(use, *arguments):
    """Records a second of processor time, the best of three."""
    best = 0.0
    for _ in range(3):
        begin = time.process_time()
        count = use(*arguments)
        best = max(best, count / (time.process_time() - begin))
    return best


def import_ms():
    """Beyond what an interpreter takes to start."""

    def run(program):
        begin = time.perf_counter()
        subprocess.run([sys.executable, "-c", program], check=True)
        return time.perf_counter() - begin

    return 1000 * (min(run("import libast") for _ in range(10)) - min(run("pass") for _ in range(10)))


def main():
    print(f"import libast: {import_ms():.1f} ms")
    for path in sys.argv[1:]:
        lines = [record.to_json() for record in libast.open(path)]
        usual = rate(lambda: count_of(lines, json.loads))
        print(f"{path}: {len(lines)} records, json.loads {usual / 1000:.0f} thousand a second")
        for name, use in WAYS.items():
            found = rate(use, path)
            print(f"  {name:24}{found / 1000:8.0f} thousand a second{found / usual:8.1f} times")


if __name__ == "__main__":
    main()
