"""The stripped shared library stays within FILE_BOUND bytes as a file and CODE_BOUND bytes of code and constants:
all sections that are run or hold constants. The tables of names that every shared library carries for the loader
count for the file alone; the figure of `size`, which adds them, is printed beside."""

import re

from building import arguments, fail, run, shared_library

FILE_BOUND = 40 * 1024
CODE_BOUND = 24 * 1024
COUNTED = re.compile(r"^(\.(?:init|fini|plt\S*|text\S*|rodata\S*|eh_frame\S*|data\.rel\.ro\S*))\s+(\d+)", re.MULTILINE)


def main():
    work = arguments(__doc__).work
    stripped = work / "libvarnel-stripped.so"
    run(["strip", "-o", stripped, shared_library(work)])
    file_size = stripped.stat().st_size
    sections = {name: int(size) for name, size in COUNTED.findall(run(["size", "-A", stripped]))}
    if not sections.get(".text") or not sections.get(".rodata"):
        fail("size lists no code or no constants of the stripped library")
    code_size = sum(sections.values())
    with_names = int(run(["size", stripped]).splitlines()[1].split()[0])
    print(f"stripped libvarnel.so: file {file_size} of {FILE_BOUND} bytes, code and constants {code_size} of "
          f"{CODE_BOUND} bytes ({with_names} with the loader's tables)")
    if file_size > FILE_BOUND:
        fail(f"the stripped file has {file_size} bytes, more than {FILE_BOUND}")
    if code_size > CODE_BOUND:
        fail(f"code and constants have {code_size} bytes, more than {CODE_BOUND}")


main()
