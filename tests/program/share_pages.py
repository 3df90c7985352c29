#!/usr/bin/env python3
"""share_pages.py DATASET NAME: makes the B-tree NAME of a dataset one in which pages are children again and again.

The root becomes an interior page whose children are all one page, and so on for several levels down to a copy of the old
root. A scan that goes through all of it never ends.
"""

import sqlite3
import struct
import sys

PAGE = 4096
LEVELS = 12
CHILDREN = 40
TABLE_LEAF, TABLE_INTERIOR, INDEX_INTERIOR = 13, 5, 2


def varint(data, offset):
    value = 0
    for size in range(1, 9):
        byte = data[offset + size - 1]
        value = value << 7 | byte & 127
        if byte < 128:
            return value, size
    raise ValueError('a varint of nine bytes')


def first_entry(leaf):
    """What an interior page holds beside a child: a row's number, or the whole of an index entry."""
    offset = struct.unpack_from('>H', leaf, 8)[0]
    payload, size = varint(leaf, offset)
    if leaf[0] == TABLE_LEAF:
        _, id_size = varint(leaf, offset + size)
        return leaf[offset + size:offset + size + id_size]
    return leaf[offset:offset + size + payload]


def interior(kind, child, entry):
    cell = struct.pack('>I', child) + entry
    starts = [PAGE - len(cell) * (number + 1) for number in range(CHILDREN)]
    header = struct.pack('>BHHHBI', kind, 0, CHILDREN, starts[-1], 0, child)
    page = bytearray(PAGE)
    page[:len(header)] = header
    for number, start in enumerate(starts):
        struct.pack_into('>H', page, len(header) + 2 * number, start)
        page[start:start + len(cell)] = cell
    return bytes(page)


def main():
    path, name = sys.argv[1:]
    connection = sqlite3.connect(path)
    root = connection.execute('SELECT rootpage FROM sqlite_schema WHERE name = ?', (name,)).fetchone()[0]
    connection.close()
    with open(path, 'rb') as file:
        data = bytearray(file.read())
    leaf = bytes(data[(root - 1) * PAGE:root * PAGE])
    kind = TABLE_INTERIOR if leaf[0] == TABLE_LEAF else INDEX_INTERIOR
    entry = first_entry(leaf)
    last = len(data) // PAGE
    for level in range(LEVELS):
        data += interior(kind, last + level + 2, entry)
    data += leaf
    data[(root - 1) * PAGE:root * PAGE] = interior(kind, last + 1, entry)
    struct.pack_into('>I', data, 28, len(data) // PAGE)
    with open(path, 'wb') as file:
        file.write(data)


if __name__ == '__main__':
    main()
