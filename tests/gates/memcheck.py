"""valgrind finds no invalid read or write, no use of an unset value and no leak in programs of unit tests."""

import concurrent.futures
import subprocess

from building import JOBS, arguments, fail, tool


def check(program):
    done = subprocess.run([tool("valgrind"), "--quiet", "--error-exitcode=9", "--leak-check=full",
                           "--errors-for-leak-kinds=definite,indirect", program, "--gtest_brief=1"],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")
    if done.returncode != 0:
        print(done.stdout)
    return done.returncode == 0


def main():
    programs = arguments(__doc__, (("programs",), {"nargs": "+"})).programs
    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        bad = [program for program, good in zip(programs, pool.map(check, programs)) if not good]
    if bad:
        fail(f"valgrind has findings in {', '.join(bad)}")
    print(f"{len(programs)} programs without a finding")


main()
