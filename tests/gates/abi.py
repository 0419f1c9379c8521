"""Functions, data and records of the shared library are those of the stored description tests/abi/varnel.abi.

`--store` writes the description anew: for a change of the interface that is meant.
"""

import subprocess

from building import ROOT, arguments, fail, run, shared_library, tool

STORED = ROOT / "tests" / "abi" / "varnel.abi"
# No paths, no line numbers, no names of compilers' making: the same sources give the same description.
DESCRIBE = ["--exported-interfaces-only", "--no-corpus-path", "--no-comp-dir-path", "--no-show-locs",
            "--type-id-style", "hash"]


def main():
    args = arguments(__doc__, (("--store",), {"action": "store_true"}))
    library = shared_library(args.work)
    described = args.work / "varnel.abi"
    run([tool("abidw"), *DESCRIBE, "--headers-dir", ROOT / "include", "--out-file", described, library])
    if "varnel_parse_mrz" not in described.read_text():
        fail("the description does not hold varnel_parse_mrz: it cannot be right")
    if args.store:
        STORED.write_text(described.read_text())
        return
    compared = subprocess.run([tool("abidiff"), "--harmless", "--no-show-locs", str(STORED), str(described)],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    print(compared.stdout)
    if compared.returncode != 0:
        fail("the binary interface differs from tests/abi/varnel.abi")


main()
