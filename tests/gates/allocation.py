"""No exported function allocates or frees memory: each is called with the malloc family intercepted."""

import pathlib

from building import INCLUDES, arguments, compare, fail, run, shared_library, symbols, tool


def main():
    work = arguments(__doc__).work
    library = shared_library(work)
    program = work / "allocation"
    run([tool("g++"), "-std=c++17", "-O0", "-Wall", "-Wextra", "-fno-builtin", *INCLUDES,
         pathlib.Path(__file__).with_name("allocation.cpp"), library, f"-Wl,-rpath,{library.parent}",
         "-o", program])
    functions = {name for name, kind in symbols(library, "-D", "--defined-only") if kind == "T"}
    compare(functions, run([program, "--list"]).split(), "the exported ones", "the functions called")
    print(run([program]), end="")


main()
