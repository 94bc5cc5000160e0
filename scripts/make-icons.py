#!/usr/bin/env python3
"""Draws the tool's button icons (32x32 PNG, transparent background) into
Resources/Icon. Plain Python, no imaging library: each icon is a set of
filled polygons, rasterised with 4x4 supersampling."""
import os
import struct
import zlib

SIZE = 32
SS = 4  # samples per pixel along each axis


def inside(poly, x, y):
    hit = False
    n = len(poly)
    for i in range(n):
        x1, y1 = poly[i]
        x2, y2 = poly[(i + 1) % n]
        if (y1 > y) != (y2 > y) and x < (x2 - x1) * (y - y1) / (y2 - y1) + x1:
            hit = not hit
    return hit


def render(shapes):
    """shapes: list of (rgb, polygon); later shapes paint over earlier ones."""
    rows = []
    for py in range(SIZE):
        row = bytearray([0])  # filter type 0
        for px in range(SIZE):
            acc = [0.0, 0.0, 0.0, 0.0]
            for sy in range(SS):
                for sx in range(SS):
                    x = px + (sx + 0.5) / SS
                    y = py + (sy + 0.5) / SS
                    colour = None
                    for rgb, poly in shapes:
                        if inside(poly, x, y):
                            colour = rgb
                    if colour:
                        acc[0] += colour[0]
                        acc[1] += colour[1]
                        acc[2] += colour[2]
                        acc[3] += 255
            samples = SS * SS
            alpha = acc[3] / samples
            if alpha:
                row += bytes(int(c / (acc[3] / 255)) for c in acc[:3]) + bytes([int(alpha)])
            else:
                row += bytes(4)
        rows.append(bytes(row))
    return b"".join(rows)


def png(pixels):
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(pixels, 9)) +
            chunk(b"IEND", b""))


def rect(x0, y0, x1, y1):
    return [(x0, y0), (x1, y0), (x1, y1), (x0, y1)]


GREEN, RED, BLUE, ORANGE, GREY = (46, 160, 67), (207, 34, 46), (31, 111, 199), (219, 124, 22), (90, 90, 90)
WHITE = (255, 255, 255)


def arc(cx, cy, outer, inner, start, end, steps=24):
    """A ring from angle `start` to `end` (degrees, counter-clockwise, y up)."""
    import math
    points = []
    for radius, angles in ((outer, range(steps + 1)), (inner, range(steps, -1, -1))):
        for i in angles:
            a = math.radians(start + (end - start) * i / steps)
            points.append((cx + radius * math.cos(a), cy - radius * math.sin(a)))
    return points


def page(x0, x1):
    """A sheet of paper: a grey frame around white."""
    return [(GREY, rect(x0, 4, x1, 28)), (WHITE, rect(x0 + 2, 6, x1 - 2, 26)),
            (GREY, rect(x0 + 4, 10, x1 - 4, 11)), (GREY, rect(x0 + 4, 21, x1 - 4, 22))]


ICONS = {
    "start": [(GREEN, [(9, 5), (27, 16), (9, 27)])],
    "stop": [(RED, rect(7, 7, 25, 25))],
    # an arrow down into a tray: data comes from the target
    "read": [(GREY, rect(5, 24, 27, 28)), (GREY, rect(5, 18, 8, 28)), (GREY, rect(24, 18, 27, 28)),
             (BLUE, rect(13, 3, 19, 13)), (BLUE, [(8, 12), (24, 12), (16, 21)])],
    # an arrow up out of a tray: data goes to the target
    "write": [(GREY, rect(5, 24, 27, 28)), (GREY, rect(5, 18, 8, 28)), (GREY, rect(24, 18, 27, 28)),
              (ORANGE, rect(13, 11, 19, 21)), (ORANGE, [(8, 12), (24, 12), (16, 3)])],
    # a turning arrow: back to the start
    "Reset": [(BLUE, arc(16, 17, 11, 7, 60, 330)), (BLUE, [(20, 2), (29, 11), (18, 13)])],
    # a thermometer: a measure of the temperature
    "fetch": [(GREY, rect(12, 2, 20, 22)), (WHITE, rect(14, 4, 18, 21)), (GREY, arc(16, 24, 7, 0, 0, 360, 32)),
              (RED, arc(16, 24, 5, 0, 0, 360, 32)), (RED, rect(15, 10, 17, 23))],
    # an arrow into a file: data comes from a file
    "import": page(13, 29) + [(BLUE, rect(2, 13, 14, 19)), (BLUE, [(12, 8), (21, 16), (12, 24)])],
    # an arrow out of a file: data goes to a file
    "export": page(3, 19) + [(ORANGE, rect(15, 13, 24, 19)), (ORANGE, [(22, 8), (31, 16), (22, 24)])],
}

if __name__ == "__main__":
    out = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "Resources", "Icon")
    os.makedirs(out, exist_ok=True)
    for name, shapes in ICONS.items():
        with open(os.path.join(out, name + ".png"), "wb") as f:
            f.write(png(render(shapes)))
