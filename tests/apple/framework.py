"""Varnel.framework as it was cross-built for one architecture: bundle, library, symbols, classes, headers.

Nothing of it is run: this says that it compiles and links, and how the result is built.
"""

import argparse
import plistlib
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
HEADERS = ROOT / "include" / "Varnel"
MANIFEST = ROOT / "abi" / "exported-symbols.txt"

# What Objective-C adds to the exported C symbols.
CLASS_SYMBOLS = {"_OBJC_CLASS_$_Varnel", "_OBJC_METACLASS_$_Varnel"}
CLASS_METHODS = ["parseMRZStringForDictionary:", "parseResult:", "getValueForKey:inResult:"]
CATEGORY_METHODS = ["parseMRZStringForDict"]

# architecture, environment -> processor, load command of the minimum OS, that OS
SLICES = {
    "arm64-device": ("ARM64", "LC_VERSION_MIN_IPHONEOS", "9.0", "iPhoneOS"),
    "x86_64-simulator": ("X86_64", "LC_VERSION_MIN_IPHONEOS", "9.0", "iPhoneSimulator"),
    "arm64-simulator": ("ARM64", "LC_BUILD_VERSION", "14.0", "iPhoneSimulator"),  # none is older
}

LIBRARIES = [
    "/System/Library/Frameworks/Foundation.framework/Foundation",
    "/usr/lib/libSystem.B.dylib",
    "/usr/lib/libobjc.A.dylib",
]

failures = []


def expect(what, actual, expected):
    if actual != expected:
        failures.append(f"{what}: {actual!r}, expected {expected!r}")


def expect_same_names(what, actual, expected):
    for name in sorted(expected - actual):
        failures.append(f"{what}: {name} is missing")
    for name in sorted(actual - expected):
        failures.append(f"{what}: {name} is one too many")


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def public_headers():
    return {str(path.relative_to(HEADERS)) for path in HEADERS.rglob("*.h")}


def version():
    return re.search(r'^#define VARNEL_VERSION "(.*)"$', (HEADERS / "Varnel.h").read_text(), re.MULTILINE)[1]


def manifest():
    names = {f"_{name}" for name in MANIFEST.read_text().split()}
    if "_normalize_mrz" not in names:
        sys.exit(f"{MANIFEST.name} does not read like the list of exported symbols")
    return names


def check_bundle(framework):
    """The library, its headers, a module map and an Info.plist; no resources of any kind."""
    found = {str(path.relative_to(framework)) for path in framework.rglob("*") if not path.is_dir()}
    expected = {"Varnel", "Info.plist", "Modules/module.modulemap"}
    expect_same_names("bundle", found, expected | {f"Headers/{header}" for header in public_headers()})
    for header in sorted(public_headers()):
        expect(f"Headers/{header} is that of the sources",
               (framework / "Headers" / header).read_bytes() == (HEADERS / header).read_bytes(), True)


def check_info(framework, platform):
    with open(framework / "Info.plist", "rb") as file:
        info = plistlib.load(file)
    expect("Info.plist", info, {
        "CFBundleDevelopmentRegion": "en",
        "CFBundleExecutable": "Varnel",
        "CFBundleIdentifier": "org.varnel.Varnel",
        "CFBundleInfoDictionaryVersion": "6.0",
        "CFBundleName": "Varnel",
        "CFBundlePackageType": "FMWK",
        "CFBundleShortVersionString": version(),
        "CFBundleSupportedPlatforms": [platform],
        "CFBundleVersion": version(),
        "MinimumOSVersion": "9.0",
    })


def check_library(objdump, library, processor, minimum_command, minimum_os):
    header = output_of(objdump, "--macho", "--private-header", library).split("\n")[-2].split()
    expect("processor", header[1], processor)
    expect("file type", header[4], "DYLIB")
    commands = output_of(objdump, "--macho", "--private-headers", library)
    loads = re.findall(r"cmd (LC_\w+)\n(.*?)(?=Load command|\Z)", commands, re.DOTALL)

    def those(command):
        return [body for name, body in loads if name == command]

    names = [re.search(r"name (\S+)", body)[1] for body in those("LC_ID_DYLIB")]
    expect("install name", names, ["@rpath/Varnel.framework/Varnel"])
    expect("current version", re.findall(r"current version (\S+)", those("LC_ID_DYLIB")[0]), [version()])
    expect("load command of the minimum OS",
           [name for name, _ in loads if name in ("LC_VERSION_MIN_IPHONEOS", "LC_BUILD_VERSION")],
           [minimum_command])
    minimum = re.search(r"(?:version|minos) ([\d.]+)", "".join(those(minimum_command)))
    expect("minimum OS", minimum and minimum[1], minimum_os)
    libraries = [re.search(r"name (\S+)", body)[1] for body in those("LC_LOAD_DYLIB")]
    expect("libraries", sorted(libraries), LIBRARIES)
    expect("own search paths", those("LC_RPATH"), [])
    expect("code that runs when the library is loaded", "__mod_init_func" in commands, False)


def check_symbols(nm, library):
    lines = output_of(nm, "--extern-only", "--defined-only", "--format=just-symbols", library)
    expect_same_names("exported symbols", set(lines.split()), manifest() | CLASS_SYMBOLS)


def section(text, name):
    found = re.search(rf"Contents of \(__DATA\w*,{name}\) section\n(.*?)(?=Contents of|\Z)", text, re.DOTALL)
    return found[1] if found else ""


def check_classes(objdump, library):
    text = output_of(objdump, "--macho", "--objc-meta-data", library)
    classes = section(text, "__objc_classlist")
    instance_side = classes.split("Meta Class")[0]
    expect("classes", re.findall(r"^[0-9a-f]+ 0x\w+ (\S+)", classes, re.MULTILINE), ["_OBJC_CLASS_$_Varnel"])
    expect("superclass", re.findall(r"superclass \S+ (\S+)", instance_side), ["_OBJC_CLASS_$_NSObject"])
    expect("methods", re.findall(r"imp -\[Varnel (\S+)\]", instance_side), CLASS_METHODS)
    expect("instance variables", re.findall(r"ivars (\S+)", instance_side), ["0x0"])
    categories = section(text, "__objc_catlist")
    expect("categories", re.findall(r"^[0-9a-f]+ 0x\w+ (\S+)", categories, re.MULTILINE),
           ["__OBJC_$_CATEGORY_NSString_$_Varnel"])
    expect("category methods", re.findall(r"imp -\[NSString\(Varnel\) (\S+)\]", categories), CATEGORY_METHODS)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--slice", required=True, choices=SLICES)
    parser.add_argument("--objdump", required=True)
    parser.add_argument("--nm", required=True)
    parser.add_argument("framework", type=Path)
    arguments = parser.parse_args()
    processor, minimum_command, minimum_os, platform = SLICES[arguments.slice]
    library = str(arguments.framework / "Varnel")

    check_bundle(arguments.framework)
    check_info(arguments.framework, platform)
    check_library(arguments.objdump, library, processor, minimum_command, minimum_os)
    check_symbols(arguments.nm, library)
    check_classes(arguments.objdump, library)
    for failure in failures:
        print(failure, file=sys.stderr)
    sys.exit(1 if failures else 0)


main()
