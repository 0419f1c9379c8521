"""The shared libraries export exactly what their lists exported-symbols.txt and their headers name."""

import re

from building import LIBRARIES, ROOT, arguments, compare, fail, lines_of, symbols


def declared(headers):
    """The names that public headers mark with VARNEL_API."""
    names = set()
    for header in headers:
        text = re.sub(r"/\*.*?\*/", " ", header.read_text(), flags=re.DOTALL)
        text = re.sub(r"^\s*#.*$", "", text, flags=re.MULTILINE)
        for declaration in re.findall(r"\bVARNEL_(?:DOCUMENTS_)?API\b([^;]*);", text):
            names.update(re.findall(r"(\w+)\s*(?:\(|\[|$)", declaration)[:1])
    if not names:
        fail("no declaration in include/Varnel is marked VARNEL_API")
    return names


def check(library, work):
    manifest = library.manifest("exported-symbols.txt")
    name = str(manifest.relative_to(ROOT))
    listed = lines_of(manifest)
    if listed != sorted(set(listed)):
        fail(f"{name} is not sorted or names a symbol twice")
    exported = {symbol for symbol, _ in symbols(library.shared(work), "-D", "--defined-only")}
    compare(listed, exported, name, "the exported symbols")
    compare(listed, declared(library.headers), name, "the declarations in include/Varnel")
    print(f"{library.name}: {len(exported)} exported symbols")


def main():
    work = arguments(__doc__).work
    for library in LIBRARIES:
        check(library, work)


main()
