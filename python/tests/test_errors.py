"""What is damaged, wrong, late or interrupted; and what nobody should call at all."""

import os
import signal
import socket
import subprocess
import sys
import threading
import time
import warnings

import libast
import pytest
from conftest import NORTH, PLOT, SAMPLES

# Four octets are missing; and behind a whole block stands one whose LEN is less than its header.
CUT = PLOT[:-4]
DAMAGED = PLOT + b"\x30\x00\x02" + CUT


def test_damage_warns_once_for_each_cause_and_is_reported():
    with pytest.warns(libast.DamageWarning) as warned:
        recording = libast.open(DAMAGED + DAMAGED, framing="raw")
        assert next(recording).squawk == "7700" and list(recording) == []
    texts = [str(one.message) for one in warned]
    assert len(texts) == len(set(texts)) == len({report.cause for report in recording.reports})
    report = recording.reports[0]
    assert (report.kind, report.reason, report.category) == ("damaged", "short_length", 48)
    assert (report.offset, report.file, report.packet) == (18, "memory", None)
    assert "LEN is 2" in report.text
    assert recording.report_counts["damaged"] == len(recording.reports)


def test_damage_raises():
    recording = libast.open(DAMAGED, framing="raw", errors="raise")
    with pytest.raises(libast.Error, match="LEN is 2") as error:
        list(recording)
    assert (error.value.offset, error.value.category, error.value.reason) == (18, 48, "short_length")
    with pytest.raises(libast.Error):
        libast.decode(CUT)
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        assert len(libast.decode(DAMAGED, errors="ignore")) == 1


def test_a_warning_that_is_an_error_loses_no_record():
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        recording = libast.open(PLOT + b"\x30\x00\x02" + PLOT, framing="raw")
        categories = []
        for _ in range(4):
            try:
                categories.append(next(recording).category)
            except libast.DamageWarning:
                categories.append("damage")
            except StopIteration:
                break
    assert categories == [48, "damage", 48]


def test_what_cannot_be_opened(tmp_path):
    for source, options, reason in [
        (tmp_path / "nothing", {}, "not_found"),
        ([], {}, "option"),
        ("udp://nowhere", {}, "option"),
        (PLOT, {"framing": "no"}, "option"),
        (PLOT, {"where": "sqauwk = 7700"}, "where"),
        (PLOT, {"threads": 1000}, "option"),
        (PLOT, {"threads": -1}, "option"),
    ]:
        with pytest.raises(libast.Error) as error:
            libast.open(source, **options)
        assert error.value.reason == reason
    with pytest.raises(libast.Error, match="did you mean squawk"):
        libast.open(PLOT, where="sqauwk = 7700")
    with pytest.raises(libast.Error, match=str(tmp_path)):
        list(libast.open(tmp_path))  # a folder, which shows when it is read
    assert list(libast.open(tmp_path, errors="ignore")) == []


def test_wrong_arguments():
    for options in ({"errors": "no"}, {"timeout": -1}, {"timeout": float("nan")}):
        with pytest.raises(ValueError):
            libast.open(PLOT, **options)
    for options in ({"sites": 7}, {"timeout": "x"}, {"where": 7}, {"threads": None}, {"nonsense": 1}):
        with pytest.raises(TypeError):
            libast.open(PLOT, **options)
    for made in (libast.Record, libast.Field, libast.Report):
        with pytest.raises(TypeError):
            made()
    with pytest.raises(TypeError):
        object.__new__(libast.Record)
    with pytest.raises(ValueError):
        libast.open("a\0b")


def test_a_closed_recording():
    recording = libast.open(PLOT)
    record = next(recording)
    recording.close()
    recording.close()
    assert record.squawk == "7700" and recording.framing is None
    with pytest.raises(libast.Error, match="closed"):
        next(recording)


@pytest.fixture
def live():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as other:
        other.bind(("127.0.0.1", 0))
        port = other.getsockname()[1]
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as sender:
        sender.connect(("127.0.0.1", port))
        yield f"udp://127.0.0.1:{port}", sender


def test_live_input_comes_as_it_is_sent_and_ends_with_the_time(live):
    url, sender = live
    recording = libast.open(url, timeout=0.2)
    assert list(recording) == []
    sender.send(PLOT)
    (record,) = recording  # gone on with
    assert record.squawk == "7700" and record.sender and record.received
    recording.close()


def test_another_thread_runs_while_one_waits_and_may_end_the_wait(live):
    recording = libast.open(live[0])
    ending = threading.Timer(0.2, recording.interrupt)
    ending.start()
    assert list(recording) == []
    ending.join()


def test_only_one_thread_reads(live):
    recording = libast.open(live[0])
    reading = threading.Thread(target=list, args=(recording,))
    reading.start()
    deadline = time.monotonic() + 10
    with pytest.raises(RuntimeError, match="another thread"):
        while time.monotonic() < deadline:
            next(recording)
    recording.interrupt()
    reading.join()


@pytest.mark.parametrize(
    "what",
    [
        "list(libast.open(URL))",
        "libast.open(URL).columns('fl').to_numpy()",
        "libast.sender(URL, speed=1e-9).send_all(libast.open(CAPTURE))",
    ],
)
def test_ctrl_c_ends_a_wait(live, what):
    program = f"import libast\nURL = {live[0]!r}\nCAPTURE = {str(SAMPLES / 'radar.pcap')!r}\nprint('here', flush=True)\n{what}"
    running = subprocess.Popen([sys.executable, "-c", program], stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    assert running.stdout.readline() == b"here\n"
    while running.poll() is None:
        time.sleep(0.2)
        os.kill(running.pid, signal.SIGINT)
    assert b"KeyboardInterrupt" in running.communicate()[1]
