"""What the consumers' tests share: the source tree, the scratch prefix, running programs and comparing."""

import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
HERE = ROOT / "tests" / "consumers"
SAMPLES = ROOT / "samples"
SKIPPED = 77
FLAGS = ("CFLAGS", "CXXFLAGS", "OBJCFLAGS", "LDFLAGS", "CPPFLAGS", "DESTDIR", "CMAKE_PREFIX_PATH",
         "CMAKE_INSTALL_PREFIX", "PKG_CONFIG_PATH", "LD_LIBRARY_PATH")


def fail(text):
    sys.stdout.flush()
    sys.exit(f"FAILED: {text}")


def skip(text):
    print(f"skipped: {text}")
    sys.exit(SKIPPED)


def environment(**more):
    """The caller's environment without flags and paths of its own."""
    kept = {name: value for name, value in os.environ.items() if name not in FLAGS}
    kept.update({name: str(value) for name, value in more.items()})
    return kept


def run(*command, env=None, fails=False, **options):
    """Runs a command that has to succeed (or to fail) and returns what it printed, both streams."""
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, errors="replace", env=env or environment(), **options)
    if (done.returncode != 0) != fails:
        print(done.stdout)
        fail(f"`{' '.join(str(part) for part in command)}` ended with {done.returncode}")
    return done.stdout


def fresh(folder):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


def expect(found, wanted, what):
    if found != wanted:
        fail(f"{what}: found\n{found}\nand not\n{wanted}")


def expect_passport(printed, ordered=True):
    """What a sample prints of the passport; a dictionary without an order prints its keys sorted."""
    wanted = (SAMPLES / "passport.out").read_text()
    if not ordered:
        wanted = "".join(sorted(wanted.splitlines(keepends=True)))
    expect(printed, wanted, "the passport's twelve values")


def libraries_of(program):
    """The names of the shared libraries that a program or library asks for."""
    lines = run("readelf", "--dynamic", "--wide", program).splitlines()
    return sorted(line.split("[")[1].rstrip("]") for line in lines if "(NEEDED)" in line)


class Prefix:
    """An installed tree, wherever it lies."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()
        found = sorted(self.folder.glob("**/libvarnel.so")) or sorted(self.folder.glob("**/libvarnel.a"))
        if len(found) != 1:
            fail(f"{self.folder} holds {len(found)} libraries")
        self.libraries = found[0].parent

    def environment(self):
        """Where compilers, CMake and the loader look, as a user of an own prefix sets it."""
        return environment(
            CMAKE_PREFIX_PATH=self.folder, PKG_CONFIG_PATH=self.libraries / "pkgconfig",
            LD_LIBRARY_PATH=self.libraries,
            PATH=f"{self.folder / 'bin'}{os.pathsep}{os.environ['PATH']}")

    def pkg_config(self, *arguments):
        return run("pkg-config", *arguments, env=self.environment()).split()


def build_project(project, folder, *options, env=None):
    """Copies a project of this folder with its samples and builds it; returns the build's folder."""
    source = folder / "source"
    source.mkdir(parents=True, exist_ok=True)
    shutil.copy(HERE / project / "CMakeLists.txt", source)
    for sample in ("passport.c", "passport.cpp"):
        shutil.copy(SAMPLES / sample, source)
    run("cmake", "-S", source, "-B", folder / "build", "-G", "Ninja", *options, env=env)
    run("cmake", "--build", folder / "build", "-j2", env=env)
    return folder / "build"
