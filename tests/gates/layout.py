"""The records of the interface are laid out as layout.c says, for 32- and 64-bit pointers."""

import pathlib

from building import INCLUDES, arguments, run, tool


def main():
    arguments(__doc__)
    source = pathlib.Path(__file__).with_name("layout.c")
    for width in ("-m64", "-m32"):
        for compiler in (tool("gcc"), tool("clang")):
            run([compiler, width, "-std=c11", "-Wall", "-Wextra", "-Wpedantic", "-Werror", *INCLUDES,
                 "-fsyntax-only", source])
    print("the layout is as stated for 32- and 64-bit pointers, under gcc and clang")


main()
