"""Recordings as columns."""

import ctypes

import libast
import pytest
from conftest import NORTH, PLOT, SAMPLES

numpy = pytest.importorskip("numpy")


def test_arrays_hold_what_records_answer():
    path = SAMPLES / "tracks.pcap"
    names = ["timestamp", "category", "squawk", "callsign", "fl", "spi", "latitude", "track_number"]
    arrays = libast.open(path).columns(*names).to_numpy()
    records = list(libast.open(path))
    assert list(arrays) == names and {len(array) for array in arrays.values()} == {len(records)}
    missing = {"timestamp": numpy.datetime64("NaT"), "spi": numpy.ma.masked, "track_number": numpy.ma.masked}
    for row, record in enumerate(records):
        for name in names:
            answer = getattr(record, "timestamp_ns" if name == "timestamp" else name)
            value = arrays[name][row]
            if answer is None:
                assert value is None or value is missing.get(name) or value != value
            elif name == "timestamp":
                assert value == numpy.datetime64(answer, "ns")
            else:
                assert value == answer


def test_types_of_what_is_missing():
    arrays = libast.open(NORTH + PLOT).columns("squawk", "fl", "spi", "timestamp", "sac", "callsign").to_numpy()
    assert list(arrays["squawk"]) == [None, "7700"] and list(arrays["callsign"]) == [None, None]
    assert numpy.isnan(arrays["fl"][0]) and arrays["fl"][1] == 350
    assert arrays["spi"].mask.tolist() == [True, False] and not arrays["spi"][1]
    assert numpy.isnat(arrays["timestamp"]).all() and arrays["timestamp"].dtype == "datetime64[ns]"
    assert arrays["sac"].dtype == numpy.int32 and not numpy.ma.is_masked(arrays["sac"])
    empty = libast.open(PLOT, where="squawk = 1000").columns("squawk", "fl", "spi").to_numpy()
    assert [len(array) for array in empty.values()] == [0, 0, 0]


def test_choosing_and_batches():
    many = (NORTH + PLOT) * 500
    arrays = libast.open(many, where="fl = 350", category=[48]).columns("I048/040/RHO", "squawk", rows=7).to_numpy()
    assert arrays["I048/040/RHO"].tolist() == [0.5] * 500 and set(arrays["squawk"]) == {"7700"}
    sites = libast.sites({(25, 12): (0.0, 15.0)})
    assert libast.open(PLOT, sites=sites).columns("longitude").to_numpy()["longitude"] == [15.0]


def test_frames():
    pandas = pytest.importorskip("pandas")
    frame = libast.open(NORTH + PLOT).columns().to_pandas()
    assert frame.squawk.tolist() == [None, "7700"] and frame.category.tolist() == [34, 48]
    assert str(frame.timestamp.dtype) == "datetime64[ns, UTC]" and frame.spi.isna().tolist() == [True, False]
    assert str(frame.spi.dtype) == "boolean" and str(frame.sac.dtype) == "Int32"
    names = libast.open(SAMPLES / "adsb.pcap").columns(names="traffic").to_pandas().columns
    assert {"timestamp", "icao24", "altitude", "groundspeed"} <= set(names)
    assert isinstance(frame, pandas.DataFrame)


def test_damage_is_reported():
    damaged = PLOT + b"\x30\x00\x02"
    recording = libast.open(damaged, framing="raw", errors="raise")
    with pytest.raises(libast.Error, match="LEN is 2"):
        recording.columns("fl").to_numpy()
    recording = libast.open(damaged, framing="raw")
    with pytest.warns(libast.DamageWarning):
        assert recording.columns("fl").to_numpy()["fl"].tolist() == [350]
    assert len(recording.reports) == 1


def test_what_cannot_be():
    recording = libast.open(PLOT)
    with pytest.raises(libast.Error, match="no_such"):
        recording.columns("no_such")
    with pytest.raises(TypeError):
        recording.columns(7)
    columns = recording.columns("fl")
    with pytest.raises(libast.Error, match="as columns"):
        next(recording)
    assert columns.names == ["fl"]
    columns.to_numpy()
    with pytest.raises(libast.Error, match="taken already"):
        columns.to_numpy()
    with pytest.raises(TypeError, match="nested"):
        libast.open(PLOT, category=48).columns("all").to_numpy()
    closed = libast.open(PLOT)
    columns = closed.columns("fl")
    closed.close()
    with pytest.raises(libast.Error):
        columns.to_numpy()


class Array(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int64) for name in ("length", "nulls", "offset", "n_buffers", "n_children")]
    _fields_ += [(name, ctypes.c_void_p) for name in ("buffers", "children", "dictionary", "release", "private")]


class Stream(ctypes.Structure):
    _fields_ = [(name, ctypes.c_void_p) for name in ("get_schema", "get_next", "get_last_error", "release", "private")]


def stream_of(capsule):
    pointer = ctypes.pythonapi.PyCapsule_GetPointer
    pointer.restype, pointer.argtypes = ctypes.c_void_p, [ctypes.py_object, ctypes.c_char_p]
    return Stream.from_address(pointer(capsule, b"arrow_array_stream"))


def test_capsules_are_streams_of_arrow():
    columns = libast.open((NORTH + PLOT) * 10).columns("fl", rows=8)
    schema = columns.__arrow_c_schema__()
    capsule = columns.__arrow_c_stream__()
    with pytest.raises(libast.Error):
        columns.__arrow_c_stream__()
    stream, batch, rows = stream_of(capsule), Array(), []
    get_next = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(stream.get_next)
    while get_next(ctypes.addressof(stream), ctypes.addressof(batch)) == 0 and batch.release:
        rows.append(batch.length)
        ctypes.CFUNCTYPE(None, ctypes.c_void_p)(batch.release)(ctypes.addressof(batch))
    assert rows == [8, 8, 4]
    del capsule, schema  # releases what is left
    libast.open(PLOT).columns("fl").__arrow_c_stream__()  # and what nobody has taken


def test_tables_of_one_category_have_all_items():
    # Nested columns are for those who take Arrow; here, their names alone are looked at.
    names = libast.open(PLOT, category=48).columns("all").names
    assert {"I010", "I040", "I250", "REF"} <= set(names)
