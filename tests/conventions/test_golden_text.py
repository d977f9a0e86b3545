#!/usr/bin/env python3
"""The text of golden conversations, shown to be exact: the answers are computed back from it."""
import re
import sys
import unittest
from pathlib import Path

DRIVE = Path(__file__).parents[1] / "drive"
sys.path.append(str(DRIVE))

import golden_text  # noqa: E402
from golden_text import Conversation, compact, parse  # noqa: E402


def filled_in(item, shape):
    """The object with the members that were left out."""
    given = dict(item)
    return tuple((key, given[key] if key in given else parse(default))
                 for key, default in shape.items())


def row_of(text):
    if text.startswith("exactly "):
        return parse(text.removeprefix("exactly "))
    row = parse(text)
    row = filled_in(row, golden_text.row_shape(row))
    return tuple((key, filled_in(value, golden_text.control_shape(value))
                  if key == "control" and isinstance(value, tuple) else value) for key, value in row)


def answers_in(lines):
    """The answers of a conversation, computed from nothing but the lines of their text."""
    last, answers, lines = {}, [], list(lines)
    while lines:
        text = lines.pop(0)
        while True:
            try:
                answer = parse(re.sub(r"\[(\d+) rows\]", r'{"row count": \1}', text))
                break
            except ValueError:
                text += "\n" + lines.pop(0)
        printed = {}
        while lines and lines[0].startswith("  "):
            index, row = lines.pop(0).strip().split(" ", 1)
            printed[index] = row
        if "page" in dict(answer):
            page = dict(dict(answer)["page"])
            name = (page["class"], page["title"])
            now = {index: printed.get(index, last.get(name, {}).get(index, "{}"))
                   for index in indices(page)}
            assert printed.keys() <= now.keys()
            last[name] = now
            answer = with_rows(answer, "", now)
        answers.append(answer)
    return answers


def count_of(value):
    return int(value[0][1]) if isinstance(value, tuple) and value and value[0][0] == "row count" else None


def indices(page):
    yield from map(str, range(count_of(page.get("rows")) or 0))
    for number, section in enumerate(page.get("sections", [])):
        yield from (f"{number}.{row}" for row in range(count_of(dict(section)["rows"])))


def with_rows(value, prefix, rows):
    if count_of(value) is not None:
        return [row_of(rows[f"{prefix}{index}"]) for index in range(count_of(value))]
    if isinstance(value, tuple):
        return tuple((key, [with_rows(section, f"{number}.", rows) for number, section in enumerate(item)]
                      if key == "sections" else with_rows(item, prefix, rows)) for key, item in value)
    return value


def places(value, path=()):
    """The path to every member of a value, however deep."""
    if isinstance(value, (tuple, list)):
        for index, item in enumerate(value):
            yield path + (index,)
            yield from places(item[1] if isinstance(value, tuple) else item, path + (index,))


def changed(value, path, change):
    """The value with change applied to the list of members around the place, and its index."""
    items, (index, *rest) = list(value), path
    if not rest:
        change(items, index)
    elif isinstance(value, tuple):
        items[index] = (items[index][0], changed(items[index][1], rest, change))
    else:
        items[index] = changed(items[index], rest, change)
    return type(value)(items)


def put(value):
    def change(items, index):
        items[index] = (items[index][0], value) if isinstance(items[index], tuple) and len(
            items[index]) == 2 and isinstance(items[index][0], str) else value
    return change


def leave_out(items, index):
    del items[index]


def repeat(items, index):
    items.insert(index, items[index])


def to_the_end(items, index):
    items.append(items.pop(index))


ROW = ('{"id": "a", "label": "A", "cell": "PSSwitchCell", "cellClass": null, "built": true, '
       '"value": null, "interaction": true, "enabled": true, "alpha": 1.0, "control": %s}')
COLOR_ROW = ROW[:-1] % "null" + (
    ', "swatch": {"hidden": true, "hex": null, "frame": [292.0, 10.0, 24.0, 24.0], "borderWidth": 0.0}'
    ', "valueLabel": {"hidden": true, "text": null, "frame": [216.0, 6.0, 100.0, 32.0]}}')
