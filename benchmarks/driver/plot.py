"""The growth as a picture: a panel for each subject, both axes logarithmic, as SVG."""
import math
from xml.sax.saxutils import escape

import growth

WIDTH, HEIGHT = 300, 220      # of a panel
LEFT, RIGHT, TOP, BOTTOM = 52, 18, 30, 30
COLUMNS = 3
STYLE = """<style>text{font:11px sans-serif;fill:#333}.title{font-size:12px;font-weight:bold}
.grid{stroke:#ddd}.even{stroke:#999;stroke-dasharray:4 3}.time{stroke:#0a62c4;fill:none;stroke-width:1.5}
circle{fill:#0a62c4}</style>"""


def time_text(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:g} {unit}"
    return f"{nanoseconds:g} ns"


def size_text(size):
    for letter, unit in (("M", 1e6), ("k", 1e3)):
        if size >= unit:
            return f"{size / unit:g}{letter}"
    return f"{size:g}"


def decades(low, high):
    return [10.0 ** power for power in range(math.floor(math.log10(low)), math.ceil(math.log10(high)) + 1)]


def panel(name, points, left, top):
    across = decades(points[0][0], points[-1][0])
    up = decades(min(time for _, time in points), max(time for _, time in points))

    def x(size):
        part = math.log10(size / across[0]) / math.log10(across[-1] / across[0])
        return left + LEFT + part * (WIDTH - LEFT - RIGHT)

    def y(time):
        part = math.log10(time / up[0]) / math.log10(up[-1] / up[0])
        return top + HEIGHT - BOTTOM - part * (HEIGHT - TOP - BOTTOM)

    yield f'<text class="title" x="{left + LEFT}" y="{top + 18}">{escape(growth.SUBJECTS[name])}</text>'
    for size in across:
        yield f'<path class="grid" d="M{x(size):.1f} {y(up[0]):.1f}V{y(up[-1]):.1f}"/>'
        yield f'<text x="{x(size):.1f}" y="{top + HEIGHT - 14}" text-anchor="middle">{size_text(size)}</text>'
    for time in up:
        yield f'<path class="grid" d="M{x(across[0]):.1f} {y(time):.1f}H{x(across[-1]):.1f}"/>'
        yield f'<text x="{left + LEFT - 5}" y="{y(time) + 4:.1f}" text-anchor="end">{time_text(time)}</text>'
    # Beside the largest: what twice the time for twice the size would be.
    size, time = points[-1]
    start = max(across[0], size * up[0] / time)
    yield (f'<path class="even" d="M{x(start):.1f} {y(time * start / size):.1f}'
           f'L{x(size):.1f} {y(time):.1f}"/>')
    yield '<path class="time" d="M' + "L".join(f"{x(size):.1f} {y(time):.1f}" for size, time in points) + '"/>'
    for size, time in points:
        yield f'<circle cx="{x(size):.1f}" cy="{y(time):.1f}" r="2"/>'


def svg(measured):
    """Of {name: what growth.measure gives}."""
    rows = math.ceil(len(measured) / COLUMNS)
    width, height = COLUMNS * WIDTH, rows * HEIGHT
    yield f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}">'
    yield STYLE
    yield f'<rect width="{width}" height="{height}" fill="#fff"/>'
    for index, (name, samples) in enumerate(measured.items()):
        yield from panel(name, growth.points(samples), index % COLUMNS * WIDTH, index // COLUMNS * HEIGHT)
    yield "</svg>"
