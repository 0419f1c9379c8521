"""A framework as it was cross-built for one architecture: bundle, library, symbols, classes, headers.

Nothing of it is run: this says that it compiles and links, and how the result is built.
"""

import argparse
import plistlib
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
VERSION_HEADER = ROOT / "include" / "Varnel" / "Varnel.h"

# For each framework: where its C functions are listed, one of them, its class with its methods, its categories
# of NSString, and the frameworks that it is linked to.
FRAMEWORKS = {
    "Varnel": {
        "functions": "tests/abi/exported-symbols.txt",
        "known": "normalize_mrz",
        "class": "Varnel",
        "methods": ["parseMRZStringForDictionary:", "parseResult:", "getValueForKey:inResult:"],
        "category methods": ["parseMRZStringForDict"],
        "libraries": [],
    },
    "VarnelDocuments": {
        "functions": "include/Varnel/documents",
        "known": "varnel_inspect",
        "class": "VarnelInspector",
        "methods": ["inspect:", "inspect:date:repair:"],
        "category methods": [],
        "libraries": ["@rpath/Varnel.framework/Varnel"],
    },
}

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


def public_headers(folder):
    """The headers of a framework: those of the C interface of Varnel Documents belong to none."""
    names = {str(path.relative_to(folder)) for path in folder.rglob("*.h")}
    return {name for name in names if not name.startswith("documents")}


def version():
    return re.search(r'^#define VARNEL_VERSION "(.*)"$', VERSION_HEADER.read_text(), re.MULTILINE)[1]


def functions(facts):
    """The C functions of a framework: from a list, or from the declarations of a folder of headers."""
    source = ROOT / facts["functions"]
    if source.is_dir():
        text = "".join(path.read_text() for path in sorted(source.glob("*.h")))
        names = re.findall(r"^VARNEL_DOCUMENTS_API\b[^;(]*?(\w+)\(", text, re.MULTILINE)
    else:
        names = source.read_text().split()
    if facts["known"] not in names:
        sys.exit(f"{facts['functions']} does not list the exported functions")
    return {f"_{name}" for name in names}


def check_bundle(framework, name):
    """The library, its headers, a module map and an Info.plist; no resources of any kind."""
    headers = ROOT / "include" / name
    found = {str(path.relative_to(framework)) for path in framework.rglob("*") if not path.is_dir()}
    expected = {name, "Info.plist", "Modules/module.modulemap"}
    expect_same_names("bundle", found, expected | {f"Headers/{header}" for header in public_headers(headers)})
    for header in sorted(public_headers(headers)):
        expect(f"Headers/{header} is that of the sources",
               (framework / "Headers" / header).read_bytes() == (headers / header).read_bytes(), True)


def check_info(framework, name, platform):
    with open(framework / "Info.plist", "rb") as file:
        info = plistlib.load(file)
    expect("Info.plist", info, {
        "CFBundleDevelopmentRegion": "en",
        "CFBundleExecutable": name,
        "CFBundleIdentifier": f"org.varnel.{name}",
        "CFBundleInfoDictionaryVersion": "6.0",
        "CFBundleName": name,
        "CFBundlePackageType": "FMWK",
        "CFBundleShortVersionString": version(),
        "CFBundleSupportedPlatforms": [platform],
        "CFBundleVersion": version(),
        "MinimumOSVersion": "9.0",
    })


def check_library(objdump, library, name, processor, minimum_command, minimum_os):
    header = output_of(objdump, "--macho", "--private-header", library).split("\n")[-2].split()
    expect("processor", header[1], processor)
    expect("file type", header[4], "DYLIB")
    commands = output_of(objdump, "--macho", "--private-headers", library)
    loads = re.findall(r"cmd (LC_\w+)\n(.*?)(?=Load command|\Z)", commands, re.DOTALL)

    def those(command):
        return [body for name, body in loads if name == command]

    names = [re.search(r"name (\S+)", body)[1] for body in those("LC_ID_DYLIB")]
    expect("install name", names, [f"@rpath/{name}.framework/{name}"])
    expect("current version", re.findall(r"current version (\S+)", those("LC_ID_DYLIB")[0]), [version()])
    expect("load command of the minimum OS",
           [name for name, _ in loads if name in ("LC_VERSION_MIN_IPHONEOS", "LC_BUILD_VERSION")],
           [minimum_command])
    minimum = re.search(r"(?:version|minos) ([\d.]+)", "".join(those(minimum_command)))
    expect("minimum OS", minimum and minimum[1], minimum_os)
    libraries = [re.search(r"name (\S+)", body)[1] for body in those("LC_LOAD_DYLIB")]
    expect("libraries", sorted(libraries), sorted(LIBRARIES + FRAMEWORKS[name]["libraries"]))
    expect("own search paths", those("LC_RPATH"), [])
    expect("code that runs when the library is loaded", "__mod_init_func" in commands, False)


def check_symbols(nm, library, facts):
    # What Objective-C adds to the exported C symbols.
    of_class = {f"_OBJC_CLASS_$_{facts['class']}", f"_OBJC_METACLASS_$_{facts['class']}"}
    lines = output_of(nm, "--extern-only", "--defined-only", "--format=just-symbols", library)
    expect_same_names("exported symbols", set(lines.split()), functions(facts) | of_class)


def section(text, name):
    found = re.search(rf"Contents of \(__DATA\w*,{name}\) section\n(.*?)(?=Contents of|\Z)", text, re.DOTALL)
    return found[1] if found else ""


def check_classes(objdump, library, facts):
    text = output_of(objdump, "--macho", "--objc-meta-data", library)
    classes = section(text, "__objc_classlist")
    instance_side = classes.split("Meta Class")[0]
    expect("classes", re.findall(r"^[0-9a-f]+ 0x\w+ (\S+)", classes, re.MULTILINE),
           [f"_OBJC_CLASS_$_{facts['class']}"])
    expect("superclass", re.findall(r"superclass \S+ (\S+)", instance_side), ["_OBJC_CLASS_$_NSObject"])
    expect("methods", re.findall(rf"imp -\[{facts['class']} (\S+)\]", instance_side), facts["methods"])
    expect("instance variables", re.findall(r"ivars (\S+)", instance_side), ["0x0"])
    categories = section(text, "__objc_catlist")
    expect("categories", re.findall(r"^[0-9a-f]+ 0x\w+ (\S+)", categories, re.MULTILINE),
           ["__OBJC_$_CATEGORY_NSString_$_Varnel"] if facts["category methods"] else [])
    expect("category methods", re.findall(r"imp -\[NSString\(Varnel\) (\S+)\]", categories),
           facts["category methods"])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--slice", required=True, choices=SLICES)
    parser.add_argument("--objdump", required=True)
    parser.add_argument("--nm", required=True)
    parser.add_argument("framework", type=Path)
    arguments = parser.parse_args()
    processor, minimum_command, minimum_os, platform = SLICES[arguments.slice]
    name = arguments.framework.stem
    library = str(arguments.framework / name)

    check_bundle(arguments.framework, name)
    check_info(arguments.framework, name, platform)
    check_library(arguments.objdump, library, name, processor, minimum_command, minimum_os)
    check_symbols(arguments.nm, library, FRAMEWORKS[name])
    check_classes(arguments.objdump, library, FRAMEWORKS[name])
    for failure in failures:
        print(failure, file=sys.stderr)
    sys.exit(1 if failures else 0)


main()
