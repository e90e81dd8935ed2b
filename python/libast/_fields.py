"""Fields by patterns."""

import fnmatch

from ._libast import _fields_of


def find(pattern):
    pattern = pattern.lower()
    return [
        field
        for category in range(256)
        for field in _fields_of(category)
        if fnmatch.fnmatchcase(field.path.lower(), pattern) or fnmatch.fnmatchcase(field.title.lower(), pattern)
    ]
