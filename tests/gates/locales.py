"""The library answers alike in every locale: it is asked again in locales that call other bytes letters."""

import os
import pathlib

from building import TEST_INCLUDES, arguments, fail, reference_sources, run, shared_library, tool

# In German and Turkish 8-bit locales bytes above 0x7F are letters; Turkish has its own i besides.
LOCALES = (("de_DE", "ISO-8859-1"), ("tr_TR", "ISO-8859-9"))


def main():
    work = arguments(__doc__).work
    folder = work / "locale"
    folder.mkdir(parents=True, exist_ok=True)
    if not pathlib.Path("/usr/share/i18n/locales/de_DE").exists():
        fail("the sources of locales are not installed: Debian's package locales brings them")
    names = []
    for language, charset in LOCALES:
        names.append(f"{language}.{charset}")
        if not (folder / names[-1]).exists():
            run([tool("localedef"), "-i", language, "-f", charset, folder / names[-1]])
    library = shared_library(work)
    program = work / "locales"
    run([tool("g++"), "-std=c++17", "-O1", "-Wall", "-Wextra", *TEST_INCLUDES,
         pathlib.Path(__file__).with_name("locales.cpp"), *reference_sources(), library, f"-Wl,-rpath,{library.parent}",
         "-o", program])
    print(run([program, *names], env=dict(os.environ, LOCPATH=str(folder))), end="")


main()
