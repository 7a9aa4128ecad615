#!/usr/bin/env python3
"""Draws the program's icon and the pointer of the show: src/app/panorell.ico and src/app/pointer.cur.

Every size is drawn anew from signed distances, in a unit square with y downwards; small sizes leave out what
would only blur. --preview FILE also writes a sheet of all sizes as PNG.
"""

import math
import pathlib
import struct
import sys
import zlib

APP = pathlib.Path(__file__).resolve().parent.parent / "src/app"
ICON_SIZES = (16, 24, 32, 48, 64, 128, 256)
POINTER_SIZES = (32, 48, 64)


def mix(a, b, t):
    t = min(1.0, max(0.0, t))
    return tuple(x + (y - x) * t for x, y in zip(a, b))


def colour(text):
    return tuple(int(text[i : i + 2], 16) / 255 for i in (0, 2, 4))


def gradient(stops, t):
    """The colour at t of a list of (position, colour), positions rising."""
    for (start, first), (end, second) in zip(stops, stops[1:]):
        if t <= end:
            return mix(first, second, (t - start) / (end - start))
    return stops[-1][1]


SUNSET = [(0.0, colour("2b2f77")), (0.30, colour("7b3f98")), (0.52, colour("e8596b")), (0.72, colour("ffb347")),
          (1.0, colour("ffe08a"))]
NOON = [(0.0, colour("1b7fc4")), (1.0, colour("a9e1f5"))]
WHITE = (1.0, 1.0, 1.0)


class Canvas:
    """Pixels of premultiplied RGBA."""

    def __init__(self, size):
        self.size = size
        self.pixels = [[(0.0, 0.0, 0.0, 0.0)] * size for _ in range(size)]

    def paint(self, distance, paint, opacity=1.0, soft=0.0):
        """Lays paint(x, y) over where distance(x, y) is negative; the edge is one pixel, or `soft`, wide."""
        edge = max(1.0 / self.size, soft)
        for row in range(self.size):
            y = (row + 0.5) / self.size
            line = self.pixels[row]
            for column in range(self.size):
                x = (column + 0.5) / self.size
                cover = min(1.0, max(0.0, 0.5 - distance(x, y) / edge)) * opacity
                if cover > 0:
                    red, green, blue = paint(x, y)
                    under = line[column]
                    keep = 1 - cover
                    line[column] = (red * cover + under[0] * keep, green * cover + under[1] * keep,
                                    blue * cover + under[2] * keep, cover + under[3] * keep)

    def bytes(self, order):
        """Rows of four bytes a pixel, colours not premultiplied."""
        rows = []
        for line in self.pixels:
            row = bytearray()
            for pixel in line:
                alpha = pixel[3]
                rgba = [round(255 * min(1.0, c / alpha)) if alpha else 0 for c in pixel[:3]] + [round(255 * alpha)]
                row += bytes(rgba["rgba".index(letter)] for letter in order)
            rows.append(bytes(row))
        return rows


def box(cx, cy, width, height, radius=0.0, degrees=0.0):
    """The signed distance to a turned, rounded rectangle, and the place within it (0 to 1 both ways)."""
    cosine, sine = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))

    def local(x, y):
        return (x - cx) * cosine + (y - cy) * sine, (y - cy) * cosine - (x - cx) * sine

    def distance(x, y):
        u, v = local(x, y)
        du, dv = abs(u) - width / 2 + radius, abs(v) - height / 2 + radius
        return math.hypot(max(du, 0), max(dv, 0)) + min(max(du, dv), 0) - radius

    def place(x, y):
        u, v = local(x, y)
        return u / width + 0.5, v / height + 0.5

    return distance, place


def landscape(place, stops, sun, hills):
    """A sky, a sun (u, v, radius, colour) and rows of hills (function of u, colour), as a paint."""

    def paint(x, y):
        u, v = place(x, y)
        result = gradient(stops, v / 0.75)
        away = math.hypot((u - sun[0]) * 1.45, v - sun[1])
        result = mix(result, sun[3], 0.55 * (1 - away / (sun[2] * 2.6)))
        result = mix(result, sun[3], (sun[2] - away) / 0.03 + 0.5)
        for height, shade in hills:
            result = mix(result, shade, (v - height(u)) / 0.02 + 0.5)
        return result

    return paint


def sunset(place):
    return landscape(place, SUNSET, (0.62, 0.50, 0.17, colour("fff3c4")), [
        (lambda u: 0.60 - 0.10 * math.sin(3.4 * u + 0.2) + 0.02 * math.sin(11 * u), colour("a23e78")),
        (lambda u: 0.72 + 0.09 * math.sin(4.2 * u + 1.9) + 0.015 * math.sin(13 * u), colour("5b2a68")),
        (lambda u: 0.86 - 0.08 * math.sin(3.1 * u + 0.9), colour("2a1a47"))])


def noon(place):
    return landscape(place, NOON, (0.2, 0.25, 0.1, colour("fff8d0")), [
        (lambda u: 0.62 + 0.1 * math.sin(5 * u), colour("3d9a6a")),
        (lambda u: 0.8 + 0.06 * math.sin(4 * u + 2), colour("1f6b4d"))])


