"""No function of the core has a frame above FRAME_BOUND bytes or of a size unknown before it runs, no chain
of calls needs more than CHAIN_BOUND bytes, and nothing calls itself, directly or round about.

Callbacks that the caller hands in and the C library's functions count as nothing: they are not the core's.
"""

import re

from building import arguments, core_objects, fail

FRAME_BOUND = 1280  # varnel_parse_mrz holds the normalised zone: 1024 bytes
CHAIN_BOUND = 2048

# gcc's words for a frame of known size; the second is one that grows by arguments put on the stack.
BOUNDED = {"static", "dynamic,bounded"}


def read_graph(path):
    """(frames, calls): bytes by function, and the functions that each calls."""
    text = path.read_text()
    frames = {}
    for title, label in re.findall(r'^node: \{ title: "([^"]*)" label: "([^"]*)"', text, re.MULTILINE):
        usage = re.search(r"\\n(\d+) bytes \(([^)]*)\)", label)
        if usage:
            if usage.group(2) not in BOUNDED:
                fail(f"the frame of {title} is {usage.group(2)}: its size depends on what it is given")
            frames[title] = int(usage.group(1))
    calls = re.findall(r'^edge: \{ sourcename: "([^"]*)" targetname: "([^"]*)"', text, re.MULTILINE)
    return frames, calls


def deepest_chain(function, frames, callees, chain, known):
    """(bytes, functions) of the chain of calls from `function` on that needs most."""
    if function in chain:
        fail(f"recursion: {' -> '.join(chain[chain.index(function):] + [function])}")
    if function not in known:
        below = [deepest_chain(callee, frames, callees, chain + [function], known)
                 for callee in sorted(callees.get(function, ())) if callee in frames]
        deepest = max(below, default=(0, []))
        known[function] = (frames[function] + deepest[0], [function] + deepest[1])
    return known[function]


def main():
    work = arguments(__doc__).work
    frames, callees = {}, {}
    for path in core_objects(work):
        report = path.with_suffix(".ci")
        if not report.exists():
            fail(f"the compiler wrote no call graph for {path.name}")
        own, calls = read_graph(report)
        frames.update(own)
        for caller, callee in calls:
            callees.setdefault(caller, set()).add(callee)
    if "varnel_parse_mrz" not in frames or not callees:
        fail("the call graph does not hold varnel_parse_mrz: it cannot have been read")
    known = {}
    for function in frames:
        deepest_chain(function, frames, callees, [], known)
    function = max(frames, key=frames.get)
    print(f"{len(frames)} functions, largest frame {frames[function]} bytes ({function})")
    if frames[function] > FRAME_BOUND:
        fail(f"the frame of {function} has {frames[function]} bytes, more than {FRAME_BOUND}")
    size, chain = max(known.values())
    print(f"deepest chain {size} bytes: {' -> '.join(chain)}")
    if size > CHAIN_BOUND:
        fail(f"the chain of calls {' -> '.join(chain)} needs {size} bytes, more than {CHAIN_BOUND}")


main()
