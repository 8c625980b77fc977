#!/usr/bin/env python3
"""Draws settings.ico: three sliders on a rounded plate, at 16, 32, 48 and 256 pixels.

Run it after a change of the drawing: ./make_icon.py settings.ico. Standard library only.
"""
import struct
import sys
import zlib

SIZES = (16, 32, 48, 256)
PLATE = (38, 70, 104)
PLATE_TOP = (58, 104, 148)
TRACK = (168, 192, 214)
FILLED = (120, 220, 232)
KNOB = (255, 255, 255)
# Row centre and knob position, in parts of the picture.
SLIDERS = ((0.28, 0.66), (0.50, 0.34), (0.72, 0.58))


def rounded(x, y, left, top, right, bottom, radius):
    """Is (x, y) inside the rectangle with rounded corners?"""
    if not (left <= x <= right and top <= y <= bottom):
        return False
    dx = max(left + radius - x, 0, x - (right - radius))
    dy = max(top + radius - y, 0, y - (bottom - radius))
    return dx * dx + dy * dy <= radius * radius


def sample(x, y, fine):
    """Colour (r, g, b, a) of the drawing at (x, y) in 0..1. fine: the small details of the large pictures."""
    if not rounded(x, y, 0.02, 0.02, 0.98, 0.98, 0.2):
        return (0, 0, 0, 0)
    colour = tuple(round(a + (b - a) * y) for a, b in zip(PLATE_TOP, PLATE))
    thick = 0.035 if fine else 0.055
    for row, knob in SLIDERS:
        if rounded(x, y, 0.17, row - thick, 0.83, row + thick, thick):
            colour = FILLED if x < knob else TRACK
    for row, knob in SLIDERS:
        distance = ((x - knob) ** 2 + (y - row) ** 2) ** 0.5
        if distance <= 0.105:
            colour = KNOB
            if fine and distance <= 0.05:
                colour = PLATE_TOP
    return (*colour, 255)


def draw(size):
    """Rows of (r, g, b, a) from the top; edges are smoothed by averaging sub-pixels."""
    steps = 8 if size <= 48 else 4
    rows = []
    for py in range(size):
        row = []
        for px in range(size):
            red = green = blue = alpha = 0
            for sy in range(steps):
                for sx in range(steps):
                    r, g, b, a = sample((px + (sx + 0.5) / steps) / size, (py + (sy + 0.5) / steps) / size, size > 32)
                    red, green, blue, alpha = red + r * a, green + g * a, blue + b * a, alpha + a
            if alpha:
                row.append((round(red / alpha), round(green / alpha), round(blue / alpha), alpha // (steps * steps)))
            else:
                row.append((0, 0, 0, 0))
        rows.append(row)
    return rows


def bitmap(rows):
    """The icon image as a device-independent bitmap: 32-bit colours and the one-bit mask, bottom row first."""
    size = len(rows)
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(struct.pack("4B", b, g, r, a) for row in reversed(rows) for r, g, b, a in row)
    stride = (size + 31) // 32 * 4
    mask = b""
    for row in reversed(rows):
        bits = "".join("0" if a else "1" for *_, a in row).ljust(stride * 8, "0")
        mask += int(bits, 2).to_bytes(stride, "big")
    return header + colours + mask


def png(rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    size = len(rows)
    pixels = b"".join(b"\0" + b"".join(struct.pack("4B", *pixel) for pixel in row) for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(pixels, 9)) + chunk(b"IEND", b""))


def main(path):
    pictures = [(size, draw(size)) for size in SIZES]
    images = [(size, png(rows) if size == 256 else bitmap(rows)) for size, rows in pictures]
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for size, data in images:
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    with open(path, "wb") as out:
        out.write(directory + b"".join(data for _, data in images))


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "settings.ico")
