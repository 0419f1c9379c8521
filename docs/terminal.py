#!/usr/bin/env python3
"""Draws what a terminal shows of the command: terminal.py PROGRAM [--check]

Runs the command as on a terminal, and writes docs/inspection.svg from its real output; with --check, writes nothing
and fails where the picture is not what would be drawn.
"""

import html
import os
import pathlib
import pty
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
PICTURE = HERE / "inspection.svg"
SAMPLES = HERE.parent / "samples"
ARGUMENTS = ["inspect", "--date", "2026-11-21", "page.txt"]
PROMPT = "$ varnel inspect page.txt"

WIDTH, HEIGHT, MARGIN = 8.45, 19, 16  # of a character, of a line, around all
COLOURS = {"31": "#ff8080", "32": "#7ee08f", "33": "#f2cc60", "34": "#8ab4ff", "35": "#e0a0ff", "36": "#6fd6e0"}
ESCAPE = re.compile(r"\033\[([0-9;]*)m")


def shown(program):
    """What the command writes to a terminal."""
    ours, theirs = pty.openpty()
    with subprocess.Popen([program, *ARGUMENTS], cwd=SAMPLES, stdout=theirs, stdin=subprocess.DEVNULL,
                          env={"TERM": "xterm", "PATH": os.environ["PATH"]}):
        os.close(theirs)
        written = b""
        while True:
            try:
                more = os.read(ours, 4096)
            except OSError:  # how a terminal ends
                more = b""
            if not more:
                break
            written += more
    os.close(ours)
    return written.decode().replace("\r\n", "\n")


def spans(line):
    """The stretches of a line with their SGR codes."""
    codes, at = [], 0
    for escape in ESCAPE.finditer(line):
        yield codes, line[at:escape.start()]
        codes = [code for code in escape[1].split(";") if code not in ("", "0")]
        at = escape.end()
    yield codes, line[at:]


def text_of(line, number):
    y = MARGIN + HEIGHT * (number + 1) - 5
    drawn, column = [], 0
    for codes, text in spans(line):
        colour = next((COLOURS[code] for code in codes if code in COLOURS), None)
        style = (f' fill="{colour}"' if colour else "") + (' font-weight="bold"' if "1" in codes else "")
        style += ' text-decoration="underline"' if "4" in codes else ""
        if text.strip():
            lead = len(text) - len(text.lstrip())
            x = MARGIN + WIDTH * (column + lead)
            length = WIDTH * len(text.strip())
            drawn.append(f'<text x="{x:g}" y="{y}" textLength="{length:g}" xml:space="preserve"{style}>'
                         f"{html.escape(text.strip())}</text>")
        column += len(text)
    return drawn


def picture(program):
    lines = [PROMPT, *shown(program).rstrip("\n").split("\n")]
    plain = [ESCAPE.sub("", line) for line in lines]
    width = 2 * MARGIN + WIDTH * max(map(len, plain))
    height = 2 * MARGIN + HEIGHT * len(lines)
    said = html.escape("\n".join(plain))
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width:g} {height}" width="{width:g}" role="img">',
        f"<title>What varnel inspect shows on a terminal</title><desc>{said}</desc>",
        f'<rect width="{width:g}" height="{height}" rx="8" fill="#16191f"/>',
        '<g font-family="ui-monospace, Menlo, Consolas, monospace" font-size="14" fill="#e6e8ec">',
        *(text for number, line in enumerate(lines) for text in text_of(line, number)),
        "</g>", "</svg>", ""])


def main():
    drawn = picture(os.path.abspath(sys.argv[1]))
    if "--check" not in sys.argv:
        PICTURE.write_text(drawn)
    elif PICTURE.read_text() != drawn:
        sys.exit("docs/inspection.svg is not what docs/terminal.py draws of the command's output")


main()
