"""The core compiles under gcc and clang, optimised, without one warning."""

from building import INCLUDES, LANGUAGE, arguments, compile_all, core_sources, tool

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Wconversion", "-Werror"]


def main():
    work = arguments(__doc__).work
    for compiler in (tool("g++"), tool("clang++")):
        made = compile_all(core_sources(), work / "warnings" / compiler,
                           [compiler, *LANGUAGE, *INCLUDES, *WARNINGS, "-O2"])
        print(f"{compiler}: {len(made)} sources without a warning")


main()
