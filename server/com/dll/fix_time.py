#!/usr/bin/env python3
"""Takes the time of its making out of a type library: fix_time.py LIBRARY.

The compiler writes the time into it twice, in words and as a number right behind them, and has no option
against that. A library with two times would not be the same for the same sources.
"""

import pathlib
import re
import sys

# The words are padded with W to a multiple of four; 0x13 is the type of the number.
MADE_AT = re.compile(rb"(Created by WIDL version [0-9.]+ at )[ -~]{24}(\nW*\x13\0)[\0-\xff]{4}")


def without_time(data):
    fixed, count = MADE_AT.subn(
        lambda match: match[1] + b"Thu Jan  1 00:00:00 1970" + match[2] + bytes(4), data)
    if count != 1:
        sys.exit("fix_time: the type library does not say once when it was made")
    return fixed


if __name__ == "__main__":
    library = pathlib.Path(sys.argv[1])
    library.write_bytes(without_time(library.read_bytes()))
