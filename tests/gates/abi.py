"""Functions, data and records of the shared libraries are those of the stored descriptions in tests/abi.

`--store` writes the description anew: for a change of the interface that is meant.
"""

import subprocess

from building import LIBRARIES, ROOT, arguments, fail, run, tool

# No paths, no line numbers, no names of compilers' making: the same sources give the same description.
DESCRIBE = ["--exported-interfaces-only", "--no-corpus-path", "--no-comp-dir-path", "--no-show-locs",
            "--type-id-style", "hash"]


def check(library, work, store):
    stored, described = library.manifest(f"{library.name}.abi"), work / f"{library.name}.abi"
    run([tool("abidw"), *DESCRIBE, "--headers-dir", ROOT / "include", "--out-file", described, library.shared(work)])
    if library.knows not in described.read_text():
        fail(f"the description does not hold {library.knows}: it cannot be right")
    if store:
        stored.write_text(described.read_text())
        return
    compared = subprocess.run([tool("abidiff"), "--harmless", "--no-show-locs", str(stored), str(described)],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    print(compared.stdout)
    if compared.returncode != 0:
        fail(f"the binary interface differs from {stored.relative_to(ROOT)}")


def main():
    args = arguments(__doc__, (("--store",), {"action": "store_true"}))
    for library in LIBRARIES:
        check(library, args.work, args.store)


main()
