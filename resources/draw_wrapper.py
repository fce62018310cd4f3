#!/usr/bin/env python3
"""Draws the wrapper's pictures: a text file that flows into a table.

    draw_wrapper.py ICON BITMAP

The icon has 16, 24, 32 and 48 pixels, with transparency; the bitmap 32, on white.
"""

import math
import struct
import sys

ICON_SIZES = (16, 24, 32, 48)
BITMAP_SIZE = 32
SAMPLES = 5  # a side, within each pixel

INK = (0x4A, 0x5A, 0x70)
PAPER = (0xFF, 0xFF, 0xFF)
FOLD = (0xD5, 0xDD, 0xE8)
TEXT = (0x8A, 0x9A, 0xB0)
HEADER = (0x2B, 0x6C, 0xB8)
GRID = (0x9C, 0xBC, 0xE0)
FRAME = (0x1D, 0x4E, 0x89)
STRIPE = (0xEA, 0xF2, 0xFB)
ARROW = (0xF2, 0x8C, 0x1E)


def rectangle(left, top, right, bottom):
    return lambda x, y: left <= x < right and top <= y < bottom


def triangle(*corners):
    def side(x, y, a, b):
        return (x - b[0]) * (a[1] - b[1]) - (a[0] - b[0]) * (y - b[1])

    def inside(x, y):
        sides = [side(x, y, corners[i], corners[(i + 1) % 3]) for i in range(3)]
        return all(s >= 0 for s in sides) or all(s <= 0 for s in sides)
    return inside


def quarter_ring(x0, y0, outer, inner):
    """The upper right quarter of a ring around a point."""
    def inside(x, y):
        return x >= x0 and y <= y0 and inner <= math.hypot(x - x0, y - y0) <= outer
    return inside


def cut(shape, away):
    return lambda x, y: shape(x, y) and not away(x, y)


def scene(size):
    """Shapes and colours, lowest first, in pixels; edges lie between pixels."""
    def at(fraction):
        return round(fraction * size)

    line = max(1, size // 32)
    page_right, page_bottom = at(0.56), at(0.72)
    fold = at(0.16)
    corner = triangle((page_right - fold, 0), (page_right, 0), (page_right, fold))
    yield cut(rectangle(0, 0, page_right, page_bottom), corner), INK
    yield cut(rectangle(line, line, page_right - line, page_bottom - line),
              triangle((page_right - fold - line, 0), (page_right, 0),
                       (page_right, fold + line))), PAPER
    yield triangle((page_right - fold, 0), (page_right - fold, fold), (page_right, fold)), INK
    if fold > 3 * line:
        yield triangle((page_right - fold + line, 2 * line), (page_right - fold + line, fold - line),
                       (page_right - 2 * line, fold - line)), FOLD
    rows = 3 if size < 24 else 5
    for row in range(rows):
        y = at(0.2) + row * max(2 * line, at(0.1))
        end = (0.30, 0.44, 0.36, 0.44, 0.30)[row]
        yield rectangle(at(0.1), y, at(end), y + line), TEXT

    left, top, right, bottom = at(0.34), at(0.47), size, size
    yield rectangle(left, top, right, bottom), FRAME
    header = top + max(2, at(0.14))
    columns, lines = (2, 2) if size < 24 else (3, 3)
    yield rectangle(left + line, top + line, right - line, header), HEADER
    body = header + line
    yield rectangle(left + line, header, right - line, bottom - line), GRID
    for row in range(lines):
        for column in range(columns):
            x = [left + line + round(i * (right - left - line) / columns)
                 for i in (column, column + 1)]
            y = [body + round(i * (bottom - body) / lines) for i in (row, row + 1)]
            yield (rectangle(x[0], y[0], x[1] - line, y[1] - line), STRIPE if row % 2 else PAPER)

    # The arrow leaves the page to the right and turns down into the table.
    width = max(2, at(0.11))
    start, shaft_right = at(0.13), at(0.83) + width // 2
    outer = at(0.12) + width / 2
    centre_x, centre_y = shaft_right - outer, start + outer
    head, tip = top - line - round(1.2 * width), top - line
    yield rectangle(page_right + line, start, centre_x, start + width), ARROW
    yield quarter_ring(centre_x, centre_y, outer, outer - width), ARROW
    yield rectangle(shaft_right - width, centre_y, shaft_right, head), ARROW
    middle = shaft_right - width / 2
    yield triangle((middle - 1.15 * width, head), (middle + 1.15 * width, head), (middle, tip)), ARROW


def draw(size):
    """Rows, top first, of (red, green, blue, alpha)."""
    shapes = list(scene(size))
    offsets = [(i + 0.5) / SAMPLES for i in range(SAMPLES)]
    rows = []
    for py in range(size):
        row = []
        for px in range(size):
            total, covered = [0, 0, 0], 0
            for dy in offsets:
                for dx in offsets:
                    colour = None
                    for inside, each in shapes:
                        if inside(px + dx, py + dy):
                            colour = each
                    if colour:
                        covered += 1
                        total = [t + c for t, c in zip(total, colour)]
            alpha = round(255 * covered / SAMPLES ** 2)
            row.append(tuple(t // covered if covered else 0 for t in total) + (alpha,))
        rows.append(row)
    return rows


def icon_image(rows):
    """One image of an icon: 32 bits a pixel, and the mask for systems without transparency."""
    size = len(rows)
    pixels = b"".join(struct.pack("BBBB", b, g, r, a) for row in reversed(rows) for r, g, b, a in row)
    mask_width = (size + 31) // 32 * 4
    mask = b""
    for row in reversed(rows):
        bits = 0
        for _, _, _, alpha in row:
            bits = bits << 1 | (alpha < 128)
        mask += (bits << (8 * mask_width - size)).to_bytes(mask_width, "big")
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(pixels) + len(mask),
                         0, 0, 0, 0)
    return header + pixels + mask


def icon(pictures):
    images = [icon_image(rows) for rows in pictures]
    place = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for rows, image in zip(pictures, images):
        directory += struct.pack("<BBBBHHII", len(rows), len(rows), 0, 0, 1, 32, len(image), place)
        place += len(image)
    return directory + b"".join(images)


def bitmap(rows):
    """24 bits a pixel, on white."""
    size = len(rows)
    pixels = b""
    for row in reversed(rows):
        line = b"".join(bytes((c * a + 255 * (255 - a)) // 255 for c in (b, g, r))
                        for r, g, b, a in row)
        pixels += line + bytes(-len(line) % 4)
    header = struct.pack("<IiiHHIIiiII", 40, size, size, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    return b"BM" + struct.pack("<IHHI", 54 + len(pixels), 0, 0, 54) + header + pixels


def main(icon_path, bitmap_path):
    with open(icon_path, "wb") as file:
        file.write(icon([draw(size) for size in ICON_SIZES]))
    with open(bitmap_path, "wb") as file:
        file.write(bitmap(draw(BITMAP_SIZE)))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
