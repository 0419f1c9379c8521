"""Draws the zone of each layout from the columns that the parsers use: draw.py [--check]

Writes the pictures between the marks of docs/layouts.md and the files docs/layouts/LAYOUT.svg; with --check,
writes nothing and fails where a picture is not what would be drawn.
"""

import html
import os
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
PAGE = HERE.parent / "layouts.md"

# The specimens that ICAO publishes, and the columns of the document code that the layout looks at.
LAYOUTS = {
    "td3": (["P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<",
             "L898902C36UTO7408122F1204159ZE184226B<<<<<10"], 1),
    "td2": (["I<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<",
             "D231458907UTO7408122F1204159<<<<<<<6"], 2),
    "td1": (["I<UTOD231458907<<<<<<<<<<<<<<<",
             "7408122F1204159UTO<<<<<<<<<<<6",
             "ERIKSSON<<ANNA<MARIA<<<<<<<<<<"], 2),
    "mrv-a": (["V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<",
               "L8988901C4XXX4009078F96121096ZE184226B<<<<<<"], 1),
    "mrv-b": (["V<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<",
               "L8988901C4XXX4009078F9612109<<<<<<<<"], 1),
}

# Value: mark in the picture, what it is called there, colour, and the slots that it fills.
VALUES = {
    "code": ("c", "document code, only looked at", "#bbbbbb", ""),
    "countryCode": ("s", "countryCode", "#f4a582", "FIELD_COUNTRY_CODE"),
    "names": ("n", "lastName, firstName, middleName", "#a6d96a",
              "FIELD_FAMILY_NAME, FIELD_FIRST_NAME, FIELD_MIDDLE_NAME"),
    "licenseNumber": ("d", "licenseNumber", "#92c5de", "FIELD_DOCUMENT_NUMBER"),
    "nationality": ("t", "nationality", "#fdb863", "FIELD_NATIONALITY"),
    "birthDate": ("b", "birthDate", "#d7b5d8", "FIELD_BIRTH_DATE"),
    "gender": ("g", "gender", "#ffff99", "FIELD_SEX"),
    "expirationDate": ("e", "expirationDate", "#b2abd2", "FIELD_EXPIRATION_DATE"),
    "personalNumber": ("p", "in its slot only", "#c7eae5", "FIELD_PERSONAL_NUMBER"),
}
UNREAD = "."


def columns():
    """Layout: its rows (line, start, length, value), as the parsers' own table has them."""
    with tempfile.TemporaryDirectory() as folder:
        program = os.path.join(folder, "columns")
        compiler = os.environ.get("CXX", "c++")
        subprocess.run([compiler, "-std=c++17", HERE / "columns.cpp", "-o", program], check=True)
        printed = subprocess.run([program], check=True, capture_output=True, text=True).stdout
    layouts = {}
    for line in printed.splitlines():
        layout, *rest = line.split()
        if rest[0] == "lines":
            zone, looked_at = LAYOUTS[layout]
            if [len(text) for text in zone] != [int(rest[2])] * int(rest[1]):
                sys.exit(f"the specimen of {layout} is not {rest[1]} lines of {rest[2]}")
            layouts[layout] = [(1, 0, looked_at, "code")]
        else:
            layouts[layout].append((int(rest[0]), int(rest[1]), int(rest[2]), rest[3]))
    if sorted(layouts) != sorted(LAYOUTS):
        sys.exit(f"columns of {sorted(layouts)}, but pictures of {sorted(LAYOUTS)}")
    return layouts


def owners(layout, rows):
    """For each line, the value that each column belongs to, or None."""
    lines = [[None] * len(text) for text in LAYOUTS[layout][0]]
    for line, start, length, value in rows:
        for column in range(start, start + length):
            if lines[line - 1][column] is not None:
                sys.exit(f"{layout}: column {column} of line {line} belongs to two values")
            lines[line - 1][column] = value
    return lines


