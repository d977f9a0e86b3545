"""The table, for a terminal and for docs/performance.md."""
from lines import value

HEAD = ["what", "ours", "peers", "floor", "÷ best peer", "÷ floor", "spread"]
UNSTEADY = 0.10


def ratio(line, name):
    return f"{line.ratio(name):.2f}" if name in line.samples else ""


def cells(line):
    peers = ", ".join(f"{name} {value(line.median(name), line.unit)}" for name in line.peers())
    floor = f"{line.floor} {value(line.median(line.floor), line.unit)}" if line.floor in line.samples else ""
    spread = line.spread()
    return [line.title, value(line.median(), line.unit), peers, floor, ratio(line, line.best_peer()),
            ratio(line, line.floor), f"{spread:.0%}" + (" !" if spread > UNSTEADY else "")]


def text(lines):
    """Peers below one another, so that the table stays as narrow as it can be."""
    rows = [[cell.split(", ") if column == 2 else [cell] for column, cell in enumerate(cells(line))]
            for line in lines]
    rows.insert(0, [[name] for name in HEAD])
    widths = [max(len(part) for row in rows for part in row[column]) for column in range(len(HEAD))]
    for row in rows:
        for at in range(max(map(len, row))):
            parts = [cell[at] if at < len(cell) else "" for cell in row]
            yield "  ".join(part.ljust(width) for part, width in zip(parts, widths)).rstrip()


def markdown(lines):
    yield "| " + " | ".join(HEAD) + " |"
    yield "|---" * len(HEAD) + "|"
    for line in lines:
        yield "| " + " | ".join(cells(line)) + " |"
