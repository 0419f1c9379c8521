"""The shared library exports exactly what tests/abi/exported-symbols.txt lists and the headers declare."""

import re

from building import ROOT, arguments, compare, fail, lines_of, shared_library, symbols

MANIFEST = ROOT / "tests" / "abi" / "exported-symbols.txt"


def declared():
    """The names that the public headers mark with VARNEL_API."""
    names = set()
    for header in sorted((ROOT / "include" / "Varnel").rglob("*.h")):
        text = re.sub(r"/\*.*?\*/", " ", header.read_text(), flags=re.DOTALL)
        text = re.sub(r"^\s*#.*$", "", text, flags=re.MULTILINE)
        for declaration in re.findall(r"\bVARNEL_API\b([^;]*);", text):
            names.update(re.findall(r"(\w+)\s*(?:\(|\[|$)", declaration)[:1])
    if not names:
        fail("no declaration in include/Varnel is marked VARNEL_API")
    return names


def main():
    work = arguments(__doc__).work
    listed = lines_of(MANIFEST)
    if listed != sorted(set(listed)):
        fail("tests/abi/exported-symbols.txt is not sorted or names a symbol twice")
    exported = {name for name, _ in symbols(shared_library(work), "-D", "--defined-only")}
    compare(listed, exported, "tests/abi/exported-symbols.txt", "the exported symbols")
    compare(listed, declared(), "tests/abi/exported-symbols.txt", "the declarations in include/Varnel")
    print(f"{len(exported)} exported symbols")


main()
