"""The core calls the few C library functions of tests/abi/allowed-imports.txt only, and needs libc alone."""

import re

from building import ROOT, arguments, fail, lines_of, run, shared_library, static_library, symbols

# Weak hooks that the compiler's start-up files bring to every shared library.
START_UP = {"_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable", "__cxa_finalize", "__gmon_start__"}
LINKER_MADE = {"_GLOBAL_OFFSET_TABLE_"}


def undefined_in_archive(archive):
    found = symbols(archive)
    undefined = {name for name, kind in found if kind in "Uvw"}
    return undefined - {name for name, kind in found if kind not in "Uvw"}


def main():
    work = arguments(__doc__).work
    allowed = set(lines_of(ROOT / "tests" / "abi" / "allowed-imports.txt"))
    shared = {name for name, kind in symbols(shared_library(work), "-D") if kind in "Uvw"} - START_UP
    static = undefined_in_archive(static_library(work)) - LINKER_MADE
    for library, imports in (("libvarnel.so", shared), ("libvarnel.a", static)):
        if not imports:
            fail(f"{library} imports nothing at all: it cannot have been read")
        if imports - allowed:
            fail(f"{library} imports {', '.join(sorted(imports - allowed))}: "
                 "not in tests/abi/allowed-imports.txt")
        print(f"{library}: {' '.join(sorted(imports))}")
    needed = re.findall(r"\(NEEDED\).*\[(.*)\]", run(["readelf", "-dW", shared_library(work)]))
    if needed != ["libc.so.6"]:
        fail(f"libvarnel.so needs {needed or 'no library'}, not libc alone")


main()
