"""Builds the release that the other gates look at, shared and static, and installs it to a scratch prefix. A build that
has the static libraries of a release, or the command, need not be made again."""

import os
import pathlib
import shutil

from building import ROOT, arguments, run, tool

# Neither debug information nor the two reports of gcc changes the code that is made.
REPORTS = f"-g -fdebug-prefix-map={ROOT}=. -fstack-usage -fcallgraph-info=su"


def build(folder, *options):
    run(["cmake", "-S", ROOT, "-B", folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
         f"-DCMAKE_C_COMPILER={tool('gcc')}", f"-DCMAKE_CXX_COMPILER={tool('g++')}",
         f"-DCMAKE_CXX_FLAGS={REPORTS}", "-DCMAKE_C_FLAGS=", "-DCMAKE_INSTALL_LIBDIR=lib",
         "-DVARNEL_BUILD_TESTS=OFF", "-DVARNEL_BUILD_CLI=OFF", "-DVARNEL_BUILD_FACADE=OFF", *options], env=environment())
    run(["cmake", "--build", folder, "-j2"], env=environment())


def install(folder, prefix, component):
    run(["cmake", "--install", folder, "--prefix", prefix, "--component", component])


def environment():
    """The caller's environment without flags of its own."""
    return {name: value for name, value in os.environ.items()
            if name not in ("CFLAGS", "CXXFLAGS", "LDFLAGS", "CC", "CXX")}


def main():
    args = arguments(__doc__,
                     (("--static-build",), {"type": pathlib.Path, "help": "where static libraries were built"}),
                     (("--command-build",), {"type": pathlib.Path, "help": "where the command was built"}))
    work = args.work
    build(work / "shared", "-DBUILD_SHARED_LIBS=ON")
    static = work / "static"
    if static.is_symlink():
        static.unlink()
    if args.static_build:
        shutil.rmtree(static, ignore_errors=True)
        static.symlink_to(args.static_build)
    else:
        build(static, "-DBUILD_SHARED_LIBS=OFF")
    shutil.rmtree(work / "prefix", ignore_errors=True)
    for folder in (static, work / "shared"):
        for component in ("library", "documents", "development"):
            install(folder, work / "prefix", component)
    if args.command_build:
        install(args.command_build, work / "prefix", "command")


if __name__ == "__main__":
    main()
