"""Every fenced example in the pages and headers is a file that was compiled and run.

usage: check_pages.py PROJECT PAGE...

In a page, a fence of C holds the whole of one file docs/examples/NAME.c, and a fence of text the output
docs/examples/NAME.out that belongs to the fence of C above it. In a header, the lines between @code and
@endcode stand, one after another, in one of the examples.
"""

import pathlib
import re
import sys

FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
HEADER_CODE = re.compile(r"@code(?:\{\.\w+\})?\n(.*?)^\s*\* @endcode", re.MULTILINE | re.DOTALL)


def undented(text):
    return "\n".join(line.strip() for line in text.strip().splitlines())


def page_faults(page, sources, outputs):
    shown = None
    for language, text in FENCE.findall(page.read_text()):
        if language == "c":
            shown = next((name for name, source in sources.items() if source == text), None)
            if shown is None:
                yield f"{page.name}: this fence is no file of docs/examples:\n{text}"
        elif language == "text":
            if outputs.get(shown) != text:
                yield f"{page.name}: this is not what {shown} prints:\n{text}"
        else:
            yield f"{page.name}: a fence of neither c nor text, which nothing checks:\n{text}"


def header_faults(header, sources):
    for comment in HEADER_CODE.findall(header.read_text()):
        code = undented(re.sub(r"^ \* ?", "", comment, flags=re.MULTILINE))
        if not any(code in undented(source) for source in sources.values()):
            yield f"{header.name}: this code is in no file of docs/examples:\n{code}"


def main(project, *pages):
    project = pathlib.Path(project)
    examples = project / "docs" / "examples"
    sources = {file.stem: file.read_text() for file in examples.glob("*.c")}
    outputs = {file.stem: file.read_text() for file in examples.glob("*.out")}
    faults = []
    fences = 0
    for page in pages:
        page = project / page
        fences += len(FENCE.findall(page.read_text()))
        faults += page_faults(page, sources, outputs)
    for header in (project / "include").rglob("*.h*"):
        fences += len(HEADER_CODE.findall(header.read_text()))
        faults += header_faults(header, sources)
    if not sources or set(sources) != set(outputs):
        faults.append(f"Examples without output, or outputs without example: {set(sources) ^ set(outputs)}")
    if not fences:
        faults.append("No example was found: nothing was checked.")
    for fault in faults:
        print(fault)
    print(f"{fences} examples looked at, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
