"""Whatever is passed, something sensible or an exception comes of it, never a crash."""

import itertools

import libast
from conftest import NORTH, PLOT
from hypothesis import HealthCheck, given, settings
from hypothesis import strategies as some

RECORD = libast.decode(PLOT)[0]

keys = some.sampled_from("category profile I010 I040 I250 octets data SAC SIC bds RHO REF".split())
texts = some.text(max_size=20) | some.binary(max_size=20)
scalars = some.none() | some.booleans() | some.integers() | some.floats() | texts
values = some.recursive(
    scalars,
    lambda inner: some.lists(inner, max_size=4) | some.dictionaries(keys | scalars, inner, max_size=4),
    max_leaves=12,
)
steps = keys | some.sampled_from(["I048", "/", "[0]", "[]", "[9", "048", "-1"]) | some.text(max_size=3)
paths = some.lists(steps).map("/".join)
anything = values | paths | some.just(RECORD) | some.just(PLOT) | some.builds(object)

CALLS = [
    libast.decode,
    libast.encode,
    libast.block,
    libast.sites,
    lambda one: libast.fields(f"I048/{one}"),
    lambda one: list(libast.open(one, timeout=0, errors="ignore")) if one != ["-"] else None,
    lambda one: list(libast.open(PLOT, where=one)),
    lambda one: list(libast.open(PLOT, category=one)),
    lambda one: list(libast.open(PLOT, sites=one)),
    lambda one: list(libast.open(PLOT, timeout=one, errors=one)),
    lambda one: list(libast.open(PLOT, start=one, end=one)),
    lambda one: list(libast.open(PLOT, port=one, host=one, profile=one, framing=one)),
    lambda one: libast.open(PLOT).columns(one).to_numpy(),
    lambda one: libast.open(PLOT).columns(names=one, rows=one).to_numpy(),
    lambda one: RECORD[one],
    lambda one: one in RECORD,
    lambda one: RECORD.get(one, one),
    lambda one: RECORD.replace(one),
    lambda one: RECORD.replace({one: one}),
    lambda one: RECORD.replace({"I040": one}),
    lambda one: RECORD.to_dict(texts=one),
    lambda one: libast.Sites().add(one, one, one, one),
    lambda one: libast.Recording(one),
    lambda one: type(RECORD).__new__(one),
    lambda one: RECORD.__setattr__("squawk", one),
    lambda one: libast.sender(one, speed=one),
]


@settings(max_examples=1500, deadline=None, suppress_health_check=list(HealthCheck), database=None)
@given(some.sampled_from(CALLS), anything)
def test_arguments(call, argument):
    try:
        call(argument)
    except Exception as error:
        assert not isinstance(error, (SystemError, MemoryError)), error


pieces = some.sampled_from([PLOT, NORTH]) | some.binary(max_size=30)
faults = some.tuples(some.integers(0), some.integers(0, 255))


@settings(max_examples=500, deadline=None, database=None)
@given(some.lists(pieces), some.lists(faults))
def test_octets(pieces, faults):
    octets = bytearray(b"".join(pieces))
    for place, octet in faults:
        if octets:
            octets[place % len(octets)] = octet
    for framing in ("raw", None):
        recording = libast.open(octets, framing=framing, errors="ignore")
        for record in itertools.islice(recording, 100):
            assert record.to_dict()["category"] == record.category
            assert record.replace({}).octets == record.octets
            str(record), record.timestamp, record.get("I010/SAC")
        assert all(report.text for report in recording.reports)
