"""Each stripped shared library stays within its bounds, as a file and of code and constants: all sections that are
run or hold constants. The tables of names that every shared library carries for the loader
count for the file alone; the figure of `size`, which adds them, is printed beside."""

import re

from building import LIBRARIES, arguments, fail, run

COUNTED = re.compile(r"^(\.(?:init|fini|plt\S*|text\S*|rodata\S*|eh_frame\S*|data\.rel\.ro\S*))\s+(\d+)", re.MULTILINE)


def check(library, work):
    stripped = work / f"{library.name}-stripped.so"
    run(["strip", "-o", stripped, library.shared(work)])
    file_size = stripped.stat().st_size
    sections = {name: int(size) for name, size in COUNTED.findall(run(["size", "-A", stripped]))}
    if not sections.get(".text") or not sections.get(".rodata"):
        fail("size lists no code or no constants of the stripped library")
    code_size = sum(sections.values())
    with_names = int(run(["size", stripped]).splitlines()[1].split()[0])
    print(f"{library.name}, stripped: file {file_size} of {library.file_bound} bytes, code and constants {code_size} "
          f"of {library.code_bound} bytes ({with_names} with the loader's tables)")
    if file_size > library.file_bound:
        fail(f"the stripped file has {file_size} bytes, more than {library.file_bound}")
    if code_size > library.code_bound:
        fail(f"code and constants have {code_size} bytes, more than {library.code_bound}")


def main():
    work = arguments(__doc__).work
    for library in LIBRARIES:
        check(library, work)


main()
