"""clang-tidy (--clang-tidy, the checks of .clang-tidy) or cppcheck (--cppcheck) finds nothing in src/, include/
and cli/."""

import concurrent.futures
import pathlib
import subprocess

from building import INCLUDES, JOBS, LANGUAGE, LIBRARIES, ROOT, arguments, fail, sources_of, tool

SUPPRESSIONS = pathlib.Path(__file__).with_name("cppcheck-suppressions.txt")


def findings(command):
    done = subprocess.run([str(part) for part in command], cwd=ROOT, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, errors="replace")
    return "" if done.returncode == 0 else done.stdout + done.stderr


def clang_tidy():
    libraries = [*LANGUAGE, *INCLUDES]
    command_line = ["-std=c++17", *INCLUDES, f"-I{ROOT / 'cli'}"]
    runs = [[path, "--", *libraries] for library in LIBRARIES for path in sources_of(library)]
    runs += [[path, "--", "-x", "c++", *libraries] for path in sorted((ROOT / "include" / "Varnel").glob("*.hpp"))]
    # Only the first thread of the command asks what is not for several threads.
    runs += [["--checks=-concurrency-mt-unsafe", path, "--", *command_line] for path in sorted((ROOT / "cli").rglob("*.cpp"))]
    with concurrent.futures.ThreadPoolExecutor(JOBS) as pool:
        return list(pool.map(lambda run: findings([tool("clang-tidy"), "--quiet", *run]), runs))


def cppcheck():
    folders = [folder for folder in ("src", "include", "cli") if (ROOT / folder).exists()]
    return [findings([tool("cppcheck"), "--quiet", "--std=c++17", "--language=c++", "-U__OBJC__",
                      "--enable=warning,style,performance,portability", "--inline-suppr",
                      f"--suppressions-list={SUPPRESSIONS}", "--error-exitcode=1", *INCLUDES, *folders])]


def main():
    args = arguments(__doc__, (("--clang-tidy",), {"action": "store_true"}),
                     (("--cppcheck",), {"action": "store_true"}))
    name, looks = ("clang-tidy", clang_tidy) if args.clang_tidy else ("cppcheck", cppcheck)
    runs = looks()
    found = [text for text in runs if text]
    if found:
        print("\n".join(found))
        fail(f"{name} has findings, listed above")
    print(f"{name}: {len(runs)} run(s) without a finding")


main()
