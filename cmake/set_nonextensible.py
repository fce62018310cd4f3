#!/usr/bin/env python3
"""Marks one dispatch interface of a compiled type library as not extensible.

    set_nonextensible.py LIBRARY GUID

The library's compiler knows the attribute for interfaces alone. Anything that isn't as that compiler
writes it is an error, and the library is left as it was.
"""

import struct
import sys
import uuid

DISPATCH = 4  # TKIND_DISPATCH
HIDDEN, NONEXTENSIBLE, DISPATCHABLE = 0x10, 0x80, 0x1000  # TYPEFLAGS
HEADER_SIZE = 0x54
TYPE_INFO_SIZE = 0x64
TYPE_INFOS, GUIDS = 0, 5  # places in the segment directory
FLAGS_AT, GUID_AT = 0x30, 0x2c


def segment(library, type_count, index):
    """Start and length of one of the file's segments."""
    return struct.unpack_from("<ii", library, HEADER_SIZE + 4 * type_count + 16 * index)


def mark(library, guid):
    if library[:8] != b"MSFT\x02\x00\x01\x00":
        raise ValueError("no type library")
    (type_count,) = struct.unpack_from("<i", library, 0x20)
    types, types_length = segment(library, type_count, TYPE_INFOS)
    guids, guids_length = segment(library, type_count, GUIDS)
    if types_length != type_count * TYPE_INFO_SIZE:
        raise ValueError(f"{types_length} bytes for {type_count} types")
    for start in range(types, types + types_length, TYPE_INFO_SIZE):
        (guid_offset,) = struct.unpack_from("<i", library, start + GUID_AT)
        if not 0 <= guid_offset <= guids_length - 16:
            continue
        place = guids + guid_offset
        if library[place:place + 16] != guid.bytes_le:
            continue
        kind = library[start] & 0x0F
        (flags,) = struct.unpack_from("<i", library, start + FLAGS_AT)
        if kind != DISPATCH or flags != HIDDEN | DISPATCHABLE:
            raise ValueError(f"{guid} has kind {kind} and flags {flags:#x}")
        struct.pack_into("<i", library, start + FLAGS_AT, flags | NONEXTENSIBLE)
        return
    raise ValueError(f"{guid} isn't in it")


def main(path, guid):
    with open(path, "rb") as file:
        library = bytearray(file.read())
    try:
        mark(library, uuid.UUID(guid))
    except (ValueError, struct.error) as fault:
        sys.exit(f"{path}: {fault}")
    with open(path, "wb") as file:
        file.write(library)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
