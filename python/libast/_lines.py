"""Dictionaries as the lines of JSON that records are encoded from."""

import json

# What a line says of where its record came from, which what has been changed is not any more.
_PLACE = ("implausible", "file", "block", "record", "time", "source", "destination", "offset", "ambiguous")


def line(record):
    if not hasattr(record, "keys"):
        raise TypeError(f"a record is a dict or a libast.Record, not {type(record).__name__}")
    return json.dumps(dict(record))


def _steps(path):
    """ "I048/250[1]/MCP_ALT" as ["I250", 1, "MCP_ALT"]."""
    steps = []
    for part in path.split("/"):
        name, *indexes = part.split("[")
        steps.append(name)
        steps += [int(index.rstrip("]")) for index in indexes]
    has_category = len(steps) > 1 and steps[0].lstrip("I").isdigit() and str(steps[1])[:1].isdigit()
    steps = steps[1:] if has_category else steps
    if steps[0].isdigit():
        steps[0] = "I" + steps[0]
    return steps


def _set(record, path, value):
    *way, last = _steps(path)
    at = record
    for step in way:
        at = at[step] if isinstance(step, int) else at.setdefault(step, {})
    at[last] = value


def changed(record, changes):
    """The line of a record with other values, by path."""
    for name in _PLACE:
        record.pop(name, None)
    for path, value in changes.items():
        _set(record, path, value)
    return json.dumps(record)
