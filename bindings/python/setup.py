"""Builds the extension over static libraries that CMake builds from the same source tree."""

import os
import re
import subprocess
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent
HEADER = (ROOT / "include" / "Varnel" / "Varnel.h").read_text(encoding="utf-8")
VERSION = re.search(r'^#define VARNEL_VERSION "(.*)"', HEADER, re.MULTILINE).group(1)
MINIMUM = "0x03080000"  # the stable ABI as Python 3.8 has it


class BuildWithLibraries(build_ext):
    """Has CMake build the static libraries before the extension is linked to them."""

    def run(self):
        build = Path(self.build_temp).resolve() / "libraries"
        subprocess.run(
            ["cmake", "-S", ROOT, "-B", build, "-DCMAKE_BUILD_TYPE=Release", "-DBUILD_SHARED_LIBS=OFF",
             "-DVARNEL_BUILD_CLI=OFF", "-DVARNEL_BUILD_FACADE=OFF", "-DVARNEL_INSTALL=OFF"],
            check=True)
        subprocess.run(
            ["cmake", "--build", build, "--config", "Release", "--target", "varnel_documents"], check=True)
        names = ["varnel_documents", "varnel"]
        for extension in self.extensions:
            for name in names:
                found = [*build.rglob(f"lib{name}.a"), *build.rglob(f"{name}.lib")]
                extension.extra_objects += [str(found[0])]
                extension.depends += [str(found[0])]
        super().run()


os.chdir(HERE)
setup(
    version=VERSION,
    ext_modules=[
        Extension(
            "varnel._core",
            ["src/varnel/_core.c"],
            include_dirs=[str(ROOT / "include"), str(ROOT / "bindings")],
            depends=[str(ROOT / "bindings" / "composition.h")],
            define_macros=[("Py_LIMITED_API", MINIMUM), ("VARNEL_STATIC", "1")],
            py_limited_api=True,
        )
    ],
    cmdclass={"build_ext": BuildWithLibraries},
    options={"bdist_wheel": {"py_limited_api": "cp38"}},
)
