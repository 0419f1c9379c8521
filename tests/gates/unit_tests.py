"""The core and its unit tests, built otherwise, still pass: with `char` unsigned, as on some processors
(--unsigned-char), or for 32-bit pointers (--32-bit)."""

import concurrent.futures
import pathlib
import subprocess

from building import (JOBS, LANGUAGE, INCLUDES, TEST_DEFINES, TEST_INCLUDES, arguments, compile_all,
                      core_sources, fail, linker, reference_sources, run, tool, unit_test_sources)

GOOGLETEST = pathlib.Path("/usr/src/googletest/googletest")


def googletest(folder, command):
    """GoogleTest's own sources, built in the same way as the tests: Debian's package carries them."""
    if not GOOGLETEST.exists():
        fail("the sources of GoogleTest are not installed: Debian's package googletest brings them")
    sources = [GOOGLETEST / "src" / "gtest-all.cc", GOOGLETEST / "src" / "gtest_main.cc"]
    return compile_all(sources, folder, [*command, f"-I{GOOGLETEST}"])


def passes(program):
    done = subprocess.run([program, "--gtest_brief=1"], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, errors="replace")
    if done.returncode != 0:
        print(done.stdout)
    return done.returncode == 0


def main():
    args = arguments(__doc__, (("--unsigned-char",), {"action": "store_true"}),
                     (("--32-bit",), {"action": "store_true", "dest": "narrow"}))
    way = "32-bit" if args.narrow else "unsigned-char"
    flag = "-m32" if args.narrow else "-funsigned-char"
    folder = args.work / way
    command = [tool("g++"), flag, "-w"]
    core = compile_all(core_sources(), folder, [*command, "-O2", *LANGUAGE, *INCLUDES])
    if args.narrow:
        # The core's arithmetic has to hold in the wide registers of old; the expectations need not. There a
        # quotient is rounded to a register and then to a double, which shows above 5 * 10^16 days.
        command += ["-msse2", "-mfpmath=sse", "-DVARNEL_CORE_ROUNDS_TWICE"]
    shared = core + compile_all(reference_sources(), folder, [*command, "-std=c++17", *TEST_INCLUDES])
    if args.narrow:
        shared += googletest(folder, [*command, "-std=c++17", f"-I{GOOGLETEST / 'include'}"])
        libraries = ["-pthread"]
    else:
        libraries = ["-lgtest_main", "-lgtest", "-pthread"]
    tests = compile_all(unit_test_sources(), folder, [*command, "-std=c++17", *TEST_INCLUDES, *TEST_DEFINES])
    programs = [(test.with_suffix(""), test) for test in tests]
    for program, test in programs:
        run([*command, linker(), test, *shared, *libraries, "-o", program])
    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        passed = list(pool.map(lambda pair: passes(pair[0]), programs))
    failed = [program.name for (program, _), good in zip(programs, passed) if not good]
    if failed:
        fail(f"with {flag} these unit tests fail: {', '.join(failed)}")
    print(f"{len(programs)} programs of unit tests pass with {flag}")


main()
