"""What `detect` takes and gives."""
import io
import json
import os
import pathlib
import subprocess
import tempfile
import threading
import unittest

from text_format_detection import HINTS, detect

ROOT = pathlib.Path(__file__).resolve().parents[3]
DATA = ROOT / "examples" / "data"
CASES = json.loads((ROOT / "bindings" / "cases.json").read_text(encoding="utf-8"))
HOST = os.environ.get("DETECT_LAYOUT", "")
TEXT = "day;pool;visitors\n2024-06-10;Westbad;302\n2024-06-11;Old Mill;1077\n"
MEMBERS = ("kind", "delimiter", "widths", "header_lines", "names_line", "first_data_line", "quote", "comment",
           "comment_end", "decimal", "thousands")


class Cases(unittest.TestCase):
    """The table that all languages share."""

    def test_each_has_its_answer_and_its_records(self):
        for case in CASES["texts"]:
            with self.subTest(case["name"]):
                layout = detect(io.StringIO(case["text"], newline=""), **case["hints"])
                told = {"rows": layout.data_rows, "classes": [one.class_ for one in layout.columns],
                        "missing": [one.missing for one in layout.columns]}
                for name, expected in case["expected"].items():
                    self.assertEqual(told[name] if name in told else getattr(layout, name), expected, name)
                self.assertEqual(list(layout.rows(io.StringIO(case["text"], newline=""))), case["records"])

    def test_each_fault_is_named(self):
        for case in CASES["faults"]:
            error = TypeError if case["status"] == "unknown_name" else ValueError
            with self.subTest(case["hints"]), self.assertRaisesRegex(error, case["says"]):
                detect(TEXT, **case["hints"])

    def test_the_example_files_are_answered_as_the_host_answers(self):
        if not HOST:
            self.skipTest("DETECT_LAYOUT does not name the host")
        for name in CASES["example_files"]:
            with self.subTest(name):
                run = subprocess.run([HOST, "--json", DATA / name], capture_output=True, check=True)
                told = json.loads(run.stdout)
                layout = detect(DATA / name)
                for member in MEMBERS:
                    self.assertEqual(getattr(layout, member), self.host_member(told, member), member)
                self.assertEqual(layout.confidence, told["confidence"])
                self.assertEqual(layout.is_table, told["is_table"])
                columns = [(one.name, one.class_, one.values, one.missing) for one in layout.columns]
                self.assertEqual(columns, [tuple(one.values()) for one in told["columns"]])
                self.assertEqual([one.score for one in layout.proposals], [one["score"] for one in told["proposals"]])

    @staticmethod
    def host_member(told, member):
        if member == "delimiter":
            return told["delimiters"][0] if told["kind"] == "delimited" else None
        return told["field_widths"] if member == "widths" else told[member]


class Sources(unittest.TestCase):
    """One text, handed over in each way."""

    def check(self, layout, encoding="utf-8"):
        self.assertEqual((layout.kind, layout.delimiter, layout.encoding), ("delimited", ";", encoding))
        self.assertEqual(layout.names, ["day", "pool", "visitors"])

    def test_memory(self):
        for source in (TEXT, TEXT.encode(), bytearray(TEXT.encode()), memoryview(TEXT.encode())):
            layout = detect(source)
            self.check(layout)
            self.assertEqual(list(layout.rows())[1], ["2024-06-11", "Old Mill", "1077"])

    def test_files(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "tickets.csv"
            path.write_text(TEXT, encoding="utf-8")
            for source in (path, str(path)):
                self.check(detect(source))
            with open(path, "rb") as file:
                file.readline()
                self.assertEqual(detect(file).names, ["", "", ""])
                self.assertEqual(file.readline()[:10], b"2024-06-10")
            with open(path, encoding="utf-8") as file:
                self.check(detect(file))
                self.assertEqual(len(list(detect(file).rows(file))), 2)

    def test_a_pipe_is_read_once(self):
        reading, writing = os.pipe()
        with open(writing, "wb") as file:
            file.write(TEXT.encode())
        with open(reading, "rb") as file:
            layout = detect(file)
        self.check(layout)
        with self.assertRaisesRegex(ValueError, "say what to read"):
            layout.rows()

    def test_encodings(self):
        text = TEXT.replace("Westbad", "Südbad")
        for encoding, said in (("utf-8-sig", None), ("utf-16", None), ("utf-32", None), ("cp1252", "cp1252"),
                               ("utf-16-le", "utf-16-le"), ("shift_jis", "shift_jis")):
            source = (text if encoding != "shift_jis" else TEXT.replace("Westbad", "西の湯")).encode(encoding)
            with self.subTest(encoding):
                layout = detect(source, encoding=said)
                self.check(layout, said or encoding.replace("-sig", ""))
                self.assertIn(next(layout.rows())[1], ("Südbad", "西の湯"))
        self.assertEqual(next(detect(text.encode("cp1252")).rows())[1], "S\ufffddbad")
        self.assertEqual(next(detect(TEXT.replace("Westbad", "W\ud800st")).rows())[1][0], "W")


class Hints(unittest.TestCase):
    """What is said is kept, and what is wrong is named."""

    def test_each_is_taken(self):
        said = {"delimiter": "t", "quote": "'", "comment": "%", "comment_end": "!", "decimal": ",", "thousands": ".",
                "first_data_line": 1, "names_line": 0}
        layout = detect(TEXT, whitespace=" ", missing=["-", "n/a"], rows=2, **said)
        for name, value in said.items():
            self.assertEqual(getattr(layout, name), value, name)
        self.assertEqual(detect(TEXT, widths=[10, 5]).widths, [10, 5])
        self.assertEqual(detect(TEXT, kind="line").kind, "line")
        self.assertEqual(detect(TEXT, quote="", names_line="none").names, ["", "", ""])
        self.assertIsNone(detect(TEXT, method="rules").confidence)
        self.assertEqual(detect(TEXT, delimiter=None).delimiter, ";")
        self.assertIn("thousands", HINTS)

    def test_missing_counts(self):
        layout = detect("a;b\n1;-\n2;n/a\n3;4\n", missing=["-", "n/a"], delimiter=";")
        self.assertEqual([column.missing for column in layout.columns], [0, 2])

    def test_errors(self):
        with self.assertRaisesRegex(ValueError, "widths"):
            detect(TEXT, widths=[3, "x"])
        with self.assertRaises(FileNotFoundError):
            detect("no such file.csv")
        with self.assertRaises(LookupError):
            detect(TEXT, encoding="klingon")
        with self.assertRaisesRegex(TypeError, "int"):
            detect(42)

    def test_any_text_has_a_layout(self):
        for source in (b"", b"\0" * 100, b"\xff\xfe", b"\n\n", b"\x80" * 5000):
            self.assertGreaterEqual(len(detect(source).proposals), 1)


class Threads(unittest.TestCase):
    """Others run while the library works."""

    def test_many_at_once(self):
        answers = []
        work = [threading.Thread(target=lambda: answers.append(len(list(detect(TEXT * 200).rows()))))
                for _ in range(8)]
        for thread in work:
            thread.start()
        for thread in work:
            thread.join()
        self.assertEqual(len(set(answers)), 1)


if __name__ == "__main__":
    unittest.main()
