"""What a person at a terminal sees, and nobody else."""

import re
import unittest

from support import PASSPORT, PASSPORT_JSON, PASSPORT_LINE, varnel, varnel_on_terminal

COLOUR = re.compile(rb"\033\[[0-9;]*m")


class Tables(unittest.TestCase):
    def test_a_terminal_gets_a_table_in_colour(self):
        code, out, err = varnel_on_terminal("parse", text=PASSPORT, streams=["stdout"])
        self.assertEqual((code, err), (0, b""))
        self.assertTrue(out.startswith(b"\033[36mfirstName\033[0m         ANNA\n"))
        self.assertEqual(COLOUR.sub(b"", out), varnel("parse", "--format", "table", text=PASSPORT)[1])

    def test_a_pipe_gets_json(self):
        self.assertEqual(varnel("parse", text=PASSPORT)[1], PASSPORT_JSON)

    def test_the_terminal_of_standard_error_makes_no_table(self):
        self.assertEqual(varnel_on_terminal("parse", text=PASSPORT, streams=["stderr"]), (0, PASSPORT_JSON, b""))

    def test_format_decides_otherwise(self):
        self.assertEqual(varnel_on_terminal("parse", "--format", "json", text=PASSPORT, streams=["stdout"])[1],
                         PASSPORT_JSON)
        self.assertNotIn(b"\033", varnel("parse", "--format", "table", text=PASSPORT)[1])

    def test_no_color_is_honoured(self):
        plain = varnel("parse", "--format", "table", text=PASSPORT)[1]
        for env in ({"NO_COLOR": "1"}, {"TERM": "dumb"}):
            with self.subTest(env=env):
                self.assertEqual(varnel_on_terminal("parse", text=PASSPORT, streams=["stdout"], env=env)[1], plain)

    def test_an_empty_no_color_is_none(self):
        out = varnel_on_terminal("parse", text=PASSPORT, streams=["stdout"], env={"NO_COLOR": ""})[1]
        self.assertIn(b"\033[36m", out)

    def test_refusal(self):
        code, out, err = varnel_on_terminal("parse", text=b"A", streams=["stdout"])
        self.assertEqual((code, out), (1, b"\033[31mrefused\033[0m\n"))
        self.assertIn(b"1 character after clean-up, expected 72", err)

    def test_elements_and_names(self):
        out = varnel_on_terminal("soundex", "Lee", streams=["stdout"])[1]
        self.assertEqual(out, b"\033[1mNAME  CODE\033[0m\nLee   L000\n")
        out = varnel_on_terminal("element", "DAA", streams=["stdout"], env={"NO_COLOR": "1"})[1]
        self.assertTrue(out.startswith(b"ELEMENT  TABLE                  SLOT  CONSTANT\n"))


class Keyboard(unittest.TestCase):
    HINT = b"varnel: reading from the terminal; end the text with Ctrl-D\n"

    def test_a_person_is_told_what_is_waited_for(self):
        self.assertEqual(varnel_on_terminal("parse", text=PASSPORT, streams=["stdin", "stderr"]),
                         (0, PASSPORT_JSON, self.HINT))

    def test_nobody_is_told_without_a_terminal_to_tell_it_on(self):
        self.assertEqual(varnel_on_terminal("parse", text=PASSPORT, streams=["stdin"]), (0, PASSPORT_JSON, b""))

    def test_no_progress_runs_into_what_is_typed(self):
        code, out, err = varnel_on_terminal("parse", "--each", "line", text=PASSPORT_LINE + b"\n",
                                            streams=["stdin", "stderr"])
        self.assertEqual((code, out), (1, PASSPORT_JSON + b"null\n"))
        self.assertTrue(err.startswith(self.HINT + b"varnel: standard input: document 2 (line 2): not a "), err)
        self.assertTrue(err.endswith(b"\nvarnel: 2 documents, 1 refused\n"), err)


class Progress(unittest.TestCase):
    def test_a_terminal_sees_progress_and_a_summary(self):
        code, out, err = varnel_on_terminal("parse", "--each", "line", text=PASSPORT_LINE * 2 + b"\n",
                                            streams=["stderr"])
        self.assertEqual((code, out), (1, PASSPORT_JSON * 2 + b"null\n"))
        self.assertTrue(err.startswith(b"\rvarnel: 0 documents, 0 refused\033[K"), err)
        self.assertTrue(err.endswith(b"\nvarnel: 3 documents, 1 refused\n"), err)
        self.assertIn(b"\r\033[Kvarnel: standard input: document 3 (line 3): not a machine-readable zone: ", err)

    def test_one_document(self):
        _, _, err = varnel_on_terminal("parse", "--each", "block", text=PASSPORT, streams=["stderr"])
        self.assertTrue(err.endswith(b"varnel: 1 document, 0 refused\n"), err)

    def test_where_all_was_refused_the_summary_names_what_helps(self):
        for how, text, said in (("line", PASSPORT, b"; try --each block"), ("block", PASSPORT * 2, b"; try --each zone"),
                                ("block", PASSPORT_LINE * 2, b"; try --each line"),
                                ("line", b"x\n", b""), ("block", b"x\n\ny\n", b""),
                                ("line", PASSPORT + PASSPORT_LINE, b""), ("line", b"", b"")):
            with self.subTest(how=how, text=text):
                _, _, err = varnel_on_terminal("parse", "--each", how, text=text, streams=["stderr"])
                self.assertTrue(err.endswith(b" refused" + said + b"\n"), err)

    def test_a_bar_where_the_size_is_known(self):
        _, _, err = varnel_on_terminal("parse", "--each", "line", __file__, streams=["stderr"])
        self.assertIn(b"  [" + b"." * 24 + b"] 0%\033[K", err)

    def test_it_never_stands_beside_documents(self):
        code, out, err = varnel_on_terminal("parse", "--each", "line", text=PASSPORT_LINE * 3000, env={"NO_COLOR": "1"})
        self.assertEqual((code, err), (0, b"varnel: 3000 documents, 0 refused\n"))
        self.assertTrue(out.startswith(b"document 1\nfirstName         ANNA\n"), out[:99])

    def test_it_fits_the_terminal(self):
        for columns, shown in ((80, b"varnel: 0 documents, 0 refused  [" + b"." * 24 + b"] 0%"),
                               (62, b"varnel: 0 documents, 0 refused  [" + b"." * 24 + b"] 0%"),
                               (61, b"varnel: 0 documents, 0 refused"), (31, b"varnel: 0 documents, 0 refused"),
                               (20, b"varnel: 0 documents"), (1, b"")):
            with self.subTest(columns=columns):
                _, _, err = varnel_on_terminal("parse", "--each", "line", __file__, streams=["stderr"], columns=columns)
                self.assertTrue(err.startswith(b"\r" + shown + b"\033[K\r\033[K"), err[:99])

    def test_no_terminal_sees_none(self):
        self.assertEqual(varnel("parse", "--each", "line", text=PASSPORT_LINE)[2], b"")
        self.assertEqual(varnel_on_terminal("parse", "--each", "line", text=PASSPORT_LINE, streams=["stdout"])[2], b"")

    def test_there_is_none_for_single_documents(self):
        self.assertEqual(varnel_on_terminal("parse", text=PASSPORT, streams=["stderr"])[2], b"")

    def test_nothing_of_a_text_is_shown(self):
        _, _, err = varnel_on_terminal("parse", "--each", "line", text=PASSPORT_LINE * 3000, streams=["stderr"])
        self.assertNotIn(b"ERIKSSON", err)


if __name__ == "__main__":
    unittest.main()