def photo(canvas, cx, cy, width, height, degrees, border, paint):
    small = canvas.size < 32
    outer, _ = box(cx, cy, width, height, 0.0 if small else 0.025, degrees)
    inner, place = box(cx, cy, width - 2 * border, height - 2 * border, 0.0, degrees)
    if not small:
        shadow, _ = box(cx + 0.008, cy + 0.028, width, height, 0.03, degrees)
        canvas.paint(shadow, lambda x, y: (0.0, 0.0, 0.05), 0.42, 0.07)
    rim, _ = box(cx, cy, width + 0.012, height + 0.012, 0.0 if small else 0.03, degrees)
    canvas.paint(rim, lambda x, y: colour("5c6070"), 0.85 if small else 0.55)
    canvas.paint(outer, lambda x, y: mix(WHITE, colour("e6e8ee"), y))
    canvas.paint(inner, paint(place))


def icon(size):
    canvas = Canvas(size)
    pixel = 1.0 / size
    if size < 32:
        # On the pixel grid and upright: a turned frame of one pixel's width would be grey all over.
        def upright(left, top, right, bottom, paint):
            left, top, right, bottom = (round(edge * size / 16) * pixel for edge in (left, top, right, bottom))
            photo(canvas, (left + right) / 2, (top + bottom) / 2, right - left, bottom - top, 0, pixel, paint)
        upright(3.5, 1, 15.5, 11, noon)
        upright(0.5, 4, 13.5, 15, sunset)
        return canvas
    photo(canvas, 0.56, 0.37, 0.70, 0.52, 9.0, 0.035, noon)
    photo(canvas, 0.46, 0.58, 0.82, 0.62, -5.0, max(0.04, pixel * 1.6), sunset)
    return canvas


def pointer(size):
    """A slim arrow with its tip at the upper left corner's pixel."""
    canvas = Canvas(size)
    tip = 1.5 / 32
    outline = [(0.0, 0.0), (0.0, 0.60), (0.135, 0.475), (0.225, 0.685), (0.315, 0.645), (0.225, 0.44), (0.41, 0.425)]
    corners = [(tip + x, tip + y) for x, y in outline]

    def distance(x, y):
        nearest = math.inf
        inside = False
        for (ax, ay), (bx, by) in zip(corners, corners[1:] + corners[:1]):
            ex, ey = bx - ax, by - ay
            t = min(1.0, max(0.0, ((x - ax) * ex + (y - ay) * ey) / (ex * ex + ey * ey)))
            nearest = min(nearest, math.hypot(x - ax - t * ex, y - ay - t * ey))
            if (ay > y) != (by > y) and x < ax + (y - ay) / (by - ay) * ex:
                inside = not inside
        return -nearest if inside else nearest

    canvas.paint(lambda x, y: distance(x - 0.02, y - 0.035) - 0.02, lambda x, y: (0, 0, 0), 0.30, 0.07)
    canvas.paint(lambda x, y: distance(x, y) - 0.036, lambda x, y: colour("26203f"))
    canvas.paint(distance, lambda x, y: mix(WHITE, colour("ffd9a0"), y / 0.7))
    return canvas


def png(rows, width):
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    header = struct.pack(">IIBBBBB", width, len(rows), 8, 6, 0, 0, 0)
    body = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", body) + chunk(b"IEND", b"")


def bitmap(canvas):
    """A 32-bit device-independent bitmap with the empty mask that icons carry."""
    size = canvas.size
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    mask = bytes((size + 31) // 32 * 4 * size)
    return header + b"".join(reversed(canvas.bytes("bgra"))) + mask


def container(kind, images):
    """An icon (kind 1) or pointer (kind 2) file; images are (size, word, word, data)."""
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, kind, len(images))
    for size, first, second, data in images:
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, first, second, len(data), offset)
        offset += len(data)
    return directory + b"".join(data for *_, data in images)


def sheet(canvases):
    """All pictures side by side on light and on dark ground."""
    width = sum(c.size + 16 for c in canvases)
    height = max(c.size for c in canvases) + 16
    rows = []
    for ground in (colour("f0f0f0"), colour("202028")):
        lines = [[ground] * width for _ in range(height)]
        left = 8
        for canvas in canvases:
            for y, line in enumerate(canvas.pixels):
                for x, pixel in enumerate(line):
                    lines[y + 8][left + x] = tuple(p + g * (1 - pixel[3]) for p, g in zip(pixel, ground))
            left += canvas.size + 16
        rows += [b"".join(bytes([*(round(255 * min(1.0, c)) for c in p), 255]) for p in line) for line in lines]
    return png(rows, width)


def main():
    icons = [icon(size) for size in ICON_SIZES]
    pointers = [pointer(size) for size in POINTER_SIZES]
    images = [(c.size, 1, 32, png(c.bytes("rgba"), c.size) if c.size == 256 else bitmap(c)) for c in icons]
    (APP / "panorell.ico").write_bytes(container(1, images))
    # In a pointer file the two words are the hot spot.
    images = [(c.size, round(c.size * 1.5 / 32), round(c.size * 1.5 / 32), bitmap(c)) for c in pointers]
    (APP / "pointer.cur").write_bytes(container(2, images))
    if len(sys.argv) == 3 and sys.argv[1] == "--preview":
        pathlib.Path(sys.argv[2]).write_bytes(sheet(icons + pointers))


if __name__ == "__main__":
    main()
