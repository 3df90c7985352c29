#!/usr/bin/env python3
"""share_overflow.py DATASET: lets the rows of `block`, which lie in one page of a dataset, go on in the pages of the first.

A row that is too long for its page goes on in a chain of other pages, which are its own in a sound file.
"""

import sqlite3
import struct
import sys

from share_pages import PAGE, varint


def place_of_chain(leaf, cell):
    """Where in the page the number of the chain's first page stands."""
    size, read = varint(leaf, cell)
    begin = cell + read
    begin += varint(leaf, begin)[1]
    least = (PAGE - 12) * 32 // 255 - 23
    local = least + (size - least) % (PAGE - 4)
    return begin + (local if local <= PAGE - 35 else least)


def main():
    path = sys.argv[1]
    connection = sqlite3.connect(path)
    root = connection.execute("SELECT rootpage FROM sqlite_schema WHERE name = 'block'").fetchone()[0]
    connection.close()
    with open(path, 'r+b') as file:
        file.seek((root - 1) * PAGE)
        leaf = bytearray(file.read(PAGE))
        cells = struct.unpack_from('>%dH' % struct.unpack_from('>H', leaf, 3)[0], leaf, 8)
        places = [place_of_chain(leaf, cell) for cell in cells]
        for place in places[1:]:
            leaf[place:place + 4] = leaf[places[0]:places[0] + 4]
        file.seek((root - 1) * PAGE)
        file.write(leaf)


main()
