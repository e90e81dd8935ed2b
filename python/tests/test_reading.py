"""Records as they are read: their answers, items and dictionaries."""

import datetime
import gzip
import io
import json
import subprocess

import libast
import pytest
from conftest import NORTH, PLOT, SAMPLES, recordings


@pytest.mark.parametrize("path", recordings(), ids=lambda path: path.name)
def test_dictionaries_and_lines_are_those_of_the_tool(path, astdump):
    shown = subprocess.run([astdump, "--json", path], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    lines = [line for line in shown.decode().splitlines() if '"error":' not in line]
    records = list(libast.open(path, errors="ignore"))
    assert [record.to_json() for record in records] == lines
    for record, line in zip(records, lines):
        # Texts, so that 350 and 350.0 differ, and so do orders.
        assert json.dumps(record.to_dict()) == json.dumps(json.loads(line))


def test_answers():
    (record,) = libast.decode(PLOT)
    assert (record.category, record.edition, record.profile) == (48, "1.32", "standard")
    assert (record.sac, record.sic, record.type, record.time) == (25, 12, "plot", 43201.5)
    assert (record.squawk, record.emergency, record.fl) == ("7700", True, 350.0)
    assert (record.range_nm, record.azimuth_deg) == (0.5, 90.0)
    missing = (record.callsign, record.icao24, record.latitude, record.timestamp, record.received, record.sender)
    assert set(missing) == {None}
    assert record.octets == PLOT[3:]


def test_items():
    (record,) = libast.decode(PLOT)
    assert record["I040"] == {"RHO": 0.5, "THETA": 90}
    assert record["I140"] == 43201.5
    assert "I070" in record and "I220" not in record and 7 not in record
    assert list(record) == list(record.keys()) == list(record.to_dict())
    with pytest.raises(KeyError, match="I220"):
        record["I220"]
    assert record.to_dict(texts=True)["I020"]["TYP"] == {"value": 5, "text": "Single ModeS Roll-Call"}


@pytest.mark.parametrize(
    "path, value",
    [
        ("I048/040/RHO", 0.5),
        ("048/I040/RHO", 0.5),
        ("I040/RHO", 0.5),
        ("I048/140", 43201.5),
        ("category", 48),
        ("squawk", "7700"),
        ("callsign", "none"),
        ("I034/010", "none"),
        ("I040/NO", "none"),
        ("I140/NO", "none"),
        ("I040[0]", "none"),
        ("", "none"),
        ("I" * 200, "none"),
    ],
)
def test_paths(path, value):
    (record,) = libast.decode(PLOT)
    assert record.get(path, "none") == value


def test_elements_of_lists():
    # I048/250, FRN 10: BDS 4,0 with a selected altitude of 2188 x 16 ft, twice.
    (record,) = libast.decode(bytes.fromhex("300016 0120 02 C4600000000000 40 C4600000000000 40"))
    assert record.get("I048/250[1]/MCP_ALT") == 35008
    assert record.get("I250[]/MCP_ALT") == [35008, 35008]
    assert record.get("I250[2]/MCP_ALT") is None


def test_a_record_stays_good_after_the_next_ones():
    with libast.open(SAMPLES / "radar.ast") as recording:
        first, *others = recording
    del others, recording
    assert first["I030"] == 43200 and first.category == 34


def test_inputs(tmp_path):
    both = NORTH + PLOT
    (tmp_path / "a.ast").write_bytes(both)
    (tmp_path / "b.ast.gz").write_bytes(gzip.compress(both))
    with open(tmp_path / "a.ast", "rb") as file:
        sources = [tmp_path / "a.ast", str(tmp_path / "b.ast.gz"), both, bytearray(both), memoryview(both), file]
        for source in [*sources, io.BytesIO(both)]:
            assert [record.category for record in libast.open(source)] == [34, 48]
    several = list(libast.open([tmp_path / "a.ast", tmp_path / "b.ast.gz"]))
    names = [str(tmp_path / name) for name in ("a.ast", "a.ast", "b.ast.gz", "b.ast.gz")]
    assert [record.file for record in several] == names
    assert several[0].to_dict()["file"] == str(tmp_path / "a.ast")


def test_choosing():
    path = SAMPLES / "radar.pcap"  # where blocks have several records
    chosen = [record.to_json() for record in libast.open(path, where="not squawk = 7700")]
    assert chosen == [record.to_json() for record in libast.open(path) if record.squawk != "7700"] != []
    both = NORTH + PLOT
    assert [record.category for record in libast.open(both, category=[48])] == [48]
    assert [record.category for record in libast.open(both, where="squawk = 7700")] == [48]
    assert [record.category for record in libast.open(both, where="not squawk = 7700")] == [34]
    late = datetime.datetime(2100, 1, 1)
    capture = SAMPLES / "radar.pcap"
    assert list(libast.open(capture, start=late)) == []
    assert len(list(libast.open(capture, end=late))) == len(list(libast.open(capture))) > 0


def test_where_and_when_it_came_from():
    record = next(libast.open(SAMPLES / "radar.pcap"))
    line = record.to_dict()
    assert (record.sender, record.receiver) == (line["source"], line["destination"])
    assert record.received.isoformat().replace("+00:00", "Z") == line["time"]
    assert record.received_ns == int(record.received.timestamp()) * 10**9 + record.received.microsecond * 1000
    assert (record.block, record.number, record.packet) == (line["block"], line["record"], 1)
    assert abs(record.timestamp - record.received) < datetime.timedelta(seconds=5)
    assert record.timestamp_ns % (86400 * 10**9) == record.time * 10**9


def test_sites_give_positions():
    # Half a mile to the east of a radar on the equator.
    sites = libast.sites({(25, 12): (0.0, 15.0, 0.0)})
    (record,) = libast.open(PLOT, sites=sites)
    assert record.latitude == pytest.approx(0.0, abs=1e-6)
    assert record.longitude == 15.0  # above it: the target is higher than it is far
    assert len(list(libast.open(PLOT, sites=sites, where="longitude > 14.9"))) == 1
    assert sites.to_dict() == {(25, 12): (0.0, 15.0, 0.0, "given")}
    for source, place in [((25, 12), (91.0, 0.0)), ((256, 1), (0.0, 0.0)), ((-1, 1), (0.0, 0.0))]:
        with pytest.raises(ValueError):
            libast.sites({source: place})


def test_sites_are_learnt():
    # Category 034, FRN 1 and 11, I034/120: 100 m, latitude 2^22 x 180/2^23, longitude 2^21 x 180/2^23.
    told = bytes.fromhex("22000F 8110 190C 0064 400000 200000")
    sites = libast.sites()
    assert [record.category for record in libast.open(told + PLOT, sites=sites)] == [34, 48]
    assert sites.to_dict() == {(25, 12): (90.0, 45.0, 100.0, "learnt")}


def test_fields():
    (rho,) = libast.fields("I048/040/RHO")
    assert (rho.bits, rho.unit, rho.step, rho.kind) == (16, "NM", 1 / 256, "unsigned")
    (kind,) = libast.fields("i048/020/typ")
    assert kind.texts[5] == "Single ModeS Roll-Call"
    assert libast.fields("*nonsense*") == []
    assert {field.path[:4] for field in libast.fields("*track number*")} >= {"I048", "I062"}
