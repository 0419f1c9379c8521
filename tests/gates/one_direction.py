"""The core never includes the documents library, and is the same to the byte whether that is built or not."""

import re

from building import CORE, DOCUMENTS, ROOT, arguments, fail, run, sources_of
from release_build import build

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s+[<"]([^>"]+)[>"]', re.MULTILINE)


def core_files():
    own = [path for path in (ROOT / "src").rglob("*") if path.suffix in (".cpp", ".hpp", ".h", ".m")
           and DOCUMENTS.sources not in path.parents]
    return [*own, *CORE.headers, ROOT / "include" / "Varnel" / "Varnel.hpp"]


def main():
    work = arguments(__doc__).work
    files = core_files()
    if len(files) <= len(sources_of(CORE)):
        fail("the core's sources and headers were not found")
    for path in files:
        for included in INCLUDE.findall(path.read_text()):
            if "documents" in included:
                fail(f"{path.relative_to(ROOT)} includes {included}: the core knows nothing of the documents library")
    build(work / "alone", "-DBUILD_SHARED_LIBS=ON", "-DVARNEL_BUILD_DOCUMENTS=OFF")
    alone = work / "alone" / "src" / "libvarnel.so"
    for library in (alone, CORE.shared(work)):
        # The build id is a sum of the debug information too, which names the folder.
        run(["objcopy", "--strip-debug", "--remove-section", ".note.gnu.build-id", library, work / f"{library.parent.parent.name}-core.so"])
    if (work / "alone-core.so").read_bytes() != (work / "shared-core.so").read_bytes():
        fail("libvarnel.so differs when the documents library is built beside it")
    print(f"{len(files)} files include nothing of the documents library; libvarnel.so is the same without it")


main()
