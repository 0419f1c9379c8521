"""Builds the release that the other gates look at, shared and static, and installs it to a scratch prefix."""

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


def environment():
    """The caller's environment without flags of its own."""
    return {name: value for name, value in os.environ.items()
            if name not in ("CFLAGS", "CXXFLAGS", "LDFLAGS", "CC", "CXX")}


def main():
    args = arguments(__doc__, (("--command-build",), {"type": pathlib.Path, "help": "where the command was built"}))
    work = args.work
    build(work / "shared", "-DBUILD_SHARED_LIBS=ON")
    build(work / "static", "-DBUILD_SHARED_LIBS=OFF")
    shutil.rmtree(work / "prefix", ignore_errors=True)
    for folder in ("static", "shared"):
        run(["cmake", "--install", work / folder, "--prefix", work / "prefix"])
    if args.command_build:
        run(["cmake", "--install", args.command_build, "--prefix", work / "prefix", "--component", "command"])


if __name__ == "__main__":
    main()
