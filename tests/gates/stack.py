"""No function of the libraries has a frame above its library's bound or of a size unknown before it runs, no chain
of calls needs more than the bound for chains, and nothing calls itself, directly or round about.

Callbacks that the caller hands in and functions of other libraries count as nothing.
"""

import re

from building import LIBRARIES, arguments, fail

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


def check(library, work):
    frames, callees = {}, {}
    for path in library.objects(work):
        report = path.with_suffix(".ci")
        if not report.exists():
            fail(f"the compiler wrote no call graph for {path.name}")
        own, calls = read_graph(report)
        frames.update(own)
        for caller, callee in calls:
            callees.setdefault(caller, set()).add(callee)
    if library.knows not in frames or not callees:
        fail(f"the call graph does not hold {library.knows}: it cannot have been read")
    known = {}
    for function in frames:
        deepest_chain(function, frames, callees, [], known)
    function = max(frames, key=frames.get)
    print(f"{library.name}: {len(frames)} functions, largest frame {frames[function]} bytes ({function})")
    if frames[function] > library.frame_bound:
        fail(f"the frame of {function} has {frames[function]} bytes, more than {library.frame_bound}")
    size, chain = max(known.values())
    print(f"deepest chain {size} bytes: {' -> '.join(chain)}")
    if size > library.chain_bound:
        fail(f"the chain of calls {' -> '.join(chain)} needs {size} bytes, more than {library.chain_bound}")


def main():
    work = arguments(__doc__).work
    for library in LIBRARIES:
        check(library, work)


main()
