"""usage: crc.py FILE: its CRC-32 by zlib."""
import sys
import zlib

value = 0
with open(sys.argv[1], "rb", buffering=0) as stream:
    while block := stream.read(128 << 10):
        value = zlib.crc32(block, value)
print(f"{value:08X}")
