#!/usr/bin/env python3
"""Plants a fault for each gate in a copy of the project and shows that the gate fails, and why.

    tests/gates/planted_faults.py [GATE...]

A gate that passes is reported, and the exit code is 1. The table of CONTRIBUTING.md tells the same.
"""

import sys

sys.dont_write_bytecode = True

import contextlib
import dataclasses
import pathlib
import re
import shutil
import subprocess

from building import ROOT, TEST_DEFINES, TEST_INCLUDES, fail, linker, tool

COPY = ROOT / "build" / "planted" / "copy"
WORK = ROOT / "build" / "planted" / "work"
LEFT_OUT = ("build", "out", "cli", ".git", "__pycache__")  # the command is not needed to make a gate fail


@dataclasses.dataclass
class Fault:
    gate: str
    what: str  # in words
    file: str
    find: str  # a regular expression; empty: the fault goes to the end of the file
    put: str
    says: str  # what the gate has to say, as a regular expression


def body_of(function):
    """Finds where the body of a function of the core begins."""
    return rf"(?<=\n)[\w *]*\b{function}\([^)]*\) {{"


FAULTS = [
    Fault("exported_symbols", "an export that the manifest does not list", "src/patterns.cpp", "",
          'extern "C" __attribute__((visibility("default"))) int varnel_planted() { return 1; }\n',
          "new: +varnel_planted(.|\n)*the exported symbols differ"),
    Fault("exported_symbols", "an empty manifest", "tests/abi/exported-symbols.txt", r"(.|\n)*", "",
          "exported-symbols.txt lists nothing"),
    Fault("exported_symbols", "a declaration without its function", "include/Varnel/utils.h",
          r"(?=VARNEL_END_DECLS)", "VARNEL_API int utils_planted(int c);\n",
          "new: +utils_planted(.|\n)*the declarations in include/Varnel differ"),
    Fault("imports", "a call to the C library outside the list", "src/patterns.cpp", "",
          "#include <stdlib.h>\nbool planted() { return getenv(\"PLANTED\") != nullptr; }\n",
          "imports getenv: not in tests/abi/allowed-imports.txt"),
    Fault("interposition", "a table read where callers see it", "src/mrz/mrz_common.cpp", r"weights\[0\]",
          "static_cast<unsigned>(MRZ_WEIGHTS[position % 3])", "libvarnel.so reads MRZ_WEIGHTS where the program says"),
    Fault("sections", "a counter that outlives the call", "src/patterns.cpp", "",
          "int planted_calls = 0;\nint planted() { return ++planted_calls; }\n",
          r"patterns.cpp.o has 4 bytes in .bss"),
    Fault("sections", "a table of pointers", "src/patterns.cpp", "",
          'extern const char *const planted[];\nconst char *const planted[] = {"one", "two"};\n',
          r"patterns.cpp.o has 16 bytes in .data.rel.ro"),
    Fault("stack", "a large frame", "src/patterns.cpp", "",
          "int planted(int i) { volatile char room[4000]; room[i] = 1; return room[i / 2]; }\n",
          r"the frame of \w*planted\w* has \d+ bytes, more than 1280"),
    Fault("stack", "a frame as large as its argument", "src/patterns.cpp", "",
          "int planted(int n) { volatile char *room = static_cast<char *>(__builtin_alloca(n)); room[0] = 1; "
          "return room[0]; }\n", r"the frame of \w*planted\w* is dynamic: its size depends"),
    Fault("stack", "a function that calls itself", "src/patterns.cpp", "",
          "int planted(int n) { return n < 2 ? n : planted(n - 1) + planted(n - 2); }\n", "recursion: .*planted"),
    Fault("size", "a large table", "src/patterns.cpp", "",
          "extern const char planted[32768];\nconst char planted[32768] = {1};\n", "more than "),
    Fault("abi", "one member more in a record", "include/Varnel/defines.h", r"int sec;", "int sec; int zone;",
          "the binary interface differs"),
    Fault("abi", "another type of a parameter", "include/Varnel/patterns.h", r"pattern_is_w\(int c\)",
          "pattern_is_w(long c)", "the binary interface differs"),
    Fault("layout", "one member more in a record", "include/Varnel/defines.h", r"int sec;", "int sec; int zone;",
          "static assertion failed.*DATETIME"),
    Fault("installed_files", "one header more", "include/Varnel/planted.h", "", "/* planted */\n",
          "new: +include/Varnel/planted.h(.|\n)*the installed files differ"),
    Fault("imports", "memory from the heap", "src/record/slots.cpp", body_of("utils_is_valid_field"),
          r"\g<0> void *volatile planted = __builtin_malloc(1); __builtin_free(planted);",
          "imports free, malloc: not in tests/abi/allowed-imports.txt"),
    Fault("imports", "a letter as the C library sees it", "src/patterns.cpp", body_of("pattern_is_w"),
          r"\g<0> if (__builtin_isalpha(c)) { return 1; }", "imports isalpha: not in"),
    Fault("sections", "a counter that all threads share", "src/Varnel.cpp", body_of("varnel_parse_mrz"),
          r"\g<0> static int planted = 0; ++planted;", "Varnel.cpp.o has 4 bytes in .bss"),
    Fault("exported_symbols", "an export of the documents library that its manifest does not list",
          "src/documents/states.cpp", "",
          'extern "C" __attribute__((visibility("default"))) int varnel_planted() { return 1; }\n',
          "new: +varnel_planted(.|\n)*differ from tests/abi/documents/exported-symbols.txt"),
    Fault("imports", "a call to the C library in the documents library", "src/documents/states.cpp", "",
          "#include <stdlib.h>\nbool planted() { return getenv(\"PLANTED\") != nullptr; }\n",
          "imports getenv: not in tests/abi/documents/allowed-imports.txt"),
    Fault("sections", "a counter in the documents library", "src/documents/states.cpp", "",
          "int planted_calls = 0;\nint planted() { return ++planted_calls; }\n", "states.cpp.o has 4 bytes in .bss"),
    Fault("stack", "a large frame in the documents library", "src/documents/states.cpp", "",
          "int planted(int i) { volatile char room[40000]; room[i] = 1; return room[i / 2]; }\n",
          r"the frame of \w*planted\w* has \d+ bytes"),
    Fault("size", "a large table in the documents library", "src/documents/states.cpp", "",
          "extern const char planted[262144];\nconst char planted[262144] = {1};\n", "more than "),
    Fault("abi", "one member more in a record of the documents library", "include/Varnel/documents/inspect.h",
          r"int repair; ", "int repair; int zone; ", "differs from tests/abi/documents/varnel_documents.abi"),
    Fault("one_direction", "a private header of the documents library in the core", "src/patterns.cpp", r"\A",
          '#include "documents/states.hpp"\n', "src/patterns.cpp includes documents/states.hpp"),
    Fault("one_direction", "a core that knows whether the documents library is built", "src/CMakeLists.txt",
          r"(?=if\(VARNEL_BUILD_DOCUMENTS\))",
          "target_compile_options(varnel PRIVATE $<$<BOOL:${VARNEL_BUILD_DOCUMENTS}>:-O1>)\n",
          "differs when the documents library is built"),
    Fault("compiler_warnings", "a function that nobody calls", "src/patterns.cpp", "",
          "static int planted() { return 0; }\n", "planted.*unused|unused function"),
    Fault("clang_tidy", "a branch without braces", "src/patterns.cpp", "",
          "int planted(int c);\nint planted(int c) {\n  if (c > 0)\n    return 1;\n  return 2;\n}\n",
          "readability-braces-around-statements"),
    Fault("cppcheck", "a write past an array", "src/patterns.cpp", "",
          "int planted() {\n  int two[2] = {1, 2};\n  two[2] = 3;\n  return two[0];\n}\n", "arrayIndexOutOfBounds"),
    Fault("unsigned_char", "a character taken as the compiler's char", "src/view.hpp",
          r"static_cast<signed char>\(c\)", "c", "with -funsigned-char these unit tests fail"),
    Fault("32_bit", "a size that holds for 64 bits only", "src/record/slots.cpp",
          body_of("utils_is_valid_field"), r"\g<0> if (sizeof(FIELD) != 16) { return 7; }",
          "with -m32 these unit tests fail"),
    Fault("memcheck", "a value that was never set", "src/record/slots.cpp", body_of("utils_is_valid_field"),
          r"\g<0> int *planted = static_cast<int *>(__builtin_malloc(4)); if (*planted == 42) { return 7; }",
          "uninitialised"),
]

