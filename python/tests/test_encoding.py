"""Records as they are made, changed, written and sent."""

import json
import socket

import libast
import pytest
from conftest import NORTH, PLOT, SAMPLES, recordings

PLOT_VALUES = {
    "category": 48,
    "I010": {"SAC": 25, "SIC": 12},
    "I140": 43201.5,
    "I020": {"TYP": 5, "SIM": 0, "RDP": 0, "SPI": 0, "RAB": 0},
    "I040": {"RHO": 0.5, "THETA": 90},
    "I070": {"V": 0, "G": 0, "L": 0, "MODE3A": "7700"},
    "I090": {"V": 0, "G": 0, "FL": 350},
}


def test_encoding():
    assert libast.encode(PLOT_VALUES) == PLOT
    assert libast.encode(libast.decode(PLOT)[0]) == PLOT
    twice = libast.block([PLOT_VALUES, *libast.decode(PLOT)])
    assert twice == b"\x30\x00" + bytes([3 + 2 * 15]) + 2 * PLOT[3:]


@pytest.mark.parametrize("path", recordings(), ids=lambda path: path.name)
def test_every_record_comes_back(path):
    for record in list(libast.open(path, errors="ignore"))[:500]:
        same = record.replace({})
        assert same.octets == record.octets
        assert same.to_dict() == record.to_dict()


def test_replacing():
    (record,) = libast.decode(PLOT)
    changed = record.replace({"I048/010/SIC": 99, "I070": None, "I090/FL": 10})
    # Without FRN 5, FC is F4.
    assert libast.block([changed]) == bytes.fromhex("300010 F4 1963 5460C0 A0 00804000 0028")
    assert record["I010"]["SIC"] == 12


@pytest.mark.parametrize(
    "changes, message",
    [
        ({"I010/SIC": 999}, "I010/SIC"),
        ({"I010/NO": 1}, "I010/NO"),
        ({"I999": 1}, "I999"),
        ({"I010": None, "I140": None, "I020": None, "I040": None, "I070": None, "I090": None}, ""),
    ],
)
def test_what_cannot_be_replaced(changes, message):
    (record,) = libast.decode(PLOT)
    with pytest.raises(libast.Error, match=message) as error:
        record.replace(changes)
    assert error.value.reason == "line"


def test_what_cannot_be_encoded():
    for wrong in ({}, {"category": 48, "I010": {"SAC": 25}}, {"category": 48, "I140": float("nan")}):
        with pytest.raises(libast.Error):
            libast.encode(wrong)
    with pytest.raises(ValueError, match="category 34"):
        libast.block(libast.decode(PLOT + NORTH))
    with pytest.raises(ValueError, match="65535"):
        libast.block(libast.decode(PLOT) * 5000)
    for wrong in (7, "x", [7], None):
        with pytest.raises(TypeError):
            libast.encode(wrong)
    with pytest.raises(ValueError, match="no records"):
        libast.block([])


def test_writing_keeps_times_addresses_and_datagrams(tmp_path):
    records = list(libast.open(SAMPLES / "radar.pcap"))
    assert libast.write(tmp_path / "b.pcap", records) == len(records)
    again = list(libast.open(tmp_path / "b.pcap"))
    assert [record.to_json() for record in again] == [record.to_json() for record in records]
    assert [record.datagram for record in again] == [record.datagram for record in records]
    libast.write(tmp_path / "b.ast", libast.open(SAMPLES / "radar.ast"))
    assert (tmp_path / "b.ast").read_bytes() == (SAMPLES / "radar.ast").read_bytes()


def test_writing_lines(tmp_path):
    libast.write(tmp_path / "b.jsonl", [*libast.decode(PLOT), PLOT_VALUES])
    first, second = (tmp_path / "b.jsonl").read_text().splitlines()
    assert json.loads(first)["I040"] == json.loads(second)["I040"] == PLOT_VALUES["I040"]


def test_a_file_is_written_whole_or_not_at_all(tmp_path):
    def broken():
        yield PLOT_VALUES
        raise KeyError("nothing more")

    for name in ("b.pcap", "b.ast", "b.json"):
        (tmp_path / name).write_text("before")
        with pytest.raises(KeyError):
            libast.write(tmp_path / name, broken())
        assert (tmp_path / name).read_text() == "before"
    assert len(list(tmp_path.iterdir())) == 3
    with pytest.raises(libast.Error, match="ends in none of"):
        libast.write(tmp_path / "b.txt", [PLOT_VALUES])


def test_sending():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as receiver:
        receiver.bind(("127.0.0.1", 0))
        receiver.settimeout(10)
        with libast.sender(f"udp://127.0.0.1:{receiver.getsockname()[1]}") as out:
            assert out.send(PLOT) and out.send(PLOT_VALUES)
            assert out.send_all(libast.decode(NORTH + PLOT)) == 1
            assert out.statistics["sent"] == 3
        assert [receiver.recv(100) for _ in range(3)] == [PLOT, PLOT, NORTH + PLOT]
    with pytest.raises(libast.Error):
        out.send(PLOT)
    with pytest.raises(libast.Error) as error:
        libast.sender("udp://255.255.255.255:1")
    assert error.value.reason == "option"
