"""The core keeps no data that is written to, nothing that is relocated when it is loaded, no start-up code."""

import re

from building import arguments, core_objects, fail, run, shared_library

# Sections of the core's objects that may be written or relocated at start, each with its reason. None.
ARGUED = {}

STATE = re.compile(r"^\.(data|bss|tdata|tbss|init_array|fini_array|preinit_array|ctors|dtors)(\.|$)")


def sections(path):
    """(name, size, flags) of each section."""
    rows = re.findall(r"^\s*\[\s*\d+\]\s+(\S+)\s+[A-Z_]+\s+[0-9a-f]+\s+[0-9a-f]+\s+([0-9a-f]+)\s+[0-9a-f]+"
                      r"\s+([A-Za-z]*)\s+\d", run(["readelf", "-SW", path]), re.MULTILINE)
    if not rows:
        fail(f"readelf lists no section of {path.name}")
    return [(name, int(size, 16), flags) for name, size, flags in rows]


def main():
    work = arguments(__doc__).work
    objects = core_objects(work)
    code = 0
    for path in objects:
        for name, size, flags in sections(path):
            code += size if "X" in flags else 0
            is_state = STATE.match(name) or ("W" in flags and "A" in flags)
            if is_state and size > 0 and (path.name, name) not in ARGUED:
                symbols = run(["objdump", "-t", "-C", "-j", name, path]) if size else ""
                print(symbols)
                fail(f"{path.name} has {size} bytes in {name}: writable, relocated at start or run at start")
    if code == 0:
        fail("the objects of the core hold no code: they cannot have been read")
    if "TEXTREL" in run(["readelf", "-dW", shared_library(work)]):
        fail("libvarnel.so relocates its code when it is loaded (TEXTREL)")
    print(f"{len(objects)} objects, {code} bytes of code, no data that changes")


main()