SCRIPTS = {"clang_tidy": ("static_analysis", "--clang-tidy"), "cppcheck": ("static_analysis", "--cppcheck"),
           "unsigned_char": ("unit_tests", "--unsigned-char"), "32_bit": ("unit_tests", "--32-bit")}
OF_THE_RELEASE = {"exported_symbols", "imports", "interposition", "sections", "stack", "size", "abi",
                  "installed_files", "one_direction"}


def copy_project():
    shutil.rmtree(COPY, ignore_errors=True)
    shutil.copytree(ROOT, COPY, copy_function=shutil.copy, ignore=lambda folder, names: LEFT_OUT if pathlib.Path(folder) == ROOT else ())


@contextlib.contextmanager
def planted(fault):
    """The copy with the fault; it is as it was afterwards, so that little of it is built anew for the next."""
    path = COPY / fault.file
    text = path.read_text() if path.exists() else None
    changed, count = re.subn(fault.find, fault.put, text, count=1) if fault.find else ((text or "") + "\n" + fault.put, 1)
    if count != 1:
        fail(f"{fault.file} has no place for: {fault.what}")
    path.write_text(changed)
    try:
        yield
    finally:
        path.unlink() if text is None else path.write_text(text)


def run_script(script, *options):
    done = subprocess.run([sys.executable, str(COPY / "tests" / "gates" / f"{script}.py"), "--work", str(WORK),
                           *options], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")
    return done.returncode, done.stdout


def record_program():
    """The unit tests of the record over the planted core: something for valgrind to run."""
    program = WORK / "record"
    sources = [*(COPY / "src").rglob("*.cpp"), *(COPY / "tests" / "reference").glob("*.cpp"),
               COPY / "tests" / "unit" / "record_test.cpp"]
    moved = [str(part).replace(str(ROOT), str(COPY)) for part in (*TEST_INCLUDES, *TEST_DEFINES)]
    subprocess.run([tool("g++"), "-std=c++17", "-w", "-O0", linker(), *moved, *map(str, sources), "-lgtest_main",
                    "-lgtest", "-pthread", "-o", str(program)], check=True)
    return program


def run_gate(fault):
    if fault.gate == "memcheck":
        return run_script("memcheck", str(record_program()))
    if fault.gate in OF_THE_RELEASE:
        status, said = run_script("release_build")
        if status != 0:
            return 0, f"the planted core does not build:\n{said}"
    return run_script(*SCRIPTS.get(fault.gate, (fault.gate,)))


def main():
    known = {fault.gate for fault in FAULTS}
    asked = [name.removeprefix("gate.") for name in sys.argv[1:]]
    if not known.issuperset(asked):
        print("usage: planted_faults.py [GATE...]; the gates: " + ", ".join(sorted(known)), file=sys.stderr)
        return 2
    chosen = [fault for fault in FAULTS if fault.gate in asked or not asked]
    passing = 0
    copy_project()
    WORK.mkdir(parents=True, exist_ok=True)
    for fault in chosen:
        with planted(fault):
            status, said = run_gate(fault)
        has_failed = status != 0 and re.search(fault.says, said) is not None
        passing += 0 if has_failed else 1
        last = said.strip().splitlines()[-1:] or [""]
        print(f"{'fails' if has_failed else 'PASSES':6} {fault.gate:18} {fault.what}\n      {last[0][:150]}", flush=True)
        if not has_failed:
            print(said[-3000:])
    return 1 if passing else 0


sys.exit(main())
