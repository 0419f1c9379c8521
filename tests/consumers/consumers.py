"""Uses Varnel as its users do, each in a scratch project: consumers.py WORK RELEASE BUILD USE

`install` installs the libraries of RELEASE, in its folders `shared` and `static`, with the command and the Objective-C
class of BUILD into a prefix and moves that; every other use of an installed Varnel is of the moved one.
"""

import pathlib
import re
import shutil
import sys

from support import (HERE, ROOT, SAMPLES, Prefix, build_project, environment, expect, expect_passport, fail,
                     fresh, libraries_of, run, skip)

WORK, RELEASE, BUILD = (pathlib.Path(folder).resolve() for folder in sys.argv[1:4])
MOVED = WORK / "moved"
LIBC_ONLY = ["libc.so.6"]


INSPECT = r"""
#include <stdio.h>
#include <string.h>
#include <Varnel/documents.h>

int main(void) {
  const char *zone = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\n"
                     "L898902C36UTO7408122F1204159ZE184226B<<<<<10\n";
  static varnel_inspection inspection;
  varnel_inspect_options options = {2026, 1, 15, VARNEL_REPAIR_OFF};
  if (varnel_inspect(zone, strlen(zone), &options, &inspection) != ERR_OK) {
    return 1;
  }
  puts(varnel_layout_name(inspection.layout));
  return 0;
}
"""


def version():
    header = (ROOT / "include" / "Varnel" / "Varnel.h").read_text()
    return re.search(r'^#define VARNEL_VERSION "(.*)"$', header, re.MULTILINE).group(1)


def has_gnustep():
    return shutil.which("gnustep-config") is not None


# ---- the installed tree ---------------------------------------------------------------------------


def install_all(*options, env=None):
    for folder in (RELEASE / "static", RELEASE / "shared"):
        for component in ("library", "documents", "development"):
            run("cmake", "--install", folder, "--component", component, *options, env=env)
    for component in ("command", "foundation"):
        run("cmake", "--install", BUILD, "--component", component, *options, env=env)


def install():
    """Static and shared into one prefix, which is then moved and tells nothing of where it was made."""
    first = WORK / "first"
    fresh(WORK / "prefixes")
    shutil.rmtree(first, ignore_errors=True)
    shutil.rmtree(MOVED, ignore_errors=True)
    install_all("--prefix", first)
    first.rename(MOVED)
    places = [str(folder).encode() for folder in (first, ROOT / "src", RELEASE, BUILD)]
    for path in MOVED.rglob("*"):
        if path.is_file() and any(place in path.read_bytes() for place in places):
            fail(f"{path.relative_to(MOVED)} names the folder it was made in")


def installed_pages():
    """The pages that are installed link to what is installed with them."""
    for page in (MOVED / "share" / "doc" / "Varnel").rglob("*.md"):
        for link in re.findall(r"\]\(([^)#:]+)", page.read_text()):
            if not (page.parent / link).exists():
                fail(f"{page.relative_to(MOVED)} links to {link}, which is not installed")


def destdir():
    """DESTDIR is put before the prefix, in which nothing then appears."""
    prefix, staged = WORK / "prefixes" / "never", fresh(WORK / "staged")
    install_all("--prefix", prefix, env=environment(DESTDIR=staged))
    if prefix.exists():
        fail("files were installed beside DESTDIR")
    root = staged / prefix.relative_to("/")
    expect(sorted(str(path.relative_to(MOVED)) for path in MOVED.rglob("*")),
           sorted(str(path.relative_to(root)) for path in root.rglob("*")), "the staged files")


def absolute_folders():
    """Folders given as absolute paths are kept as they are."""
    folder, prefix = WORK / "build-absolute", WORK / "prefixes" / "absolute"
    shutil.rmtree(prefix, ignore_errors=True)
    run("cmake", "-S", ROOT, "-B", folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
        "-DVARNEL_BUILD_CLI=OFF", "-DVARNEL_BUILD_FACADE=OFF", "-DVARNEL_BUILD_DOCUMENTS=OFF",
        f"-DCMAKE_INSTALL_PREFIX={prefix}", f"-DCMAKE_INSTALL_LIBDIR={prefix}/libraries",
        f"-DCMAKE_INSTALL_INCLUDEDIR={prefix}/headers")
    run("cmake", "--build", folder, "-j2")
    run("cmake", "--install", folder)
    installed = Prefix(prefix)
    program = prefix / "passport"
    run("cc", SAMPLES / "passport.c", *installed.pkg_config("--cflags", "--libs", "varnel"), "-o", program)
    expect_passport(run(program))
    build = build_project("c_only", fresh(WORK / "absolute"), f"-DVarnel_DIR={prefix}/libraries/cmake/Varnel")
    expect_passport(run(build / "passport_c"))


