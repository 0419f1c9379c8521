"""Any number of threads may read documents at once: ThreadSanitizer watches eight of them do so."""

import os
import pathlib

from building import INCLUDES, LANGUAGE, arguments, compile_all, core_sources, run, tool


def main():
    work = arguments(__doc__).work
    sanitize = [tool("g++"), "-O1", "-g", "-fsanitize=thread", *INCLUDES]
    objects = compile_all(core_sources(), work / "threads", [*sanitize, *LANGUAGE])
    program = work / "threads" / "threads"
    run([*sanitize, "-std=c++17", "-Wall", "-Wextra", pathlib.Path(__file__).with_name("threads.cpp"),
         *objects, "-pthread", "-o", program])
    print(run([program], env=dict(os.environ, TSAN_OPTIONS="halt_on_error=1")), end="")


main()
