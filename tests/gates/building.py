"""What the gates share: where things are, and quick builds of chosen sources with chosen flags."""

import argparse
import concurrent.futures
import dataclasses
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
JOBS = 2
LANGUAGE = ["-std=c++17", "-fno-rtti"]
INCLUDES = [f"-I{ROOT / 'include'}"]
TEST_INCLUDES = INCLUDES + [f"-I{ROOT / 'tests' / folder}" for folder in ("unit", "reference")] + [f"-I{ROOT / 'src'}"]
TEST_DEFINES = [f'-DVARNEL_VECTORS_DIR="{ROOT / "tests" / "vectors"}"',
                f'-DVARNEL_DOCUMENT_TESTS_DIR="{ROOT / "tests" / "documents"}"']



@dataclasses.dataclass(frozen=True)
class Library:
    """One of the two libraries, where its parts are, and what it is held to."""

    name: str
    sources: pathlib.Path
    headers: tuple
    manifests: pathlib.Path
    tests: pathlib.Path
    needs: list  # the shared libraries that it is linked to
    knows: str  # a function of its own: what lists its functions has to hold it
    frame_bound: int  # bytes of stack of one function
    chain_bound: int  # and of a chain of calls
    file_bound: int  # bytes of the stripped shared library
    code_bound: int  # and of its code and constants

    def manifest(self, name):
        return self.manifests / name

    def shared(self, work):
        return release(work) / self.sources.relative_to(ROOT) / f"lib{self.name}.so"

    def static(self, work):
        return work / "static" / self.sources.relative_to(ROOT) / f"lib{self.name}.a"

    def objects(self, work):
        """The objects of the library as the release build of the shared library has them."""
        folder = self.shared(work).parent / "CMakeFiles" / f"{self.name}.dir"
        objects = sorted(folder.rglob("*.o"))
        if len(objects) < len(sources_of(self)):
            fail(f"{len(objects)} objects for {len(sources_of(self))} sources of {self.name}")
        return objects


PUBLIC = ROOT / "include" / "Varnel"
DOCUMENT_HEADERS = (PUBLIC / "documents.h", *sorted((PUBLIC / "documents").glob("*.h")))
CORE = Library(
    name="varnel", sources=ROOT / "src", manifests=ROOT / "tests" / "abi", tests=ROOT / "tests" / "unit",
    needs=["libc.so.6"],
    headers=tuple(path for path in sorted(PUBLIC.rglob("*.h")) if path not in DOCUMENT_HEADERS),
    knows="varnel_parse_mrz",
    frame_bound=1280,  # varnel_parse_mrz holds the normalised zone: 1024 bytes
    chain_bound=2048, file_bound=36 * 1024, code_bound=23 * 1024)
DOCUMENTS = Library(
    name="varnel_documents", sources=ROOT / "src" / "documents", headers=DOCUMENT_HEADERS,
    manifests=ROOT / "tests" / "abi" / "documents", tests=ROOT / "tests" / "documents",
    needs=["libvarnel.so.1", "libc.so.6"], knows="varnel_inspect",
    frame_bound=6 * 1024,  # varnel_inspect_all holds the candidates of a page
    chain_bound=8 * 1024, file_bound=208 * 1024, code_bound=192 * 1024)
LIBRARIES = (CORE, DOCUMENTS)


def fail(text):
    """Ends the gate with the reason it fails for."""
    sys.stdout.flush()
    sys.exit(f"GATE: {text}")


def arguments(description, *more):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--work", type=pathlib.Path, required=True, help="the gates' build folder")
    for names, options in more:
        parser.add_argument(*names, **options)
    return parser.parse_args()


def tool(*names):
    """The first of the programs that is installed."""
    for name in names:
        if shutil.which(name):
            return name
    fail(f"{' or '.join(names)} is not installed")


def linker():
    """The quick linker where it is installed."""
    return "-fuse-ld=lld" if shutil.which("ld.lld") else "-fuse-ld=bfd"


