"""./dev, run in a scratch checkout with pretended tools: what it does in odd surroundings, and what it says."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]

# What ./dev may use of the machine. Everything else it finds is pretended, or missing.
REAL = ("sh awk cat cut date dirname env ls mkdir nproc python3 readlink rm sed sleep sort tail touch tr uname wc "
        "ctest").split()

# Configures by writing what ./dev looks at, builds by making the program that ./dev runs.
CMAKE = """
echo "$PWD: $*" >>"$RECORD"
case "$1" in
--build)
  mkdir -p "$2/cli"
  printf '#!/bin/sh\\necho "the command is given: $*"\\n' >"$2/cli/varnel"
  chmod +x "$2/cli/varnel"
  echo "[57/103] Building" # the last line of what a build says
  /bin/sleep "${BUILD_SECONDS:-0}"
  exit "${BUILD_FAILS:-0}"
  ;;
*)
  mkdir -p "$4"
  echo "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" >"$4/CMakeCache.txt"
  cp "$TESTS" "$4/CTestTestfile.cmake"
  ;;
esac
"""
PASSING = """
add_test(unit.parse.reads_a_passport true)
add_test(unit.parse.refuses_prose true)
add_test(gate.allocation true)
set_tests_properties(gate.allocation PROPERTIES LABELS thorough)
add_test(consumers.swift sh -c "echo 'skipped: no Swift compiler'; exit 77")
set_tests_properties(consumers.swift PROPERTIES SKIP_RETURN_CODE 77)
"""


class Dev(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.scratch = pathlib.Path(scratch.name).resolve()
        self.checkout = self.scratch / "checkout"
        self.new_checkout(self.checkout)
        self.bin = self.scratch / "bin"
        self.bin.mkdir()
        for name in REAL + ["cp", "chmod", "true"]:
            (self.bin / name).symlink_to(shutil.which(name))
        self.pretend("cmake", CMAKE)
        self.pretend("dpkg-query", 'case "$INSTALLED" in all) echo installed ;; esac')
        self.pretend("apt-cache", 'case "$2" in libcli11-dev) exit 100 ;; esac')
        self.pretend("apt-get", 'echo "apt-get $*" >>"$RECORD"')
        self.pretend("env", 'shift; "$@"')
        self.pretend("id", "echo 1000")
        self.record = self.scratch / "record"
        self.record.touch()
        self.tests = self.scratch / "tests.cmake"
        self.tests.write_text(PASSING)

    def new_checkout(self, folder):
        (folder / "tests").mkdir(parents=True)
        shutil.copy(ROOT / "dev", folder)
        shutil.copytree(ROOT / "tests" / "dev", folder / "tests" / "dev")

    def pretend(self, name, script):
        path = self.bin / name
        path.unlink(missing_ok=True)
        path.write_text(f"#!/bin/sh\n{script}\n")
        path.chmod(0o755)

    def run_dev(self, *command, cwd=None, **environment):
        environment = {"PATH": self.bin, "RECORD": self.record, "TESTS": self.tests, "INSTALLED": "all",
                       **environment}
        return subprocess.run([str(part) for part in command], cwd=cwd or self.checkout, text=True,
                              env={name: str(value) for name, value in environment.items()},
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, stdin=subprocess.DEVNULL)

    def built_in(self):
        return {line.split(": ")[0] for line in self.record.read_text().splitlines()}

    def assertSays(self, words, done):
        self.assertIn(words, done.stderr)

    # ---- where it is run from ---------------------------------------------------------------------

    def test_builds_here_with_cdpath_set(self):
        self.new_checkout(self.scratch / "elsewhere" / "checkout")
        done = self.run_dev("sh", "checkout/dev", "run", "a.txt", cwd=self.scratch,
                            CDPATH=self.scratch / "elsewhere")
        self.assertEqual(done.stdout, "the command is given: parse a.txt\n")
        self.assertEqual(self.built_in(), {str(self.checkout)})

    def test_builds_its_checkout_through_symbolic_links(self):
        folder = self.scratch / "home" / "bin"
        folder.mkdir(parents=True)
        (folder / "varnel-dev").symlink_to("../dev")
        (folder.parent / "dev").symlink_to(self.checkout / "dev")
        done = self.run_dev(folder / "varnel-dev", "run", "a.txt", cwd="/")
        self.assertEqual(done.stdout, "the command is given: parse a.txt\n")
        self.assertEqual(self.built_in(), {str(self.checkout)})

    def test_reads_a_file_named_as_seen_from_where_it_was_typed(self):
        self.pretend("cmake", CMAKE.replace("the command is given: $*", "$PWD"))
        done = self.run_dev(self.checkout / "dev", "run", "a.txt", cwd=self.scratch)
        self.assertEqual(done.stdout, f"{self.scratch}\n")

    def test_configures_anew_after_the_checkout_was_moved(self):
        self.run_dev("./dev", "run")
        (self.checkout / "build" / "run" / "stale").touch()
        moved = self.checkout.rename(self.scratch / "moved")
        done = self.run_dev("./dev", "run", cwd=moved)
        self.assertEqual(done.returncode, 0)
        self.assertSays(f"this checkout was moved here from {self.checkout}: configuring build/run anew", done)
        self.assertFalse((moved / "build" / "run" / "stale").exists())
        self.assertNotIn("moved", self.run_dev("./dev", "run", cwd=moved).stderr)

    # ---- building and testing ---------------------------------------------------------------------

    def test_says_how_far_a_long_build_is(self):
        self.pretend("sleep", "exec /bin/sleep 0.2")
        done = self.run_dev("./dev", "run", BUILD_SECONDS=1)
        self.assertRegex(done.stderr, r"\./dev: still at it after \d s: \[57/103\] Building\n")

    def test_shows_what_a_failed_build_said(self):
        done = self.run_dev("./dev", "run", BUILD_FAILS=1)
        self.assertEqual(done.returncode, 1)
        self.assertSays("[57/103] Building\n./dev: this failed: cmake --build build/run\n", done)

    def test_ends_with_a_sentence_on_all_builds_and_what_was_left_out(self):
        done = self.run_dev("./dev", "test")
        self.assertEqual(done.returncode, 0, done.stderr)
        sentence, left_out = done.stderr.splitlines()[-2:]
        self.assertRegex(sentence, r"^\./dev: 2 tests passed, 0 failed, 1 skipped \(consumers.swift: no Swift compiler\), in \d+ seconds$")
        self.assertRegex(left_out, r"^\./dev: left out, to be run by './dev test all': gate.allocation ")
        self.assertRegex(left_out, r"by './dev test bindings': the Python, JavaScript and Java packages, the page and")

    def test_all_leaves_nothing_out(self):
        done = self.run_dev("./dev", "test", "all")
        self.assertRegex(done.stderr.splitlines()[-1], r"^\./dev: 6 tests passed, 0 failed, 2 skipped")

    def test_quick_runs_the_unit_tests(self):
        done = self.run_dev("./dev", "test", "quick")
        self.assertRegex(done.stderr.splitlines()[-2], r"^\./dev: 2 tests passed, 0 failed, 0 skipped, in")

    def test_fails_and_names_what_failed_or_could_not_run(self):
        self.tests.write_text(PASSING + "add_test(unit.parse.fails false)\nadd_test(unit.gone /nowhere/program)\n")
        done = self.run_dev("./dev", "test", "quick")
        self.assertEqual(done.returncode, 1)
        self.assertSays("./dev: 2 tests passed, 2 failed (", done)
        self.assertRegex(done.stderr, r"unit\.parse\.fails")
        self.assertRegex(done.stderr, r"unit\.gone")

    def test_a_run_without_results_is_no_success(self):
        self.tests.write_text("")
        done = self.run_dev("./dev", "test")
        self.assertEqual(done.returncode, 1)

    def test_names_the_nearest_tests_when_no_name_matches(self):
        done = self.run_dev("./dev", "test", "alocation")
        self.assertEqual(done.returncode, 2)
        self.assertSays("./dev: no test's name matches 'alocation'; the nearest: gate.allocation, ", done)

    def test_refuses_two_patterns(self):
        done = self.run_dev("./dev", "test", "one", "two")
        self.assertEqual(done.returncode, 2)
        self.assertSays("usage: ./dev test [", done)

    # ---- packages ---------------------------------------------------------------------------------

    def test_without_sudo_prints_lines_for_root_with_packages_that_exist(self):
        done = self.run_dev("./dev", "run", INSTALLED="none")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, "./dev: packages are missing; install them as root with:\n"
                                      "apt-get update && apt-get install -y g++ cmake ninja-build nlohmann-json3-dev\n")
        self.assertEqual(self.record.read_text(), "")

    def test_takes_all_packages_to_exist_where_apt_knows_none(self):
        self.pretend("apt-cache", "exit 100")
        done = self.run_dev("./dev", "run", INSTALLED="none")
        self.assertSays("apt-get install -y g++ cmake ninja-build libcli11-dev nlohmann-json3-dev\n", done)

    def test_says_what_it_will_do_before_it_calls_sudo(self):
        self.pretend("sudo", 'echo "sudo is called: $*" >&2; shift; "$@"')
        done = self.run_dev("./dev", "run", INSTALLED="none")
        self.assertEqual(done.returncode, 0)
        first = done.stderr.splitlines()[0]
        self.assertEqual(first, "./dev: packages are missing; trying 'sudo -n apt-get update' and 'sudo -n apt-get "
                                "install -y g++ cmake ninja-build libcli11-dev nlohmann-json3-dev'")
        self.assertSays("./dev: going on without the package libcli11-dev, which is not available here\n", done)
        self.assertIn("apt-get install -y -qq g++ cmake ninja-build nlohmann-json3-dev\n", self.record.read_text())

    def test_prints_lines_with_sudo_where_it_asks_for_a_password(self):
        self.pretend("sudo", "exit 1")
        done = self.run_dev("./dev", "run", INSTALLED="none")
        self.assertEqual(done.returncode, 1)
        self.assertSays("./dev: packages are missing; install them with:\nsudo apt-get update && sudo apt-get install "
                        "-y g++ cmake ninja-build nlohmann-json3-dev\n", done)
        self.assertEqual(self.record.read_text(), "")

    def test_installs_as_root_without_sudo(self):
        self.pretend("id", "echo 0")
        self.pretend("sudo", "echo sudo >>\"$RECORD\"")
        done = self.run_dev("./dev", "run", INSTALLED="none")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("apt-get install -y -qq g++", self.record.read_text())
        self.assertNotIn("sudo", self.record.read_text())

    # ---- the command itself -----------------------------------------------------------------------

    def test_an_unknown_command_is_an_error(self):
        done = self.run_dev("./dev", "tset")
        self.assertEqual(done.returncode, 2)
        self.assertSays("./dev: there is no command 'tset'; ./dev help lists them\n", done)


if __name__ == "__main__":
    unittest.main()
