"""Pictures as PNG files (ISO 15948), without a library: eight bits for each of red, green and blue."""

import struct
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def write(path, rows):
    """Writes rows of pixels, as the screen gives them: (blue, green, red, unused) bytes."""
    header = struct.pack(">IIBBBBB", len(rows[0]) // 4, len(rows), 8, 2, 0, 0, 0)
    body = b"".join(b"\0" + rgb(row) for row in rows)
    with open(path, "wb") as file:
        file.write(SIGNATURE + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(body, 6)) + chunk(b"IEND", b""))


def read(path):
    """The rows of a picture that `write` has written, as it was given them."""
    with open(path, "rb") as file:
        data = file.read()
    assert data.startswith(SIGNATURE)
    parts, at = {}, len(SIGNATURE)
    while at < len(data):
        size, kind = struct.unpack_from(">I4s", data, at)
        parts[kind] = data[at + 8:at + 8 + size]
        at += size + 12
    width, height = struct.unpack_from(">II", parts[b"IHDR"])
    body, stride = zlib.decompress(parts[b"IDAT"]), 1 + width * 3
    return [bgrx(body[line * stride + 1:(line + 1) * stride]) for line in range(height)]


def rgb(row):
    """A row of (blue, green, red, unused) as (red, green, blue)."""
    out = bytearray(len(row) // 4 * 3)
    out[0::3], out[1::3], out[2::3] = row[2::4], row[1::4], row[0::4]
    return bytes(out)


def bgrx(row):
    """The other way round."""
    out = bytearray(len(row) // 3 * 4)
    out[0::4], out[1::4], out[2::4] = row[2::3], row[1::3], row[0::3]
    return bytes(out)


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