def soname():
    """The shared library carries its major version, and both links lead to the file of the full version."""
    libraries = Prefix(MOVED).libraries
    major = version().split(".", maxsplit=1)[0]
    expect(re.findall(r"\(SONAME\).*\[(.*)\]", run("readelf", "--dynamic", libraries / "libvarnel.so")),
           [f"libvarnel.so.{major}"], "the name by which the loader knows the library")
    expect(libraries_of(libraries / "libvarnel.so"), LIBC_ONLY, "the libraries that the library needs")
    for link in ("libvarnel.so", f"libvarnel.so.{major}"):
        expect((libraries / link).resolve().name, f"libvarnel.so.{version()}", link)


def clean_source():
    """Configuring, building and installing leave nothing in the source tree."""
    source = fresh(WORK / "copy")
    for name in ("CMakeLists.txt", "LICENSE"):
        shutil.copy(ROOT / name, source)
    for name in ("cmake", "include", "src"):
        shutil.copytree(ROOT / name, source / name)

    def state():
        return sorted((str(path), path.stat().st_mtime_ns) for path in source.rglob("*") if not path.is_dir())

    before = state()
    folder = WORK / "build-copy"
    shutil.rmtree(folder, ignore_errors=True)
    run("cmake", "-S", source, "-B", folder, "-G", "Ninja", "-DVARNEL_BUILD_CLI=OFF",
        "-DVARNEL_BUILD_DOCUMENTS=OFF", "-DCMAKE_BUILD_TYPE=Debug")
    run("cmake", "--build", folder, "-j2")
    run("cmake", "--install", folder, "--prefix", fresh(WORK / "prefixes" / "copy"))
    expect(state(), before, "the source tree")


# ---- CMake projects -------------------------------------------------------------------------------


def find_package(*options):
    env = Prefix(MOVED).environment()
    build = build_project("find_package", fresh(WORK / "find_package"), *options, env=env)
    expect_passport(run(build / "passport_c", env=environment()))
    expect_passport(run(build / "passport_cpp", env=environment()))
    link = run("ninja", "-C", build, "-t", "commands", "passport_c").splitlines()[-1]
    if "++" in link.split(str(build.parent))[0]:
        fail(f"a program in C is linked by the C++ compiler: {link}")
    return libraries_of(build / "passport_c")


def find_package_static():
    expect(find_package("-DBUILD_SHARED_LIBS=OFF"), LIBC_ONLY, "the program's libraries")


def find_package_shared():
    expect(find_package("-DBUILD_SHARED_LIBS=ON"), ["libc.so.6", "libvarnel.so.1"], "the program's libraries")


def find_package_default():
    expect(find_package(), ["libc.so.6", "libvarnel.so.1"], "the program's libraries")


def c_only(component, libraries):
    folder = fresh(WORK / f"c_only-{component}")
    project = (HERE / "c_only" / "CMakeLists.txt").read_text()
    (folder / "CMakeLists.txt").write_text(project.replace("COMPONENTS static", f"COMPONENTS {component}"))
    shutil.copy(SAMPLES / "passport.c", folder)
    run("cmake", "-S", folder, "-B", folder / "build", "-G", "Ninja", env=Prefix(MOVED).environment())
    run("cmake", "--build", folder / "build")
    expect_passport(run(folder / "build" / "passport_c"))
    expect(libraries_of(folder / "build" / "passport_c"), libraries, "the program's libraries")


def c_only_static():
    c_only("static", LIBC_ONLY)


def c_only_shared():
    c_only("shared", ["libc.so.6", "libvarnel.so.1"])


