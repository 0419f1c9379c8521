"""The libraries call the few C library functions of their lists allowed-imports.txt only, and need libc alone; the
documents library needs and calls the core besides."""

import re

from building import CORE, LIBRARIES, ROOT, arguments, fail, lines_of, run, symbols

# Weak hooks that the compiler's start-up files bring to every shared library.
START_UP = {"_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable", "__cxa_finalize", "__gmon_start__"}
LINKER_MADE = {"_GLOBAL_OFFSET_TABLE_"}


def undefined_in_archive(archive):
    found = symbols(archive)
    undefined = {name for name, kind in found if kind in "Uvw"}
    return undefined - {name for name, kind in found if kind not in "Uvw"}


def check(library, work):
    manifest = library.manifest("allowed-imports.txt")
    allowed = set(lines_of(manifest))
    if library is not CORE:
        allowed |= set(lines_of(CORE.manifest("exported-symbols.txt")))
    shared = {name for name, kind in symbols(library.shared(work), "-D") if kind in "Uvw"} - START_UP
    static = undefined_in_archive(library.static(work)) - LINKER_MADE
    for file, imports in ((library.shared(work).name, shared), (library.static(work).name, static)):
        if not imports:
            fail(f"{file} imports nothing at all: it cannot have been read")
        if imports - allowed:
            fail(f"{file} imports {', '.join(sorted(imports - allowed))}: not in {manifest.relative_to(ROOT)}")
        print(f"{file}: {' '.join(sorted(imports))}")
    needed = re.findall(r"\(NEEDED\).*\[(.*)\]", run(["readelf", "-dW", library.shared(work)]))
    if needed != library.needs:
        fail(f"{library.shared(work).name} needs {needed or 'no library'}, not {library.needs}")


def main():
    work = arguments(__doc__).work
    for library in LIBRARIES:
        check(library, work)


main()