def run(command, **options):
    """Runs a command that has to succeed; returns what it printed."""
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, errors="replace", **options)
    if done.returncode != 0:
        print(done.stdout)
        fail(f"`{' '.join(str(part) for part in command)}` ended with {done.returncode}")
    return done.stdout


def lines_of(path):
    """The entries of a manifest: one per line, comments and empty lines left out. Never empty."""
    entries = [line.strip() for line in path.read_text().splitlines()]
    entries = [line for line in entries if line and not line.startswith("#")]
    if not entries:
        fail(f"{path.relative_to(ROOT)} lists nothing")
    return entries


def compare(expected, found, manifest, what):
    """Fails unless two sets of names are equal, naming each that is missing or new."""
    missing, new = sorted(set(expected) - set(found)), sorted(set(found) - set(expected))
    for name in missing:
        print(f"  missing: {name}")
    for name in new:
        print(f"  new:     {name}")
    if missing or new:
        fail(f"{what} differ from {manifest}: {len(missing)} missing, {len(new)} new")


def sources_of(library):
    others = [other.sources for other in LIBRARIES if library.sources in other.sources.parents]
    return [path for path in sorted(library.sources.rglob("*.cpp"))
            if not any(folder in path.parents for folder in others)]


def core_sources():
    return sources_of(CORE)


def unit_test_sources(library=CORE):
    sources = sorted(library.tests.glob("*_test.cpp"))
    if not sources:
        fail(f"there are no unit tests in {library.tests.relative_to(ROOT)}")
    return sources


def reference_sources():
    return sorted((ROOT / "tests" / "reference").glob("*.cpp"))


def test_environment(library):
    """How the unit tests run where they run slowly, or often: those of the documents try a tenth of very many cases."""
    return dict(os.environ, **({"VARNEL_FEWER_CASES": "10"} if library is DOCUMENTS else {}))


def test_support_sources(library):
    """What a library's unit tests are linked with."""
    programs = {*unit_test_sources(library), DOCUMENTS.tests / "score.cpp"}
    return [*reference_sources(), *(path for path in sorted(library.tests.glob("*.cpp")) if path not in programs)]


def _is_current(result, depfile, stamp, command):
    if not (result.exists() and depfile.exists() and stamp.exists() and stamp.read_text() == command):
        return False
    made = result.stat().st_mtime_ns
    needed = re.sub(r"\\\n", " ", depfile.read_text()).split(":", 1)[1].split()
    return all(os.path.exists(path) and os.stat(path).st_mtime_ns <= made for path in needed)


def compile_one(source, folder, command):
    """Compiles one source unless its object is newer than all that it was made of."""
    name = hashlib.sha1(str(source).encode()).hexdigest()[:8]
    folder.mkdir(parents=True, exist_ok=True)
    result = folder / f"{source.stem}-{name}.o"
    depfile, stamp = result.with_suffix(".d"), result.with_suffix(".cmd")
    full = [str(part) for part in command] + ["-MMD", "-MF", str(depfile), "-c", str(source), "-o", str(result)]
    if not _is_current(result, depfile, stamp, " ".join(full)):
        result.unlink(missing_ok=True)
        run(full)
        stamp.write_text(" ".join(full))
    return result


def compile_all(sources, folder, command):
    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        return list(pool.map(lambda source: compile_one(source, folder, command), sources))


def release(work):
    """The folder of the release build that the gate `gate.build` makes."""
    folder = work / "shared"
    if not (folder / "src" / "libvarnel.so").exists():
        fail("the release build is missing: the test gate.build makes it")
    return folder


def symbols(path, *options):
    """(name, type letter) of each symbol that nm lists; versions are cut off."""
    listing = run(["nm", *options, path])
    found = re.findall(r"^[0-9a-fA-F]*\s+([A-Za-z])\s+([^\s@]+)(?:@\S+)?$", listing, re.MULTILINE)
    if not found:
        fail(f"nm lists no symbol of {path.name}")
    return [(name, kind) for kind, name in found]
