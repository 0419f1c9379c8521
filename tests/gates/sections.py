"""The libraries keep no data that is written to, nothing relocated when they are loaded, and no start-up code."""

import re

from building import LIBRARIES, arguments, fail, run

# Sections of the objects that may be written or relocated at start, each with its reason. None.
ARGUED = {}

STATE = re.compile(r"^\.(data|bss|tdata|tbss|init_array|fini_array|preinit_array|ctors|dtors)(\.|$)")


def sections(path):
    """(name, size, flags) of each section."""
    rows = re.findall(r"^\s*\[\s*\d+\]\s+(\S+)\s+[A-Z_]+\s+[0-9a-f]+\s+[0-9a-f]+\s+([0-9a-f]+)\s+[0-9a-f]+"
                      r"\s+([A-Za-z]*)\s+\d", run(["readelf", "-SW", path]), re.MULTILINE)
    if not rows:
        fail(f"readelf lists no section of {path.name}")
    return [(name, int(size, 16), flags) for name, size, flags in rows]


def check(library, work):
    code = 0
    for path in library.objects(work):
        for name, size, flags in sections(path):
            code += size if "X" in flags else 0
            is_state = STATE.match(name) or ("W" in flags and "A" in flags)
            if is_state and size > 0 and (path.name, name) not in ARGUED:
                print(run(["objdump", "-t", "-C", "-j", name, path]))
                fail(f"{path.name} has {size} bytes in {name}: writable, relocated at start or run at start")
    if code == 0:
        fail(f"the objects of {library.name} hold no code: they cannot have been read")
    if "TEXTREL" in run(["readelf", "-dW", library.shared(work)]):
        fail(f"{library.shared(work).name} relocates its code when it is loaded (TEXTREL)")
    print(f"{library.name}: {code} bytes of code, no data that changes")


def main():
    work = arguments(__doc__).work
    for library in LIBRARIES:
        check(library, work)


main()
