"""Builds the packages, unpacks them into a scratch root and uses them there: package.py WORK"""

import pathlib
import re
import shutil
import sys
import tarfile

from support import (HERE, ROOT, SAMPLES, Prefix, build_project, environment, expect, expect_passport, fail,
                     fresh, libraries_of, run)

WORK = pathlib.Path(sys.argv[1])
OUT = WORK / "packages"
PACKAGES = ("libvarnel1", "libvarnel-documents1", "libvarnel-dev", "varnel")


def contents(package):
    """The files of a package, the machine's folder of libraries and the version left open."""
    lines = run("sh", "-c", f"dpkg-deb --fsys-tarfile {package} | tar -t").splitlines()
    multiarch = run("dpkg-architecture", "-qDEB_HOST_MULTIARCH").strip()
    version = field(package, "Version").split("-")[0]
    files = [line[2:].replace(multiarch, "@MULTIARCH@").replace(version, "@VERSION@")
             for line in lines if not line.endswith("/")]
    samples = [path for path in files if "/samples/" in path or "/docs/" in path]
    return sorted(set(files) - set(samples)) + ([f"{len(samples) > 20} samples and pages"] if samples else [])


def field(package, name):
    return run("dpkg-deb", "--field", package, name).strip()


def check_contents(packages):
    found = [f"{name}: {path}" for name in PACKAGES for path in contents(packages[name])]
    wanted = (HERE / "package-contents.txt").read_text().splitlines()
    expect("\n".join(found), "\n".join(wanted), "the packages' files")


def check_dependencies(packages):
    """The library needs the C library only, and dpkg finds all complete on this machine."""
    depends = {name: sorted(re.findall(r"[\w.+-]+(?= \(|,|$)", field(packages[name], "Depends")))
               for name in PACKAGES}
    expect(depends["libvarnel1"], ["libc6"], "what libvarnel1 depends on")
    expect(depends["libvarnel-documents1"], ["libc6", "libvarnel1"], "what libvarnel-documents1 depends on")
    expect(depends["libvarnel-dev"], ["libvarnel-documents1", "libvarnel1"], "what libvarnel-dev depends on")
    expect(depends["varnel"], ["libc6", "libgcc-s1", "libstdc++6", "libvarnel-documents1", "libvarnel1"],
           "what varnel depends on")
    run("dpkg", "--simulate", "--install", *packages.values())


def check_lintian():
    """Every finding is explained in cmake/packages/lintian.md."""
    page = (ROOT / "cmake" / "packages" / "lintian.md").read_text()
    explained = set(re.findall(r"^\| `([^`]+)`", page, re.MULTILINE))
    found = (OUT / "lintian.txt").read_text().splitlines()
    for line in found:
        tag = re.match(r"[EWIPX]: [^:]+: (\S+)", line)
        if not tag or tag.group(1) not in explained:
            fail(f"lintian says what cmake/packages/lintian.md does not explain: {line}")


def check_access(packages):
    """What is packed can be read by all, and every folder entered, although it was packed under umask 077."""
    listings = [run("sh", "-c", f"dpkg-deb --fsys-tarfile {package} | tar -tv") for package in packages.values()]
    listings += [run("tar", "-tvf", archive) for archive in OUT.glob("*.tar.gz")]
    for line in "".join(listings).splitlines():
        if not re.match(r"d..xr.xr.x|-r..r..r..|l", line):
            fail(f"not everybody can read or enter: {line}")


def check_reproducible(packages):
    """Another copy of the sources, in another folder, gives the same packages to the byte."""
    source = next((WORK / "source").iterdir())
    elsewhere = fresh(WORK / "elsewhere") / "a-folder-of-another-name"
    shutil.copytree(source, elsewhere, symlinks=True)
    epoch = run("git", "-C", ROOT, "log", "-1", "--format=%ct").strip() if (ROOT / ".git").exists() else "1"
    run(elsewhere / "cmake" / "packages" / "run", WORK / "again", env=environment(SOURCE_DATE_EPOCH=epoch))
    for package in packages.values():
        if package.read_bytes() != (WORK / "again" / package.name).read_bytes():
            fail(f"{package.name} depends on the folder it is built in")


def check_use(packages):
    root = fresh(WORK / "root")
    for package in packages.values():
        run("dpkg-deb", "-x", package, root)
    usr = Prefix(root / "usr")
    env = usr.environment()
    env["CMAKE_PREFIX_PATH"] = str(usr.folder)
    expect(run("varnel", "parse", SAMPLES / "passport.mrz", env=env), (SAMPLES / "passport.json").read_text(),
           "what the command prints")
    expect(run("sh", SAMPLES / "documents.sh", env=env), (SAMPLES / "documents.out").read_text(), "the names")
    command = usr.folder / "bin" / "varnel"
    if "libvarnel.so.1" not in libraries_of(command):
        fail("the packaged command does not use the packaged library")
    if "RUNPATH" in run("readelf", "--dynamic", command):
        fail("the packaged command looks for its library in a folder of its own")
    if "read the machine-readable zone" not in run("man", "-l", usr.folder / "share/man/man1/varnel.1.gz"):
        fail("the manual page is not readable")
    for shell, completion in (("bash", "bash-completion/completions/varnel"),
                              ("zsh", "zsh/vendor-completions/_varnel"),
                              ("fish", "fish/vendor_completions.d/varnel.fish")):
        if shutil.which(shell):
            run(shell, "-n", usr.folder / "share" / completion)
    program = WORK / "passport"
    for libraries in (usr.pkg_config("--cflags", "--libs", "varnel"),
                      [f"-I{usr.folder / 'include'}", usr.libraries / "libvarnel.a"]):
        run("cc", SAMPLES / "passport.c", *libraries, "-o", program)
        expect_passport(run(program, env=env))
    build = build_project("find_package", fresh(WORK / "find_package"), env=env)
    expect_passport(run(build / "passport_cpp", env=environment()))


def check_source():
    """The archive holds the tracked files and builds."""
    archives = list(OUT.glob("*.tar.gz"))
    expect(len(archives), 1, "the number of source archives")
    with tarfile.open(archives[0]) as archive:
        found = sorted(member.name.split("/", 1)[1] for member in archive.getmembers() if not member.isdir())
        archive.extractall(fresh(WORK / "source"))
    if (ROOT / ".git").exists():
        tracked = run("git", "-C", ROOT, "ls-files").splitlines()
        present = [name for name in tracked if (ROOT / name).is_symlink() or (ROOT / name).exists()]
        expect(found, sorted(present), "the files of the source archive")
    source = next((WORK / "source").iterdir())
    run("cmake", "-S", source, "-B", WORK / "build-source", "-G", "Ninja", "-DVARNEL_BUILD_CLI=OFF",
        "-DVARNEL_BUILD_FACADE=OFF")
    run("cmake", "--build", WORK / "build-source", "-j2")


def main():
    fresh(OUT)
    run("sh", "-c", f"umask 077; exec {ROOT / 'cmake' / 'packages' / 'run'} {OUT}")
    packages = {}
    for package in OUT.glob("*.deb"):
        packages[field(package, "Package")] = package
    expect(sorted(packages), sorted(PACKAGES), "the packages")
    check_contents(packages)
    check_dependencies(packages)
    check_lintian()
    check_access(packages)
    check_use(packages)
    check_source()
    check_reproducible(packages)
    print("libvarnel1, libvarnel-documents1, libvarnel-dev, varnel and the source archive: built, unpacked, used")


main()