def versions():
    """Asked for 1.0 it is found; for a later minor or another major version, or an unknown component, not."""
    env = Prefix(MOVED).environment()
    for wanted, is_found in (("1.0", True), ("1", True), ("", True), ("1.0.0 EXACT", True), ("2.0", False),
                             ("1.99", False), ("0.9", False), ("1.0 COMPONENTS static shared", True),
                             ("1.0 COMPONENTS shared documents", True), ("1.0 COMPONENTS swift", False)):
        folder = fresh(WORK / "versions")
        (folder / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.20)\nproject(asks LANGUAGES NONE)\n"
            f"find_package(Varnel {wanted} REQUIRED)\n")
        said = run("cmake", "-S", folder, "-B", folder / "build", env=env, fails=not is_found)
        if "swift" in wanted and "asked for: swift; installed here: static, shared, documents" not in said:
            fail(f"the refusal does not say why:\n{said}")
    # Where shared libraries alone are installed, asking for static ones says so.
    shared_only = fresh(WORK / "prefixes" / "shared_only")
    run("cmake", "--install", RELEASE / "shared", "--prefix", shared_only)
    folder = fresh(WORK / "versions")
    (folder / "CMakeLists.txt").write_text("cmake_minimum_required(VERSION 3.20)\nproject(asks LANGUAGES NONE)\n"
                                           "find_package(Varnel REQUIRED COMPONENTS static)\n")
    said = run("cmake", "-S", folder, "-B", folder / "build", env=Prefix(shared_only).environment(), fails=True)
    if "asked for: static; installed here: shared, documents" not in " ".join(said.split()):
        fail(f"the refusal does not say which are installed:\n{said}")


def add_subdirectory():
    folder = fresh(WORK / "add_subdirectory")
    (folder / "source").mkdir()
    (folder / "source" / "varnel").symlink_to(ROOT)
    build = build_project("add_subdirectory", folder)
    expect_passport(run(build / "passport_c"))
    expect(libraries_of(build / "passport_c"), LIBC_ONLY, "the program's libraries")
    said = run("cmake", "--install", build, "--prefix", fresh(WORK / "prefixes" / "parent"))
    if "Varnel" in said:
        fail(f"Varnel installs itself with a project that merely contains it:\n{said}")


def fetch_content():
    folder = fresh(WORK / "fetch_content")
    (folder / "source").mkdir()
    run("tar", "-czf", folder / "source" / "varnel-1.0.0.tar.gz", "--transform", "s,^,varnel-1.0.0/,",
        "-C", ROOT, "CMakeLists.txt", "cmake", "include", "src")
    build = build_project("fetch_content", folder, "-DVARNEL_BUILD_DOCUMENTS=OFF")
    expect_passport(run(build / "passport_cpp"))


# ---- compilers by hand ----------------------------------------------------------------------------


def documents():
    """The documents library, by CMake and by pkg-config, shared and static, from C and without the C++ compiler."""
    env, prefix = Prefix(MOVED).environment(), Prefix(MOVED)
    (fresh(WORK / "documents") / "inspect.c").write_text(INSPECT)
    for kind in ("static", "shared"):
        folder = WORK / "documents" / kind
        folder.mkdir()
        (folder / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.20)\nproject(asks LANGUAGES C)\n"
            f"find_package(Varnel 1.0 REQUIRED COMPONENTS {kind} documents)\n"
            "add_executable(inspect ../inspect.c)\ntarget_link_libraries(inspect Varnel::documents)\n")
        run("cmake", "-S", folder, "-B", folder / "build", "-G", "Ninja", env=env)
        run("cmake", "--build", folder / "build", env=env)
        # Without LD_LIBRARY_PATH: the documents library finds the core beside it.
        expect(run(folder / "build" / "inspect", env=environment()), "TD3\n",
               f"what a program over the {kind} library prints")
    program = by_hand("inspect", "cc", WORK / "documents" / "inspect.c",
                      *prefix.pkg_config("--cflags", "--libs", "varnel-documents"))
    expect(run(program, env=env), "TD3\n", "what a program built by pkg-config's flags prints")


def by_hand(name, *command, env=None):
    program = WORK / name
    run(*command, "-o", program, env=env)
    return program