UNBUILT_ROW = '{"id": "b", "label": "B", "cell": "PSLinkCell", "cellClass": null, "built": false, "value": null}'
THEME = '{"hex": "#34495E", "alpha": 1.0}'
BACKGROUND = '"background": null, "cornerRadius": null}'
CONTROLS = [
    "null",
    f'{{"kind": "switch", "value": true, "tint": {THEME}, "onTint": {THEME}, {BACKGROUND}',
    f'{{"kind": "slider", "value": 1.0, "min": 0.0, "max": 2.0, "tint": null, {BACKGROUND}',
    f'{{"kind": "segment", "value": 0, "tint": null, {BACKGROUND}',
    f'{{"kind": "text", "value": "", "tint": null, {BACKGROUND}',
]
ROWS = [ROW % control for control in CONTROLS] + [COLOR_ROW, UNBUILT_ROW]
ROW_PAGE = '{"ok": true, "page": {"class": "C", "title": "T", "barButton": false, "rows": [%s]}}'
PAGE = ROW_PAGE % ", ".join(ROWS)
BUILT_TABLE_ROW = (
    '{"built": true, "height": 44.0, "title": "t", "detail": null, "image": null, "border": 0.0, '
    '"checkmark": false, "tag": 0, "sliders": null}')
TABLE = ('{"ok": true, "page": {"class": "P", "title": "", "sections": ['
         f'{{"title": "a", "rows": [{BUILT_TABLE_ROW}, {{"built": false, "height": 44.0}}]}}, '
         f'{{"title": "b", "rows": [{BUILT_TABLE_ROW}, {{"built": false, "height": 130.0}}]}}]}}}}')
# What a member may be instead; each differs from the member in at least one.
OTHERS = [parse(text) for text in ("null", "true", "false", "0", "1.0", "1", '"x"', "[]", "{}",
                                   '["x"]', '{"x": null}')]
CHANGES = [put(other) for other in OTHERS] + [leave_out, repeat, to_the_end]


def text_of(*answers):
    conversation = Conversation()
    return [line for answer in answers for line in conversation.lines(answer)]


class GoldenText(unittest.TestCase):
    def assert_exact(self, *answers):
        self.assertEqual(answers_in(text_of(*answers)), list(answers))

    def assert_each_change_shows(self, answer):
        """Changes each member to each other value, removes, repeats and moves it."""
        answer = parse(answer)
        before, tried = text_of(answer), 0
        for path in places(answer):
            for change in CHANGES:
                other = changed(answer, path, change)
                if compact(other) == compact(answer):
                    continue
                tried += 1
                self.assertNotEqual(text_of(other), before, path)
                self.assertNotEqual(text_of(answer, other)[len(before):],
                                    text_of(answer, answer)[len(before):], path)
                self.assertNotEqual(text_of(other, answer), text_of(answer, answer), path)
        self.assertGreater(tried, 100)

    def test_a_change_of_any_member_of_a_page_shows(self):
        for row in ROWS:
            self.assert_each_change_shows(ROW_PAGE % row)

    def test_a_change_of_any_member_of_a_table_page_shows(self):
        self.assert_each_change_shows(TABLE)

    def test_answers_are_computed_from_their_text(self):
        page, table = parse(PAGE), parse(TABLE)
        self.assert_exact(page, table, parse('{"ok": true}'), page, table)

    def test_any_row_of_known_names_is_computed_from_its_text(self):
        for row in ROWS:
            answer = parse(ROW_PAGE % row)
            for path in places(parse(row)):
                for change in CHANGES:
                    self.assert_exact(answer, changed(answer, (1, 3, 0) + path, change), answer)

    def test_rows_that_come_and_go_are_computed_from_their_text(self):
        answer = parse(PAGE)
        fewer = changed(answer, (1, 3, 2), leave_out)
        self.assert_exact(answer, fewer, answer, changed(answer, (1, 3, 0), repeat), fewer)

    def test_the_golden_files_hold_all_that_was_answered(self):
        for golden in DRIVE.glob("*.golden"):
            lines = [line for line in golden.read_text(encoding="utf-8").split("\n")[:-1]
                     if not line.startswith(("> ", "! "))]
            with self.subTest(golden.name):
                self.assertEqual(text_of(*answers_in(lines)), lines)

    def test_an_unchanged_row_is_not_repeated(self):
        answer = parse(PAGE)
        self.assertEqual(len(text_of(answer, answer)), len(text_of(answer)) + 1)

    def test_a_page_of_another_title_is_printed_anew(self):
        answer = parse(PAGE)
        other = changed(answer, (1, 1), put("U"))
        self.assertEqual(len(text_of(answer, other)), 2 * len(text_of(answer)))

    def test_an_unknown_member_is_printed_exactly(self):
        row = ROW % "null"
        more = parse(PAGE.replace(row, row[:-1] + ', "more": 1}'))
        self.assertIn(f'  0 exactly {row[:-1]}, "more": 1}}', text_of(more))
        self.assert_exact(more)


if __name__ == "__main__":
    unittest.main()
