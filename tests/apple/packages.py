"""Package.swift, Varnel.podspec and the xcframework script agree with the sources and the version."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
failures = []


def expect(what, actual, expected):
    if actual != expected:
        failures.append(f"{what}: {actual!r}, expected {expected!r}")


def text_of(name):
    return (ROOT / name).read_text()


def only(pattern, text):
    found = re.findall(pattern, text, re.MULTILINE)
    return found[0] if len(found) == 1 else found


def files(*patterns):
    return {str(path.relative_to(ROOT)) for pattern in patterns for path in ROOT.glob(pattern)}


SOURCES = files("src/**/*.cpp", "src/**/*.m")
LISTED = [f"{folder}{name}" for folder in ("", "documents/")
          for name in re.findall(r"^  ([\w/]+\.cpp)\)?$", text_of(f"src/{folder}CMakeLists.txt"), re.MULTILINE)]
CLASSES = ["Varnel.m", "documents/VarnelInspector.m"]
HEADER = text_of("include/Varnel/Varnel.h")
VERSION = only(r'^#define VARNEL_VERSION "(.*)"$', HEADER)


def check_sources():
    """The packagers take every source of the folder: none may be there that the library is not made of."""
    expect("sources in src/", sorted(SOURCES), sorted(f"src/{name}" for name in [*LISTED, *CLASSES]))


def check_swift_package():
    package = text_of("Package.swift")
    expect("Package.swift, sources", only(r'sources: \["(.*)"\]', package), "src")
    expect("Package.swift, headers", only(r'publicHeadersPath: "(.*)"', package), "include")
    expect("Package.swift, platforms", only(r"platforms: (.*),$", package), "[.iOS(.v9)]")
    expect("Package.swift, standard", only(r"cxxLanguageStandard: (\S+)$", package), ".cxx17")
    expect("Package.swift, versions written by hand", re.findall(r'"\d+\.\d+', package), [])


def check_podspec():
    pod = text_of("Varnel.podspec")
    expect("Varnel.podspec, sources",
           only(r"source_files = (.*)$", pod), "'include/**/*.h', 'src/**/*.{cpp,m}'")
    expect("Varnel.podspec, public headers", only(r"public_header_files = '(.*)'$", pod), "include/**/*.h")
    expect("Varnel.podspec, iOS", only(r"deployment_target = '(.*)'$", pod), "9.0")
    header, pattern = only(r"version = File.read\(File.join\(__dir__, '(.*)'\)\)\[/(.*)/, 1\]$", pod)
    expect("Varnel.podspec, version", only(pattern, text_of(header)), VERSION)
    expect("Varnel.podspec, versions written by hand", re.findall(r"'\d+\.\d+\.\d+'", pod), [])


def check_script():
    expect("build-xcframework.sh, iOS",
           only(r"-DCMAKE_OSX_DEPLOYMENT_TARGET=(\S+)", text_of("apple/build-xcframework.sh")), "9.0")


expect("release", bool(re.fullmatch(r"\d+\.\d+\.\d+", str(VERSION))), True)
check_sources()
check_swift_package()
check_podspec()
check_script()
for failure in failures:
    print(failure, file=sys.stderr)
sys.exit(1 if failures else 0)
