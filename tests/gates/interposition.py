"""A program that defines a name the library exports links with the library, shared and static, and changes none
of its answers: the shared library has no relocation to a symbol of its own."""

import pathlib
import re

from building import CORE, INCLUDES, LIBRARIES, arguments, fail, run, symbols, tool


def relocated_names(library):
    """The symbols that the relocations of a shared library name."""
    listing = run(["readelf", "-rW", library])
    names = re.findall(r"^[0-9a-f]+\s+[0-9a-f]+\s+R_\w+\s+[0-9a-f]+\s+([^\s@]+)", listing, re.MULTILINE)
    if not names:
        fail(f"readelf lists no named relocation of {library.name}: it cannot have been read")
    return set(names)


def main():
    work = arguments(__doc__).work
    count = 0
    for library in LIBRARIES:
        file = library.shared(work)
        exported = {name for name, _ in symbols(file, "-D", "--defined-only")}
        count += len(exported)
        own = sorted(exported & relocated_names(file))
        if own:
            fail(f"{file.name} reads {', '.join(own)} where the program says, not its own")
    shared = CORE.shared(work)
    source = pathlib.Path(__file__).with_suffix(".c")
    for kind, library in (("shared", shared), ("static", CORE.static(work))):
        program = work / f"interposition-{kind}"
        run([tool("gcc"), "-std=c99", "-Wall", "-Wextra", *INCLUDES, source, library,
             f"-Wl,-rpath,{shared.parent}", "-o", program])
        run([program])
    print(f"{count} exported symbols, none read where the program says")


main()
