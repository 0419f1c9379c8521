"""Pictures say what they show: every label lies nearer to its own line than to the next, what is not read has a
legend, and the plot of the times a title and a text at each axis."""

import pathlib
import re
import sys

DOCS = pathlib.Path(__file__).resolve().parents[2] / "docs"
ROW = re.compile(r'<rect x="10" y="(\d+)" width="18" height="(26)"')
LABEL = re.compile(r'<text x="\d+" y="(\d+)" font-size="8.5" fill="#333" text-anchor="middle">(\w+)')
faults = []

pictures = sorted((DOCS / "layouts").glob("*.svg"))
for path in pictures:
    picture = path.read_text()
    rows = [(int(y), int(y) + int(height)) for y, height in ROW.findall(picture)]
    labels = [(int(y), name) for y, name in LABEL.findall(picture)]
    for y, name in labels:
        above = max(bottom for _, bottom in rows if bottom < y)
        below = [top for top, _ in rows if top > y]
        if below and min(below) - y < (y - above) / 2 + 5:
            faults.append(f"{path.name}: the label {name} reads as the next line's")
    if not labels or ">not read</text>" not in picture:
        faults.append(f"{path.name} has no labels, or none for what is not read")

plot = (DOCS / "performance.svg").read_text()
if "<title>" not in plot or "bytes of text" not in plot or "time of one call" not in plot:
    faults.append("performance.svg has no title, or an axis without a text")
if len(pictures) != 5:
    faults.append(f"{len(pictures)} pictures of layouts")
print("\n".join(faults) or "the pictures say what they show")
sys.exit(1 if faults else 0)
