"""The command line itself: help, version, and what is said of mistakes."""

import unittest

from support import PASSPORT, SOURCES, varnel

HELP_HINT = " (see varnel --help)\n"


class Help(unittest.TestCase):
    def test_alone_it_explains_itself(self):
        code, out, err = varnel()
        self.assertEqual((code, out), (2, b""))
        self.assertEqual(err, varnel("--help")[1])

    def test_help_states_commands_examples_and_exit_codes(self):
        for arguments in (["--help"], ["-h"]):
            code, out, err = varnel(*arguments)
            self.assertEqual((code, err), (0, b""))
            for part in ("parse", "element", "soundex", "--version", "Examples:", "Exit codes:\n  0  ", "\n  1  ",
                         "\n  2  "):
                self.assertIn(part, out.decode())

    def test_exit_codes_are_stated_once(self):
        self.assertEqual(varnel("--help")[1].count(b"Exit codes:"), 1)
        for command in ("parse", "element", "soundex"):
            out = varnel(command, "--help")[1]
            self.assertNotIn(b"Exit codes:", out)
            self.assertTrue(out.endswith(b"\nvarnel --help lists the exit codes.\n\n"), out)

    def test_every_command_has_its_own_help_with_an_example(self):
        for command, options in (("parse", ["--each", "--slots", "--format", "FILE"]),
                                 ("element", ["--format", "ID"]), ("soundex", ["--format", "NAME"])):
            code, out, err = varnel(command, "--help")
            self.assertEqual((code, err), (0, b""))
            for part in [f"Usage: varnel {command} ", *options, f"Examples:\n  varnel {command} ",
                         "  -h,--help                   Print this help and leave\n",
                         "  -V,--version                Print the version and leave\n"]:
                self.assertIn(part, out.decode())

    def test_the_command_help_prints_the_same_help(self):
        self.assertEqual(varnel("help"), varnel("--help"))
        for command in ("parse", "element", "soundex", "help"):
            with self.subTest(command=command):
                self.assertEqual(varnel("help", command), varnel(command, "--help"))
        self.assertEqual(varnel("help", "prase"), (2, b"", b"varnel: unknown command 'prase'; did you mean 'parse'?" +
                                                   HELP_HINT.encode()))

    def test_version_is_that_of_the_library(self):
        header = (SOURCES / "include" / "Varnel" / "Varnel.h").read_text(encoding="utf-8")
        version = header.split('#define VARNEL_VERSION "')[1].split('"')[0]
        for arguments in (["--version"], ["-V"], ["parse", "--version"], ["element", "-V"], ["soundex", "Lee", "-V"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(varnel(*arguments), (0, f"varnel {version}\n".encode(), b""))


class Mistakes(unittest.TestCase):
    def complaint(self, *arguments):
        code, out, err = varnel(*arguments, text=PASSPORT)
        self.assertEqual((code, out), (2, b""))
        self.assertTrue(err.startswith(b"varnel: ") and err.endswith(HELP_HINT.encode()), err)
        return err.decode()[len("varnel: "):-len(HELP_HINT)]

    def test_misspelt_commands(self):
        for word, meant in (("prase", "parse"), ("pars", "parse"), ("Parse", "parse"), ("elements", "element"),
                            ("sondex", "soundex")):
            self.assertEqual(self.complaint(word), f"unknown command '{word}'; did you mean '{meant}'?")

    def test_commands_that_are_options(self):
        self.assertEqual(self.complaint("version"), "unknown command 'version'; did you mean '--version'?")

    def test_a_command_like_no_other(self):
        self.assertEqual(self.complaint("xyzzy"), "unknown command 'xyzzy'")

    def test_dashes_in_the_place_of_the_command(self):
        self.assertEqual(self.complaint("--", "prase"), "unknown command 'prase'; did you mean 'parse'?")
        self.assertEqual(varnel("--"), (2, b"", varnel("--help")[1]))

    def test_a_file_in_the_place_of_the_command(self):
        path = str(SOURCES / "LICENSE")
        self.assertEqual(self.complaint(path), f"unknown command '{path}'; to read a file, type: varnel parse {path}")

    def test_a_zone_in_the_place_of_the_command_is_not_repeated(self):
        for arguments in ([PASSPORT.decode()], ["--", PASSPORT.decode()], ["-" + PASSPORT.decode()],
                          ["parse", "--P<UTO"], ["parse", "--format", PASSPORT.decode()],
                          ["parse", "--each=" + PASSPORT.decode()], ["help", PASSPORT.decode()],
                          ["parse", "--each", "L898902C36UTO7408122F1204159ZE184226B0000010"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.complaint(*arguments), "the text of a document is read from standard "
                                 "input: varnel parse < FILE")

    def test_misspelt_options(self):
        for arguments, word, meant in (
                (["parse", "--fromat", "json"], "--fromat", "--format"),
                (["parse", "--fromat=json"], "--fromat", "--format"),
                (["parse", "--slot"], "--slot", "--slots"),
                (["parse", "-format", "json"], "-format", "--format"),
                (["parse", "--eahc", "line"], "--eahc", "--each"),
                (["element", "--formt"], "--formt", "--format"),
                (["soundex", "--FORMAT"], "--FORMAT", "--format"),
                (["--verison"], "--verison", "--version"),
                (["--hlep"], "--hlep", "--help")):
            self.assertEqual(self.complaint(*arguments), f"unknown option '{word}'; did you mean '{meant}'?")

    def test_options_before_the_command(self):
        for arguments, option, command in (
                (["--format", "csv", "parse", "x"], "--format", "parse"),
                (["--format=csv", "soundex", "Lee"], "--format", "soundex"),
                (["--each", "line", "parse"], "--each", "parse"),
                (["--slots"], "--slots", "parse"),
                (["--format", "csv"], "--format", "parse")):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.complaint(*arguments),
                                 f"'{option}' goes after the command: varnel {command} {option} ...")
        self.assertEqual(self.complaint("--each", "line", "soundex", "Lee"), "unknown option '--each'")

    def test_an_option_like_no_other(self):
        self.assertEqual(self.complaint("parse", "--colour"), "unknown option '--colour'")

    def test_options_of_another_command(self):
        self.assertEqual(self.complaint("soundex", "--each", "line", "Lee"), "unknown option '--each'")

    def test_misspelt_values(self):
        self.assertEqual(self.complaint("parse", "--format", "jsn"),
                         "--format 'jsn' is not one of json, table, csv; did you mean 'json'?")
        self.assertEqual(self.complaint("soundex", "--format", "xml", "Lee"),
                         "--format 'xml' is not one of json, table, csv")
        self.assertEqual(self.complaint("parse", "--each", "lines"),
                         "--each 'lines' is not one of line, block, zone; did you mean 'line'?")
        self.assertEqual(self.complaint("parse", "--each", ""), "--each '' is not one of line, block, zone")

    def test_missing_values(self):
        for arguments in (["parse", "--format"], ["element", "--format"], ["soundex", "Lee", "--format"],
                          ["parse", "--format", "--each", "line"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.complaint(*arguments), "--format needs a value: json, table or csv")
        for arguments in (["parse", "--each"], ["parse", "--each", "--", "x"], ["parse", "--each", "--slots"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.complaint(*arguments), "--each needs a value: line, block or zone")

    def test_values_that_are_not_taken(self):
        self.assertEqual(self.complaint("parse", "--slots=yes"), "--slots takes no value")

    def test_missing_operands(self):
        self.assertEqual(self.complaint("element"), "element needs at least one ID")
        self.assertEqual(self.complaint("soundex", "--format", "json"), "soundex needs at least one NAME")


if __name__ == "__main__":
    unittest.main()
