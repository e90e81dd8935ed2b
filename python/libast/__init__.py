"""ASTERIX surveillance data: reads, changes, encodes, writes and sends it.

    import libast
    for record in libast.open("radar.pcap", where="fl > 100"):
        print(record.timestamp, record.callsign, record.fl, record["I040"]["RHO"])

A record is lazy: nothing is decoded that is not asked for. Its attributes answer what most people ask of a record of
whatever category, None where it does not tell; their units are in their names, and else degrees, seconds and flight
levels. What to_dict() gives is nested and named as in the JSON of the project, with the values of the published documents.
"""

import os

from ._libast import (
    DamageWarning,
    Error,
    Field,
    Record,
    Recording,
    Report,
    Sites,
    __version__,
    block,
    encode,
)

__all__ = [
    "DamageWarning",
    "Error",
    "Field",
    "Record",
    "Recording",
    "Report",
    "Sites",
    "__version__",
    "block",
    "decode",
    "encode",
    "fields",
    "open",
    "sender",
    "sites",
    "write",
]


def _listed(values):
    """A list as the library takes it: "34,48" of [34, 48]."""
    if values is None or isinstance(values, str):
        return values
    if isinstance(values, int):
        return str(values)
    return ",".join(str(value) for value in values)


def _moment(when):
    """A time as the library takes it: a text, or a datetime, which is meant in UTC where it has no zone."""
    if when is None or isinstance(when, str):
        return when
    offset = when.utcoffset()
    return (when - offset if offset else when).replace(tzinfo=None).isoformat()


def _is_octets(source):
    return isinstance(source, (bytes, bytearray, memoryview)) or hasattr(source, "read")


def _octets_of(source):
    if hasattr(source, "read"):
        source = source.read()
    return source.encode() if isinstance(source, str) else bytes(source)


def open(
    source,
    *,
    where=None,
    category=None,
    errors="warn",
    timeout=None,
    sites=None,
    framing=None,
    profile=None,
    port=None,
    host=None,
    start=None,
    end=None,
    network_interface=None,
    merge=False,
    follow=False,
    threads=0,
):
    """Opens a recording or a stream, to iterate over its records.

    source: a path, also of a capture or a file packed by gzip or zstd, "-" for standard input, "udp://HOST:PORT" or
        "tcp://HOST:PORT"; a list of these, read one after the other; octets; or a file object, which is read whole.
    where: which records: "squawk = 7700", "callsign = DLH* and fl > 100", "I048/020/TYP = 5".
    category: of which categories: 48, [34, 48] or "1-21".
    errors: what is damaged is passed over, and listed in Recording.reports. "warn" warns once for each cause, "raise"
        raises Error, "ignore" does neither.
    timeout: seconds without a block, after which iteration ends; it may be gone on with. None waits for ever.
    sites: where sensors stand, as made by sites(): then what they have measured has latitude and longitude.
    framing: "raw", "final", "gps", "oradis", "hdlc", "mac-llc", "hex", "text" or "json"; None to find out.
    profile: the layout of a category, such as "cat021-2.1"; None to find out for each source.
    port, host: that datagrams come from or go to: 8600, "8600-8620", "10.1.0.0/16".
    start, end: of what was received between these, datetimes or texts such as "12:00" and "2014-02-25T12:43:47Z", in UTC.
    network_interface: that udp:// listens on, by name or address.
    merge: several inputs as one, by their times.
    follow: wait for more at the end of a file that grows.
    threads: that read ahead. With any, Ctrl-C also ends a long search at once.
    """
    options = {
        "where": where,
        "errors": errors,
        "timeout": timeout,
        "sites": sites,
        "framing": framing,
        "profile": profile,
        "categories": _listed(category),
        "ports": _listed(port),
        "hosts": _listed(host),
        "start": _moment(start),
        "end": _moment(end),
        "network_interface": network_interface,
        "merge": merge,
        "follow": follow,
        "threads": threads,
    }
    if _is_octets(source):
        name = getattr(source, "name", None)
        return Recording(_octets_of(source), name=name if isinstance(name, str) else "memory", **options)
    if isinstance(source, (str, os.PathLike)):
        source = [source]
    return Recording([os.fsencode(each) for each in source], **options)


def decode(octets, *, profile=None, errors="raise"):
    """The records of blocks back to back, as a list; damage raises Error, unless errors is "warn" or "ignore"."""
    with Recording(bytes(octets), framing="raw", profile=profile, errors=errors) as recording:
        return list(recording)


def fields(pattern="*"):
    """The fields of the category documents whose path or title is like a pattern: "I048/*", "*/RHO", "*level*"."""
    from . import _fields

    return _fields.find(pattern)


def sites(places=None):
    """Where data sources stand: {(sac, sic): (latitude, longitude, height)}, in degrees of WGS-84 and metres above the
    ellipsoid; the height is 0 where it is left out. Recordings that are opened with it add what sources tell of
    themselves."""
    made = Sites()
    for (sac, sic), place in dict(places or {}).items():
        made.add(sac, sic, *place)
    return made


def sender(url, *, speed=1.0, listen=False, bits_per_second=0, ttl=0, network_interface=None):
    """A way to send records: "udp://HOST:PORT", "tcp://HOST:PORT", with listen to whoever connects there.

    speed: by which the times of records pass: 2 for twice as fast, math.inf for as fast as can be.
    bits_per_second: at most, 0 for any.
    ttl: routers on the way plus one, 0 for 1 to a multicast group and as many as usual to anything else.
    network_interface: that multicast leaves by.
    """
    from ._datagrams import Sender

    return Sender(
        url, speed=speed, listen=listen, bits_per_second=bits_per_second, ttl=ttl, network_interface=network_interface
    )


def write(path, records):
    """Writes records, or dictionaries of such, to a file: a capture (.pcap), blocks back to back (.ast, .bin, .raw) or
    lines of JSON (.json, .jsonl). Times and addresses are kept, as are the blocks and datagrams that records came in.
    The file is written whole or not at all. Returns how many records there were."""
    from . import _datagrams

    return _datagrams.write(path, records)
