"""The text form of drive's answers: short enough to read, and exact.

An answer is JSON on one line, or on several if it is wider than WIDTH. One with a page is on one
line: the place of rows holds "[14 rows]", and below it stand, one a line, those rows that differ
from the page's last answer in the same conversation:

    > {"do":"set","row":"vibrate","value":true}
    {"ok": true, "page": {"class": "…", "title": "", "barButton": false, "rows": [14 rows]}}
      3 {"id": "vibrate", "label": "Vibrate", "cell": "PSSwitchCell", "value": true,
         "control": {"kind": "switch", "value": true}}

The number is the row's index; "2.3" is row 3 of section 2 of a table page. A row that isn't
printed is as it was when a page of that class and title was last answered; a row whose index the
page didn't have is new, and compared with "{}". A member that has its default, in the tables
below, is left out of a row and of its control. A row that has not just the members of its table in
their order is printed in full after the word "exactly".

So the answers can be computed from the text: tests/conventions/test_golden_text.py does.
"""
import json
from functools import partial

WIDTH = 160

# The members of each shape, in order, with the text of their default; None: always printed.
ROW = {"id": None, "label": None, "cell": None, "cellClass": "null", "built": "true",
       "value": "null"}
BUILT_ROW = ROW | {"interaction": "true", "enabled": "true", "alpha": "1.0", "control": "null"}
COLOR_ROW = BUILT_ROW | {
    "swatch": None, "valueLabel": '{"hidden": true, "text": null, "frame": [216.0, 6.0, 100.0, 32.0]}'}
TABLE_ROW = {"built": "false", "height": "44.0"}
BUILT_TABLE_ROW = TABLE_ROW | {"title": None, "detail": "null", "image": "null", "border": "0.0",
                               "checkmark": "false", "tag": "0", "sliders": "null"}

BACKGROUND = {"background": "null", "cornerRadius": "null"}
THEME_COLOR = '{"hex": "#34495E", "alpha": 1.0}'
CONTROLS = {
    '"switch"': {"kind": None, "value": None, "tint": THEME_COLOR, "onTint": THEME_COLOR} | BACKGROUND,
    '"slider"': {"kind": None, "value": None, "min": None, "max": None, "tint": "null"} | BACKGROUND,
    '"segment"': {"kind": None, "value": None, "tint": "null"} | BACKGROUND,
    '"text"': {"kind": None, "value": None, "tint": "null"} | BACKGROUND,
}


class Number(str):
    """A number as it was written, so that 50.0 and 50 stay apart."""


class RowCount(int):
    """Stands in an answer for that many rows."""


def refuse(name):
    raise ValueError(f"{name} is not JSON")


def parse(text):
    """A JSON document; an object is a tuple of pairs, so that order and repeated keys show."""
    return json.loads(text, parse_int=Number, parse_float=Number, parse_constant=refuse,
                      object_pairs_hook=tuple)


def members(value):
    """The brackets of an array or object and its (prefix, value) members, or None for a scalar."""
    if isinstance(value, tuple):
        return "{", "}", [(json.dumps(key, ensure_ascii=False) + ": ", item) for key, item in value]
    if isinstance(value, list):
        return "[", "]", [("", item) for item in value]
    return None


def compact(value):
    parts = members(value)
    if parts:
        opening, closing, items = parts
        return opening + ", ".join(prefix + compact(item) for prefix, item in items) + closing
    if isinstance(value, RowCount):
        return f"[{value} rows]"
    return str(value) if isinstance(value, Number) else json.dumps(value, ensure_ascii=False)


def filled(items, indent):
    """As many on a line as fit."""
    lines = []
    for number, item in enumerate(items, 1):
        text = compact(item) + ("," if number < len(items) else "")
        if lines and len(lines[-1]) + 1 + len(text) <= WIDTH:
            lines[-1] += " " + text
        else:
            lines.append(" " * indent + text)
    return lines


def layout(value, indent=0, prefix=""):
    """On one line if it fits, else one member a line; of an array of scalars what fits."""
    line = " " * indent + prefix + compact(value)
    parts = members(value)
    if len(line) <= WIDTH or not parts or not parts[2]:
        return [line]
    opening, closing, items = parts
    lines = [" " * indent + prefix + opening]
    if isinstance(value, list) and not any(map(members, value)):
        return lines + filled(value, indent + 2) + [" " * indent + closing]
    for number, (name, item) in enumerate(items, 1):
        lines += layout(item, indent + 2, name)
        lines[-1] += "," if number < len(items) else ""
    return lines + [" " * indent + closing]


def row_shape(row):
    """The table of a row, whether its defaults are left out or not."""
    row = dict(row)
    if "id" not in row:
        return BUILT_TABLE_ROW if row.get("built") is True else TABLE_ROW
    if "swatch" in row:
        return COLOR_ROW
    return ROW if row.get("built") is False else BUILT_ROW


def control_shape(control):
    return CONTROLS.get(compact(dict(control).get("kind")), {})


def without_defaults(item, shape):
    """The object without the members that have their default; None if it isn't of that shape."""
    if not isinstance(item, tuple) or [key for key, value in item] != list(shape):
        return None
    return tuple((key, value) for key, value in item if compact(value) != shape[key])


def row_text(row):
    if not isinstance(row, tuple):
        return "exactly " + compact(row)
    short = without_defaults(row, row_shape(row))
    if short and isinstance(dict(short).get("control"), tuple):
        control = without_defaults(dict(short)["control"], control_shape(dict(short)["control"]))
        short = None if control is None else tuple(
            (key, control if key == "control" else value) for key, value in short)
    return "exactly " + compact(row) if short is None else compact(short)


def replaced(item, change):
    """The object with the lists changed that its members name; as it is if a name is repeated."""
    if not isinstance(item, tuple) or len(dict(item)) < len(item):
        return item
    return tuple((key, change[key](value) if key in change and isinstance(value, list) else value)
                 for key, value in item)


class Conversation:
    """Lays out the answers of one conversation, in their order."""

    def __init__(self):
        self.last = {}  # by class and title of the page: the rows' texts by index

    def lines(self, answer):
        rows = {}

        def take_rows(items, prefix=""):
            rows.update((f"{prefix}{index}", row_text(row)) for index, row in enumerate(items))
            return RowCount(len(items))

        def take_sections(sections):
            return [replaced(section, {"rows": partial(take_rows, prefix=f"{number}.")})
                    for number, section in enumerate(sections)]

        page = dict(answer).get("page") if isinstance(answer, tuple) else None
        if not isinstance(page, tuple) or len(dict(answer)) < len(answer):
            return layout(answer)
        head = replaced(page, {"rows": take_rows, "sections": take_sections})
        name = compact([dict(page).get("class"), dict(page).get("title")])
        last = self.last.get(name, {})
        self.last[name] = rows
        answer = tuple((key, head if key == "page" else value) for key, value in answer)
        return [compact(answer)] + [
            f"  {index} {text}" for index, text in rows.items() if text != last.get(index, "{}")]
