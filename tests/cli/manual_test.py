"""The manual page and the completions say the same as --help."""

import re
import shutil
import subprocess
import unittest

from support import SOURCES, varnel

COMMANDS = ["help", "parse", "inspect", "barcode", "compose", "specimen", "element", "soundex"]
LONG_OPTION = re.compile(r"--([a-z-]+)")


def options_of(*command):
    """The options that --help lists for a command, or for none."""
    text = varnel(*command, "--help")[1].decode()
    listed = re.findall(r"^ +(-\S.*)", text.split("Options:\n")[1].split("\n\n")[0], re.M)
    return {name for line in listed for name in LONG_OPTION.findall(line.split("  ")[0])}


def source(name):
    return (SOURCES / "cli" / name).read_text(encoding="utf-8")


def run(*command, text=""):
    return subprocess.run(command, input=text, capture_output=True, text=True, check=False, timeout=60)


class Help(unittest.TestCase):
    def test_the_options_are_these(self):
        self.assertEqual(options_of(), {"help", "version"})
        self.assertEqual(options_of("parse"), {"help", "version", "each", "format", "jobs", "slots", "with-source", "verbose"})
        self.assertEqual(options_of("inspect"),
                         {"help", "version", "date", "repair", "looks", "each", "format", "jobs", "with-source", "verbose"})
        self.assertEqual(options_of("barcode"), {"help", "version", "format", "slots", "info", "with-source"})
        self.assertEqual(options_of("compose"), {"help", "version", "format"})
        self.assertEqual(options_of("specimen"), {"help", "version", "layout", "count", "seed", "format"})
        self.assertEqual(options_of("element"), {"help", "version", "format"})
        self.assertEqual(options_of("soundex"), {"help", "version", "format"})
        self.assertEqual(options_of("help"), {"help", "version"})

    def test_the_commands_are_these(self):
        listed = varnel("--help")[1].decode().split("Commands:\n")[1].split("\n\n")[0]
        self.assertEqual(re.findall(r"^  (\S+)", listed, re.M), COMMANDS)


ALL_OPTIONS = {"help", "version", "date", "repair", "looks", "each", "format", "jobs", "slots", "info", "with-source",
               "verbose", "layout", "count", "seed"}


class Manual(unittest.TestCase):
    def test_all_options_have_an_entry_and_no_others_are_named(self):
        page = source("varnel.1").replace("\\-", "-")
        options = page.split(".SH OPTIONS")[1].split(".SH ")[0]
        entries = re.findall(r"^\.TP\n(.*)", options, re.M)
        self.assertEqual({name for entry in entries for name in LONG_OPTION.findall(entry)}, ALL_OPTIONS)
        self.assertEqual(set(LONG_OPTION.findall(page)), ALL_OPTIONS)

    def test_the_choices_are_those_of_help(self):
        page = source("varnel.1")
        for command, choices in (("parse", "json|table|csv"), ("parse", "line|block|zone"), ("compose", "text|json"),
                                 ("specimen", "text|json"), ("specimen", "TD1|TD2|TD3|MRV-A|MRV-B")):
            self.assertIn(choices, varnel(command, "--help")[1].decode())
            self.assertIn("|".join(f"\\fI{choice}\\fR" for choice in choices.split("|")), page)

    def test_what_a_line_and_a_block_are_is_said_alike(self):
        for text in (source("varnel.1"), varnel("parse", "--help")[1].decode()):
            said = " ".join(text.split())
            self.assertIn("line: the whole zone on one line; block: zones as printed, separated by empty lines; "
                          "zone: zones as printed, anywhere in the text", said)

    def test_all_commands_and_exit_codes_are_described(self):
        page = source("varnel.1")
        commands = page.split(".SH COMMANDS")[1].split(".SH ")[0]
        self.assertEqual(re.findall(r"^\.TP\n\.BR (\w+)", commands, re.M), COMMANDS)
        codes = page.split(".SH EXIT STATUS")[1].split(".SH ")[0]
        self.assertEqual(re.findall(r"^\.B (\d)", codes, re.M), ["0", "1", "2"])

    @unittest.skipUnless(shutil.which("man"), "no man here")
    def test_it_is_set_without_a_warning(self):
        done = run("man", "--warnings", "-l", str(SOURCES / "cli" / "varnel.1"))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("read the machine-readable zone", done.stdout)


