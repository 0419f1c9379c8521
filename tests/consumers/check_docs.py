"""Every block of code that a page shows is a file that the tests run, or is run here.

usage: check_docs.py WORK [PAGE...]    (README.md, docs/*.md and samples/README.md where none is named)

How a fenced block is tested says the comment in the line above it:

    <!-- file: PATH -->       the lines of a file of the project, all of them or some in a row
    <!-- run -->              sh: runs without an error; console: the lines after "$ " are run, each with the
                              output shown below it. Blocks of one page run in one folder, which begins as a
                              copy of samples/, with Varnel installed where compilers and CMake look.
    <!-- run as: COMMAND -->  console: as above, but this is run in place of the line after "$ "
    <!-- compiles -->         objc: compiles for iOS, with reference counting by the compiler
    <!-- tested by: PATH -->  what it shows is tested by that file

Without one, a block of text says nothing to be run, and any other block must be a whole file of the project.
What a public header shows between @code and @endcode stands, in a row, in a sample in C.
Links between pages lead somewhere. A page whose sections end with "*Pinned by ...*" has it in every section
of the third level, and every unit test (`Suite.Name`) and vector (`folder/name`) named there exists.
"""

import pathlib
import re
import shutil
import sys

from support import ROOT, SAMPLES, Prefix, fresh, run

FENCE = re.compile(r"(?:^<!-- ([^\n]+) -->\n)?^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\(([^)#:]*)(?:#([^):]*))?\)")
PINNED = re.compile(r"^\*Pinned by (.*?)\*$", re.MULTILINE | re.DOTALL)
TEST = re.compile(r"TEST(?:_F|_P)?\((\w+), (\w+)\)")
NOT_CODE = ("", "text")
HEADER_CODE = re.compile(r"@code(?:\{\.\w+\})?\n(.*?)^\s*\* @endcode", re.MULTILINE | re.DOTALL)
COMPILE = ("clang", "--target=arm64-apple-ios9.0", "-isysroot", ROOT / "apple" / "stub-sdk" / "iPhoneOS.sdk",
           "-I", ROOT / "include", "-fobjc-arc", "-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion",
           "-Werror", "-fsyntax-only", "-x", "objective-c")


def project_files():
    folders = ("samples", "docs/layouts", "tests", "include")
    return [path for folder in folders for path in (ROOT / folder).rglob("*") if path.is_file()]


def run_block(language, text, folder, env):
    if language == "sh":
        (folder / "block.sh").write_text(text)
        run("sh", "-e", "block.sh", env=env, cwd=folder)
        return None
    if language != "console":
        return "only blocks of sh and console can be run"
    for command, shown in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", text, re.MULTILINE):
        (folder / "block.sh").write_text(f"{{ {command}\n}} 2>&1 || true\n")
        printed = run("sh", "block.sh", env=env, cwd=folder)
        if printed.rstrip("\n") != shown.rstrip("\n"):
            return f"`{command}` prints\n{printed}\nand not\n{shown}"
    return None


def compiles(language, text, folder):
    if language != "objc":
        return "only blocks of objc can be compiled"
    (folder / "block.m").write_text(text)
    run(*COMPILE, "block.m", cwd=folder)
    return None


def block_fault(mark, language, text, folder, env, contents):
    kind, _, path = (mark or "").partition(": ")
    if kind == "run":
        return run_block(language, text, folder, env)
    if kind == "run as":
        text = re.sub(r"^\$ .*$", lambda _: f"$ {path}", text, count=1, flags=re.MULTILINE)
        return run_block(language, text, folder, env)
    if kind == "compiles":
        return compiles(language, text, folder)
    if kind == "file":
        whole = (ROOT / path).read_text() if (ROOT / path).exists() else ""
        return None if f"\n{text}" in f"\n{whole}" else f"these are no lines of {path}"
    if kind == "tested by":
        return None if (ROOT / path).exists() else f"there is no {path}"
    if language in NOT_CODE or text in contents:
        return None
    return "nothing says where this is tested"


def headings(page):
    """The anchors of a page's headings, those of equal headings numbered."""
    anchors = []
    for heading in re.findall(r"^#+ (.*)$", FENCE.sub("", page.read_text()), re.MULTILINE):
        anchor = re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
        again = sum(1 for known in anchors if re.fullmatch(re.escape(anchor) + r"(-\d+)?", known))
        anchors.append(f"{anchor}-{again}" if again else anchor)
    return anchors


def page_faults(name, work, env, contents, tests):
    page = (ROOT / name).read_text()
    folder = fresh(work / pathlib.Path(name).stem)
    shutil.copytree(SAMPLES, folder, dirs_exist_ok=True)
    for mark, language, text in FENCE.findall(page):
        fault = block_fault(mark, language, text, folder, env, contents)
        if fault:
            yield f"{fault}:\n{text}"
    prose = FENCE.sub("", page)
    for path, heading in LINK.findall(prose):
        target = (ROOT / name).parent / path if path else ROOT / name
        if not target.exists() or (heading and heading not in headings(target)):
            yield f"the link to {path}#{heading} leads nowhere"
    pinned = PINNED.findall(prose)
    if pinned and len(pinned) != len(re.findall(r"^### ", prose, re.MULTILINE)):
        yield "not every section says what pins it"
    for pins in pinned:
        named = re.findall(r"`([^`]+)`", pins)
        if not named:
            yield f"no test is named in: {pins}"
        for test in named:
            if test not in tests:
                yield f"there is no test {test}"


def undented(text):
    return "\n".join(line.strip() for line in text.strip().splitlines())


def header_faults(header):
    samples = [undented(path.read_text()) for path in SAMPLES.rglob("*.c")]
    for comment in HEADER_CODE.findall(header.read_text()):
        code = undented(re.sub(r"^ \* ?", "", comment, flags=re.MULTILINE))
        if not any(code in sample for sample in samples):
            yield f"this code is in no sample:\n{code}"


def known_tests():
    """Suite.Name of every unit test, and FOLDER/NAME of every vector."""
    names = {f"{suite}.{name}" for path in (ROOT / "tests").rglob("*.cpp")
             for suite, name in TEST.findall(path.read_text())}
    vectors = ROOT / "tests" / "vectors"
    return names | {str(path.relative_to(vectors).with_suffix("")) for path in vectors.rglob("*.mrz")}


def all_pages():
    pages = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md")), SAMPLES / "README.md"]
    return [str(page.relative_to(ROOT)) for page in pages if page.exists()]


def main(work, *pages):
    pages = pages or all_pages()
    env = Prefix(pathlib.Path(work) / "moved").environment()
    contents = [path.read_text(errors="replace") for path in project_files() if path.suffix != ".mrz"]
    tests = known_tests()
    faults = blocks = 0
    for name in pages:
        blocks += len(FENCE.findall((ROOT / name).read_text()))
        for fault in page_faults(name, pathlib.Path(work) / "docs", env, contents, tests):
            print(f"{name}: {fault}")
            faults += 1
    for header in sorted((ROOT / "include").rglob("*.h")):
        blocks += len(HEADER_CODE.findall(header.read_text()))
        for fault in header_faults(header):
            print(f"{header.name}: {fault}")
            faults += 1
    if not blocks:
        print("no block was found: nothing was checked")
        faults += 1
    print(f"{blocks} blocks of {len(pages)} pages and the headers looked at, {faults} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
