"""The programs of docs/python.md do what stands below them, and those of the README run."""

import contextlib
import importlib.util
import io
import re
import socket
import threading

import libast
import pytest
from conftest import TREE

PAGE = (TREE / "docs" / "python.md").read_text()
RECIPES = re.findall(r"^### (\d+)\. (.*?)\n(.*?)(?=^### |\Z)", PAGE, re.S | re.M)
PARTS = [
    ("README", "in short", (TREE / "README.md").read_text()),
    ("before", "the recipes", PAGE.split("## Ten recipes")[0]),
    *RECIPES,
]


def free_port():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as other:
        other.bind(("127.0.0.1", 0))
        return str(other.getsockname()[1])


@contextlib.contextmanager
def traffic(port):
    """Somebody sends a recording again and again."""
    records, is_over = list(libast.open("samples/adsb.pcap")), threading.Event()

    def send():
        with libast.sender(f"udp://127.0.0.1:{port}", speed=1000) as out:
            for _ in range(5):
                is_over.wait(0.3)
                out.send_all(records)

    sending = threading.Thread(target=send)
    sending.start()
    try:
        yield
    finally:
        is_over.set()
    sending.join()


@contextlib.contextmanager
def receiver(port):
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as other:
        other.bind(("127.0.0.1", int(port)))
        yield


def nobody(port):
    return contextlib.nullcontext()


def missing_module(program):
    wanted = re.findall(r"^import (\w+)", program, re.M) + ["pandas"] * ("to_pandas" in program)
    missing = [name for name in wanted if not importlib.util.find_spec(name)]
    if "to_parquet" in program and not any(map(importlib.util.find_spec, ("pyarrow", "fastparquet"))):
        missing.append("pyarrow")
    return missing


def test_there_are_ten():
    assert [int(number) for number, _, _ in RECIPES] == list(range(1, 11))


@pytest.mark.parametrize("number, title, text", PARTS, ids=[part[1] for part in PARTS])
def test_recipe(number, title, text, tmp_path, monkeypatch):
    (tmp_path / "samples").symlink_to(TREE / "samples")
    monkeypatch.chdir(tmp_path)
    monkeypatch.setenv("MPLBACKEND", "Agg")
    port, space = free_port(), {"libast": libast}
    for program, shown in re.findall(r"```python\n(.*?)```(?:\n\n```text\n(.*?)```)?", text, re.S):
        if missing := missing_module(program):
            pytest.skip(f"without {', '.join(missing)}")
        output = io.StringIO()
        beside = traffic if 'open("udp://' in program else receiver if "sender(" in program else nobody
        with contextlib.redirect_stdout(output), beside(port):
            exec(compile(program.replace("8600", port), title, "exec"), space)
        for line in shown.splitlines():
            assert line in output.getvalue().splitlines()
        assert shown or output.getvalue() or list(tmp_path.glob("*.png"))
        if not shown:
            print(output.getvalue())
