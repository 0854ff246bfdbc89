"""Adds topic numbers to a compiled help file.

A viewer looks a number up in the internal file #IVB, which says where in the internal file #STRINGS
the page's name stands. Both are added uncompressed at the end of the help file, which the format
allows any internal file; a #STRINGS of the compiler's own gives way to the longer one.

The format, as far as it matters here, all numbers little-endian: the file's header points to a
directory and to the contents. The directory is a header and blocks of entries (name, section,
offset, length) sorted by name; the numbers in an entry are in groups of seven bits. Section 0 is
what is not compressed, counted from the start of the contents. A small help file has one block.
"""

import struct
import zlib

LANGUAGE_FRENCH = 0x040C
SYSTEM_LANGUAGE = 4
SYSTEM_STAMP = 10
STRING_BLOCK = 0x1000  # no string may lie across two of these
QUICK_REFERENCE_AT = 0x14  # an entry's place, counted from the first entry


def read_number(block, at):
    value = 0
    while True:
        byte = block[at]
        value = value << 7 | byte & 0x7F
        at += 1
        if byte < 0x80:
            return value, at


def number(value):
    groups = [value & 0x7F]
    while value := value >> 7:
        groups.append(value & 0x7F | 0x80)
    return bytes(reversed(groups))


class Directory:
    """The one block of the directory of a help file, read into entries and written back."""

    def __init__(self, data):
        start, = struct.unpack_from("<Q", data, 0x48)
        header, = struct.unpack_from("<I", data, start + 8)
        self.size, self.density = struct.unpack_from("<II", data, start + 0x10)
        blocks, = struct.unpack_from("<I", data, start + 0x2C)
        if blocks != 1:
            raise ValueError("the help file has outgrown a directory of one block")
        self.at = start + header
        self.entries = self.read(data[self.at:self.at + self.size])

    @staticmethod
    def read(block):
        count, = struct.unpack_from("<H", block, len(block) - 2)
        at = QUICK_REFERENCE_AT
        entries = {}
        for _ in range(count):
            length, at = read_number(block, at)
            name = block[at:at + length].decode("utf-8")
            section, at = read_number(block, at + length)
            offset, at = read_number(block, at)
            size, at = read_number(block, at)
            entries[name] = (section, offset, size)
        return entries

    def write(self, data):
        entries = b""
        references = []
        every = 1 + (1 << self.density)
        for count, name in enumerate(sorted(self.entries, key=str.lower)):
            if count and count % every == 0:
                references.append(len(entries))
            encoded = name.encode("utf-8")
            entries += number(len(encoded)) + encoded
            entries += b"".join(map(number, self.entries[name]))
        tail = struct.pack("<H", len(self.entries))
        for reference in references:
            tail = struct.pack("<H", reference) + tail
        free = self.size - QUICK_REFERENCE_AT - len(entries)
        if free < len(tail):
            raise ValueError("the help file has outgrown a directory of one block")
        head = data[self.at:self.at + 4] + struct.pack("<I", free)
        head += data[self.at + 8:self.at + QUICK_REFERENCE_AT]
        block = head + entries + bytes(free - len(tail)) + tail
        data[self.at:self.at + self.size] = block


def append(data, directory, name, content):
    contents, = struct.unpack_from("<Q", data, 0x58)
    directory.entries[name] = (0, len(data) - contents, len(content))
    data += content


def system_value(data, directory, wanted):
    """Where in the file the internal file #SYSTEM keeps its value of a kind."""
    contents, = struct.unpack_from("<Q", data, 0x58)
    section, at, size = directory.entries["/#SYSTEM"]
    if section != 0:
        raise ValueError("#SYSTEM is compressed")
    at += contents
    end = at + size
    at += 4
    while at < end:
        kind, length = struct.unpack_from("<HH", data, at)
        if kind == wanted:
            return at + 4
        at += 4 + length
    raise ValueError(f"#SYSTEM has no value {wanted}")


def set_language(data, directory):
    """The compiler calls every help file English."""
    struct.pack_into("<I", data, 0x14, LANGUAGE_FRENCH)
    struct.pack_into("<I", data, system_value(data, directory, SYSTEM_LANGUAGE), LANGUAGE_FRENCH)


def set_stamp(data, directory):
    """The same pages are to give the same file: its stamp comes from them, not from the clock."""
    places = (0x10, system_value(data, directory, SYSTEM_STAMP))
    for place in places:
        struct.pack_into("<I", data, place, 0)
    stamp = zlib.crc32(data)
    for place in places:
        struct.pack_into("<I", data, place, stamp)


def add(compiled, strings, topics):
    """Adds topics, a map of number to page name, to the help file; strings are those it has."""
    strings = bytearray(strings or b"\0")
    table = bytearray()
    for topic, page in sorted(topics.items()):
        name = b"/" + page.encode("ascii") + b"\0"
        if len(strings) % STRING_BLOCK + len(name) > STRING_BLOCK:
            strings += bytes(-len(strings) % STRING_BLOCK)
        table += struct.pack("<II", topic, len(strings))
        strings += name
    data = bytearray(compiled.read_bytes())
    directory = Directory(data)
    set_language(data, directory)
    append(data, directory, "/#STRINGS", strings)
    append(data, directory, "/#IVB", struct.pack("<I", len(table)) + table)
    directory.write(data)
    header, = struct.unpack_from("<Q", data, 0x38)
    struct.pack_into("<Q", data, header + 8, len(data))
    set_stamp(data, directory)
    compiled.write_bytes(data)
