"""Memory stays as it is over many records, and nothing of the package is slow to load."""

import gc
import subprocess
import sys
import tracemalloc

import libast
from conftest import NORTH, PLOT

MANY = 20_000


def use(octets):
    for record in libast.open(octets, framing="raw", errors="ignore"):
        record.to_dict(), record.to_json(), record.squawk, record.timestamp, record.octets, record.file
        record.get("I040/RHO"), record.get("I040/NO"), "I220" in record, list(record)
    libast.open(octets).reports
    record.replace({"I010/SIC": 1})
    libast.block([record, record.to_dict()])
    for wrong in ("I010/SIC", "I999"):
        try:
            record.replace({wrong: 1000})
        except libast.Error:
            pass
    libast.fields("I048/0*")
    libast.sites({(1, 2): (3, 4)}).to_dict()


def test_memory_is_flat():
    once, often = (NORTH + PLOT) * 10 + PLOT[:-1], (NORTH + PLOT) * MANY + PLOT[:-1]
    use(once)
    tracemalloc.start()
    use(once)
    gc.collect()
    before = tracemalloc.get_traced_memory()[0]
    use(often)
    for _ in range(20):
        use(once)
    gc.collect()
    after = tracemalloc.get_traced_memory()[0]
    tracemalloc.stop()
    assert after - before < 20_000


def references():
    return [sys.getrefcount(one) for one in (None, True, libast.Record, libast.Recording, libast.Error, 48, "")]


def test_references_are_given_back():
    octets = (NORTH + PLOT) * 100 + PLOT[:-1]
    use(octets)
    before = references()
    for _ in range(10):
        use(octets)
    assert max(abs(now - then) for now, then in zip(references(), before)) < 20


def test_importing_loads_little():
    program = "import sys; before = set(sys.modules); import libast; print(*sorted(set(sys.modules) - before))"
    loaded = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True).stdout.split()
    assert loaded == ["libast", "libast._libast"]
