"""Records as the datagrams that they came in: written to files, and sent."""

import os

from . import _libast
from ._libast import Record, block, encode


def _place(record):
    """Records next to each other with the same of these came in one datagram."""
    return (record.file, record.datagram, record.received_ns, record.sender, record.receiver)


def _blocks(records):
    """Records as octets: those next to each other that came in one block are a block again."""
    together = []
    for record in records:
        if together and (record.block, record.category) != (together[0].block, together[0].category):
            yield block(together)
            together = []
        together.append(record)
    yield block(together)


def datagrams(records):
    """Octets of datagrams, each with its first record; a dictionary is a datagram of its own, without one."""
    together = []
    for record in records:
        is_lone = not isinstance(record, Record)
        if together and (is_lone or record.datagram is None or _place(record) != _place(together[0])):
            yield b"".join(_blocks(together)), together[0], len(together)
            together = []
        if is_lone:
            yield encode(record), None, 1
        else:
            together.append(record)
    if together:
        yield b"".join(_blocks(together)), together[0], len(together)


def _write_lines(path, records):
    from ._lines import line

    part = f"{os.fspath(path)}.part"
    count = 0
    try:
        with open(part, "w", encoding="utf-8") as file:
            for record in records:
                file.write((record.to_json() if isinstance(record, Record) else line(record)) + "\n")
                count += 1
        os.replace(part, path)
    except BaseException:
        if os.path.exists(part):
            os.remove(part)
        raise
    return count


def write(path, records):
    if os.fspath(path).endswith((".json", ".jsonl")):
        return _write_lines(path, records)
    writer = _libast.Writer(path)
    count = 0
    for octets, record, together in datagrams(records):
        writer.write(octets, record)
        count += together
    writer.finish()
    return count


class Sender:
    """Sends records, each when it is due. Made by libast.sender."""

    def __init__(self, url, **options):
        self._sender = _libast.Sender(url, **options)

    def send(self, record, *, at=None):
        """Waits until a record is due, and sends it: a Record, due by its time of reception; a dictionary, or octets of
        a datagram, due at once, or by `at`, in nanoseconds since 1970. Returns whether it has been sent."""
        if isinstance(record, Record):
            at = record.received_ns if at is None else at
            octets = block([record])
        else:
            octets = encode(record) if hasattr(record, "keys") else record
        return self._sender.send(octets, at)

    def send_all(self, records):
        """Sends records, in the blocks and datagrams that they came in. Returns how many datagrams have been sent."""
        return sum(
            self._sender.send(octets, record and record.received_ns) for octets, record, _ in datagrams(records)
        )

    @property
    def statistics(self):
        """What has become of the datagrams so far: sent, octets, failed, late_median_s, late_greatest_s and failure."""
        return self._sender.statistics

    def close(self):
        """Waits for what is on its way, and closes it."""
        self._sender.close()

    def __enter__(self):
        return self

    def __exit__(self, *exception):
        self.close()
