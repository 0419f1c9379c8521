"""`cmake --install` puts down the files of tests/abi/installed-files.txt, no more, no less."""

import fnmatch
import re

from building import ROOT, arguments, compare, fail, lines_of

MANIFEST = ROOT / "tests" / "abi" / "installed-files.txt"


def version():
    header = (ROOT / "include" / "Varnel" / "Varnel.h").read_text()
    return re.search(r'^#define VARNEL_VERSION "(.*)"$', header, re.MULTILINE).group(1)


def main():
    prefix = arguments(__doc__).work / "prefix"
    installed = [str(path.relative_to(prefix)) for path in prefix.rglob("*") if not path.is_dir()]
    if not installed:
        fail("nothing is installed in the scratch prefix: the test gate.build fills it")
    listed = [line.replace("@VERSION@", version()) for line in lines_of(MANIFEST)]
    patterns = [line for line in listed if "*" in line]
    found = {next((pattern for pattern in patterns if fnmatch.fnmatch(path, pattern)), path) for path in installed}
    compare(listed, found, "tests/abi/installed-files.txt", "the installed files")
    print(f"{len(installed)} installed files")


main()