def pkg_config_c():
    prefix = Prefix(MOVED)
    expect(prefix.pkg_config("--modversion", "varnel"), [version()], "the version")
    program = by_hand("pkg_config_c", "cc", "-std=c99", "-Wall", "-Wextra", "-Werror", SAMPLES / "passport.c",
                      *prefix.pkg_config("--cflags", "--libs", "varnel"))
    expect_passport(run(program, env=prefix.environment()))


def pkg_config_cpp():
    prefix = Prefix(MOVED)
    program = by_hand("pkg_config_cpp", "c++", "-std=c++17", "-Wall", "-Wextra", "-Werror",
                      SAMPLES / "passport.cpp", *prefix.pkg_config("--cflags", "--libs", "varnel"))
    expect_passport(run(program, env=prefix.environment()))


def pkg_config_objc():
    if not has_gnustep():
        skip("gnustep-config is not found (Debian: gobjc libgnustep-base-dev gnustep-make)")
    prefix = Prefix(MOVED)
    flags = [flag for flag in run("gnustep-config", "--objc-flags").split() if flag not in ("-MMD", "-MP")]
    program = by_hand("pkg_config_objc", "gcc", "-std=gnu99", *flags, SAMPLES / "passport.m",
                      *prefix.pkg_config("--cflags", "--libs", "varnel-foundation"),
                      *run("gnustep-config", "--base-libs").split())
    expect_passport(run(program, env=prefix.environment()), ordered=False)


def plain_cc():
    """The static library by its name alone: no other library, no flag."""
    prefix = Prefix(MOVED)
    program = by_hand("plain_cc", "cc", f"-I{prefix.folder / 'include'}", SAMPLES / "passport.c",
                      prefix.libraries / "libvarnel.a")
    expect_passport(run(program))
    expect(libraries_of(program), LIBC_ONLY, "the program's libraries")


def c_samples():
    """Every sample in C: strict C99 without a warning, and the output beside it."""
    prefix = Prefix(MOVED)
    sources = sorted(SAMPLES.glob("*.c"))
    if len(sources) < 3:
        fail(f"{len(sources)} samples in C")
    for source in sources:
        strict = ("-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror")
        program = by_hand(f"sample_{source.stem}", "cc", *strict, f"-I{prefix.folder / 'include'}", source,
                          prefix.libraries / "libvarnel.a")
        expect(run(program), source.with_suffix(".out").read_text(), source.name)


# ---- no compiler ----------------------------------------------------------------------------------


def ctypes():
    env = Prefix(MOVED).environment()
    expect_passport(run(sys.executable, "-B", SAMPLES / "passport.py", env=env))
    texts = "'no zone', '', '\\u00e9\\udfff'"
    refused = f"import passport; print([passport.parse_mrz(text) for text in ({texts})])"
    expect(run(sys.executable, "-B", "-c", refused, env=env, cwd=SAMPLES), "[None, None, None]\n", "refusals")


def shell():
    env = Prefix(MOVED).environment()
    for sample, output in (("passport.sh", "passport.json"), ("documents.sh", "documents.out")):
        expect(run("sh", SAMPLES / sample, env=env), (SAMPLES / output).read_text(), sample)


def swift():
    """A package of the sample alone, which takes Varnel from the source tree's Package.swift."""
    if sys.platform != "darwin" or shutil.which("swift") is None:
        skip("no Swift compiler that knows Objective-C: the Swift sample is not compiled here")
    folder = fresh(WORK / "swift")
    (folder / "Sources" / "passport").mkdir(parents=True)
    shutil.copy(SAMPLES / "passport.swift", folder / "Sources" / "passport" / "main.swift")
    (folder / "Package.swift").write_text(f"""// swift-tools-version:5.5
import PackageDescription
let package = Package(name: "passport", dependencies: [.package(name: "Varnel", path: "{ROOT}")],
  targets: [.executableTarget(name: "passport", dependencies: ["Varnel"])])
""")
    run("swift", "build", "--package-path", folder)
    expect_passport(run(folder / ".build" / "debug" / "passport"), ordered=False)


if __name__ == "__main__":
    globals()[sys.argv[4]]()