def picture(layout, rows):
    zone = LAYOUTS[layout][0]
    width = len(zone[0])
    tens = "".join(str(column // 10) if column % 10 == 0 else " " for column in range(width)).rstrip()
    text = [f"        {tens}", "        " + "".join(str(column % 10) for column in range(width))]
    for number, (line, values) in enumerate(zip(zone, owners(layout, rows)), 1):
        marks = "".join(VALUES[value][0] if value else UNREAD for value in values)
        text += [f"line {number}  {line}", f"        {marks}"]
    table = ["", "| Mark | Line | Columns | Value | Slot |", "|---|---|---|---|---|"]
    for line, start, length, value in rows:
        mark, name, _, slots = VALUES[value]
        span = str(start) if length == 1 else f"{start} to {start + length - 1}"
        shown = ", ".join(f"`{slot}`" for slot in slots.split(", ")) if slots else ""
        table.append(f"| {mark} | {line} | {span} | {name} | {shown} |")
    return "\n".join(["```text", *text, "```", *table]) + "\n"


def drawing(layout, rows):
    zone = LAYOUTS[layout][0]
    cell, height, gap, left, top = 18, 26, 40, 10, 24
    width = left * 2 + cell * len(zone[0])
    pieces = []
    for number, (line, values) in enumerate(zip(zone, owners(layout, rows))):
        y = top + number * (height + gap)
        for column, (character, value) in enumerate(zip(line, values)):
            x = left + column * cell
            colour = VALUES[value][2] if value else "#f7f7f7"
            pieces.append(f'<rect x="{x}" y="{y}" width="{cell}" height="{height}" fill="{colour}" '
                          f'stroke="#fff"/>'
                          f'<text x="{x + cell // 2}" y="{y + 18}" font-size="15" text-anchor="middle">'
                          f"{html.escape(character)}</text>")
            if number == 0 and column % 5 == 0:
                pieces.append(f'<text x="{x + cell // 2}" y="{y - 6}" font-size="9" fill="#666" '
                              f'text-anchor="middle">{column}</text>')
        for row_line, start, length, value in rows:
            if row_line == number + 1:
                name = {"code": "code", "names": "lastName, firstName, middleName",
                        "personalNumber": "FIELD_PERSONAL_NUMBER"}.get(value, value)
                # A label wider than its columns is drawn below the others, at the end of a line from them.
                lower = 10 if len(name) * 5.2 > length * cell and value in ("gender", "code") else 0
                middle = left + (start * 2 + length) * cell // 2
                if lower:
                    pieces.append(f'<path d="M{middle} {y + height}v{lower + 1}" stroke="#999"/>')
                pieces.append(f'<text x="{middle}" y="{y + height + 10 + lower}" font-size="8.5" '
                              f'fill="#333" text-anchor="middle">{name}</text>')
    y = top + len(zone) * (height + gap) - 8
    pieces.append(f'<rect x="{left}" y="{y}" width="{cell}" height="12" fill="#f7f7f7" stroke="#bbb"/>'
                  f'<text x="{left + cell + 6}" y="{y + 10}" font-size="10" fill="#333">not read</text>')
    total = y + 20
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {total}" width="{width}" '
            f'font-family="monospace"><title>Columns of {layout.upper()}</title>'
            f'<rect width="{width}" height="{total}" fill="#ffffff"/>\n' + "\n".join(pieces) + "\n</svg>\n")


def main(check):
    page = old_page = PAGE.read_text()
    written = {}
    for layout, rows in columns().items():
        begin, end = f"<!-- picture: {layout} -->\n", "<!-- end -->"
        if page.count(begin) != 1:
            sys.exit(f"{PAGE.name} has no place for the picture of {layout}")
        before, rest = page.split(begin)
        page = before + begin + "\n" + picture(layout, rows) + "\n" + rest[rest.index(end):]
        written[HERE / f"{layout}.svg"] = drawing(layout, rows)
    if page != old_page:
        written[PAGE] = page
    stale = [path for path, text in written.items() if not path.exists() or path.read_text() != text]
    if check and stale:
        sys.exit("not as the parsers' columns are; run docs/layouts/draw.py: "
                 + ", ".join(str(path.relative_to(ROOT)) for path in stale))
    for path in stale:
        path.write_text(written[path])
        print(path.relative_to(ROOT))


if __name__ == "__main__":
    main("--check" in sys.argv[1:])
