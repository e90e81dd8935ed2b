"""Where things are: the tree, the tool, and blocks worked by hand."""

import os
import pathlib

import pytest

TREE = pathlib.Path(__file__).resolve().parents[2]
SAMPLES = TREE / "samples"

# Category 048, FRN 1 to 6: source 25/12, 43201.5 s, roll-call, 0.5 NM due east, code 7700, flight level 350.
PLOT = bytes.fromhex("300012 FC 190C 5460C0 A0 00804000 0FC0 0578")
# Category 034, FRN 1 to 3: source 25/12, north marker, 43200 s.
NORTH = bytes.fromhex("22000A E0 190C 01 546000")


def recordings():
    """The samples, and those of a folder that AST_RECORDINGS names."""
    folder = os.environ.get("AST_RECORDINGS")
    more = pathlib.Path(folder).iterdir() if folder else ()
    return sorted(path for path in [*SAMPLES.iterdir(), *more] if path.suffix != ".md")


@pytest.fixture
def astdump():
    return os.environ["ASTDUMP"]
