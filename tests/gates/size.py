"""The stripped shared library stays within FILE_BOUND bytes as a file and CODE_BOUND bytes of code and
constants (the text column of `size`, which counts the tables of exported names too)."""

from building import arguments, fail, run, shared_library

FILE_BOUND = 40 * 1024
CODE_BOUND = 24 * 1024


def main():
    work = arguments(__doc__).work
    stripped = work / "libvarnel-stripped.so"
    run(["strip", "-o", stripped, shared_library(work)])
    file_size = stripped.stat().st_size
    code_size = int(run(["size", stripped]).splitlines()[1].split()[0])
    print(f"stripped libvarnel.so: file {file_size} of {FILE_BOUND} bytes, "
          f"code and constants {code_size} of {CODE_BOUND} bytes")
    if file_size > FILE_BOUND:
        fail(f"the stripped file has {file_size} bytes, more than {FILE_BOUND}")
    if code_size > CODE_BOUND:
        fail(f"code and constants have {code_size} bytes, more than {CODE_BOUND}")


main()
