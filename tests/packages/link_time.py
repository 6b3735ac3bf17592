#!/usr/bin/env python3
"""The link time of a Windows program.

    link_time.py --sum PROGRAM               SHA-256 of the program as if it had none
    link_time.py --set SECONDS PROGRAM OUT   writes the program as if it had been linked then
"""

import hashlib
import pathlib
import struct
import sys

# Below the start of the header: when it was linked, and a checksum over the file.
TIME, CHECKSUM = 8, 88


def with_link_time(program, seconds, checksum):
    header = struct.unpack_from("<I", program, 0x3C)[0]
    changed = bytearray(program)
    struct.pack_into("<I", changed, header + TIME, seconds)
    struct.pack_into("<I", changed, header + CHECKSUM, checksum)
    return bytes(changed)


def main(arguments):
    if len(arguments) == 2 and arguments[0] == "--sum":
        program = pathlib.Path(arguments[1]).read_bytes()
        print(hashlib.sha256(with_link_time(program, 0, 0)).hexdigest())
    elif len(arguments) == 4 and arguments[0] == "--set":
        seconds, program = int(arguments[1]), pathlib.Path(arguments[2]).read_bytes()
        pathlib.Path(arguments[3]).write_bytes(with_link_time(program, seconds, seconds // 2))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