class Bash(unittest.TestCase):
    def complete(self, *words):
        """What is offered for the last of the words."""
        if not shutil.which("bash"):
            self.skipTest("no bash here")
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _varnel; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        done = run("bash", "-c", script, "bash", str(SOURCES / "cli" / "completion" / "varnel.bash"), *words)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return set(done.stdout.split())

    def test_commands_and_options(self):
        self.assertEqual(self.complete("varnel", ""), {*COMMANDS, "--help", "--version"})
        self.assertEqual(self.complete("varnel", "so"), {"soundex"})
        for command in COMMANDS:
            self.assertEqual(self.complete("varnel", command, "--"), {f"--{name}" for name in options_of(command)})
        self.assertEqual(self.complete("varnel", "help", "p"), {"parse"})

    def test_values(self):
        self.assertEqual(self.complete("varnel", "parse", "--format", ""), {"json", "table", "csv"})
        self.assertEqual(self.complete("varnel", "parse", "--each", "b"), {"block"})
        for command in ("compose", "specimen"):
            self.assertEqual(self.complete("varnel", command, "--format", ""), {"text", "json"})
        self.assertEqual(self.complete("varnel", "specimen", "--layout", "M"), {"MRV-A", "MRV-B"})
        self.assertEqual(self.complete("varnel", "specimen", "--layout", "=", "T"), {"TD1", "TD2", "TD3"})
        self.assertEqual(self.complete("varnel", "specimen", "--count", ""), set())

    def test_values_behind_an_equals_sign(self):
        # Bash parts words at the sign, unless COMP_WORDBREAKS was changed.
        for words, offered in ((["--format", "=", "c"], {"csv"}), (["--format", "="], {"json", "table", "csv"}),
                               (["--each", "="], {"line", "block", "zone"}), (["--each", "=", "l"], {"line"}),
                               (["--format=c"], {"--format=csv"}), (["--each="], {"--each=line", "--each=block", "--each=zone"})):
            with self.subTest(words=words):
                self.assertEqual(self.complete("varnel", "parse", *words), offered)

    def test_files(self):
        place = str(SOURCES / "LICEN")
        for before in (["parse", "--slots"], ["compose"]):
            self.assertEqual(self.complete("varnel", *before, place), {place + "SE"})


class Zsh(unittest.TestCase):
    def test_the_options_are_those_of_help(self):
        text = source("completion/_varnel")
        self.assertEqual(set(LONG_OPTION.findall(text)), ALL_OPTIONS)
        self.assertEqual(re.findall(r"^    '(\w+):", text, re.M), COMMANDS)
        parse = text.split("parse)\n")[1].split(";;")[0]
        listed = set(re.findall(r"'--([a-z-]+)", parse)) | set(re.findall(r"\$(\w+)", parse))
        self.assertEqual(listed | {"version"}, options_of("parse"))
        specimen = text.split("specimen)\n")[1].split(";;")[0]
        self.assertEqual({*re.findall(r"'--([a-z-]+)", specimen), "help", "version", "format"}, options_of("specimen"))
        self.assertRegex(text, r"zones=\('--format=")
        self.assertEqual(len(re.findall(r"_arguments \$help \$zones ", text)), 2)
        for command in ("help", "element", "soundex"):
            line = re.search(rf"^ +{command}\) (_arguments .*) ;;", text, re.M).group(1)
            self.assertEqual({*re.findall(r"\$(\w+)", line), "version"}, options_of(command))

    @unittest.skipUnless(shutil.which("zsh"), "no zsh here")
    def test_it_is_good_zsh(self):
        done = run("zsh", "-n", str(SOURCES / "cli" / "completion" / "_varnel"))
        self.assertEqual((done.returncode, done.stderr), (0, ""))


    @unittest.skipUnless(shutil.which("zsh"), "no zsh here")
    def test_it_hands_its_arguments_over_whole(self):
        done = run("zsh", "-fc", '_arguments() { print -rl -- "$@"; }; source "$1"', "zsh",
                   str(SOURCES / "cli" / "completion" / "_varnel"))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        for argument in ("(- *)-h[print help and leave]", "(- *)--help[print help and leave]",
                         "(- *)-V[print the version and leave]", "(- *)--version[print the version and leave]"):
            self.assertIn(argument, done.stdout.splitlines())

    def test_values_may_stand_behind_an_equals_sign(self):
        self.assertEqual(set(re.findall(r"--([a-z]+)=\[", source("completion/_varnel"))),
                         {"date", "repair", "each", "format", "jobs", "layout", "count", "seed"})


class Fish(unittest.TestCase):
    def test_the_options_are_those_of_help(self):
        lines = source("completion/varnel.fish").splitlines()
        self.assertEqual({name for line in lines for name in re.findall(r" -l ([a-z-]+)", line)}, ALL_OPTIONS)
        for name in ALL_OPTIONS - {"help", "version"}:
            offered = {command for line in lines if f" -l {name} " in line
                       for command in re.search(r"__fish_seen_subcommand_from ([a-z ]+)'", line).group(1).split()}
            self.assertEqual(offered, {command for command in COMMANDS if name in options_of(command)})

    @unittest.skipUnless(shutil.which("fish"), "no fish here")
    def test_what_is_offered(self):
        path = SOURCES / "cli" / "completion" / "varnel.fish"

        def offered(line):
            done = run("fish", "--no-config", "-c", f"source {path}; complete -C '{line}'")
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            return {entry.split("\t")[0] for entry in done.stdout.splitlines()}

        self.assertEqual(offered("varnel "), set(COMMANDS))
        for command in COMMANDS:
            self.assertEqual(offered(f"varnel {command} --"), {f"--{name}" for name in options_of(command)})
        self.assertEqual(offered("varnel parse --format "), {"json", "table", "csv"})
        self.assertEqual(offered("varnel parse --each "), {"line", "block", "zone"})


if __name__ == "__main__":
    unittest.main()
