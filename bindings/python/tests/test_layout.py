"""What a layout can do."""
import csv
import doctest
import importlib
import io
import pickle
import subprocess
import sys
import tempfile
import unittest

import text_format_detection
from text_format_detection import detect

try:
    import pandas
except ImportError:
    pandas = None

TEXT = "day;pool;takings\n2024-06-10;\"Bad; west\";1.302,5\n2024-06-11;Old Mill;77,25\n2024-06-12;Lido;8,00\n"
FIXED = "name      town   since\nAnna      Bern    1999\nBo        Ulm     2003\nCornelia  Lugano  2011\n"


class Values(unittest.TestCase):
    """A layout is a value."""

    def test_a_pickle_is_the_same_and_reads_on(self):
        for hints in ({}, {"decimal": ",", "missing": ["-", "x"], "method": "rules"}):
            layout = detect(TEXT, **hints)
            copy = pickle.loads(pickle.dumps(layout))
            self.assertEqual(copy.proposals, layout.proposals)
            self.assertEqual(list(copy.rows()), list(layout.rows()))

    def test_words(self):
        layout = detect(TEXT)
        self.assertIn("delimiter=';', columns=3, first_data_line=1", repr(layout))
        self.assertIn("3 fields", layout.why().splitlines()[0])
        self.assertEqual(len(layout.why().splitlines()), len(layout.proposals))
        self.assertIn("thousands", dir(layout))
        with self.assertRaises(AttributeError):
            layout.separator

    def test_examples_in_the_documentation(self):
        for name in ("", "._detect", "._layout"):
            module = importlib.import_module("text_format_detection" + name)
            result = doctest.testmod(module, optionflags=doctest.ELLIPSIS | doctest.IGNORE_EXCEPTION_DETAIL)
            self.assertEqual(result.failed, 0)
            self.assertGreater(result.attempted, 0)


class OtherReaders(unittest.TestCase):
    """csv and pandas read what the library reads."""

    def test_csv(self):
        for text in (TEXT, 'a b\n1 "x y"\n2 z\n3 w\n'):
            layout = detect(text)
            lines = io.StringIO("".join(text.splitlines(keepends=True)[layout.first_data_line:]))
            self.assertEqual(list(csv.reader(lines, layout.dialect())), list(layout.rows()))
        for hints in ({"kind": "line"}, {"widths": [3, 4]}, {"delimiter": "::"}):
            with self.assertRaisesRegex(ValueError, "csv cannot read"):
                detect(TEXT, **hints).dialect()

    @unittest.skipUnless(pandas, "pandas is not installed")
    def test_pandas(self):
        for text, hints in ((TEXT, {}), (FIXED, {"kind": "fixed_width"}), (FIXED, {"kind": "space_aligned"}),
                            ("a||b\n1||2\n3||4\n", {"delimiter": "||"}), ("# x\na,a\n1,2\n3,4\n", {"comment": "#"})):
            with self.subTest(text=text, **hints):
                layout = detect(text, **hints)
                arguments = layout.pandas()
                frame = getattr(pandas, arguments.function)(io.StringIO(text), **arguments)
                pandas.testing.assert_frame_equal(frame, layout.read(), check_dtype=False)
        with self.assertRaisesRegex(ValueError, "one field a line"):
            detect(TEXT, kind="line").pandas()

    @unittest.skipUnless(pandas, "pandas is not installed")
    def test_a_frame_keeps_what_is_no_number(self):
        frame = detect(TEXT, thousands=".").read()
        self.assertEqual(list(frame["takings"]), [1302.5, 77.25, 8.0])
        odd = detect("id;n\n1;5\n2;\n3;about 7\n4;8\n5;9\n6;1\n", delimiter=";").read()
        self.assertEqual(list(odd["n"])[1:3], ["", "about 7"])
        gaps = detect("id;n\n1;5\n2;-\n3;\n4;8\n5;9\n", missing=["-"], delimiter=";").read()
        self.assertEqual(list(gaps["n"].isna()), [False, True, True, False, False])


class Rows(unittest.TestCase):
    """Records of files of any size, and of broken ones."""

    def test_more_than_a_piece(self):
        text = "n;text\n" + "".join(f'{n};"line {n}\nnext ""{n}"""\n' for n in range(40_000))
        rows = list(detect(text).rows())
        self.assertEqual(len(rows), 40_000)
        self.assertEqual(rows[39_999], ["39999", 'line 39999\nnext "39999"'])

    def test_policies(self):
        text = "a;b;c\n1;2;3\n4;5\n6;7;8;9\n10;11;12\n13;14;15\n"
        told = []
        layout = detect(text)
        self.assertEqual([len(row) for row in layout.rows(tell=lambda *fault: told.append(fault))], [3, 2, 4, 3, 3])
        self.assertEqual([(line, fault) for line, fault, _ in told], [(2, "too_few_fields"), (3, "too_many_fields")])
        self.assertEqual(list(layout.rows(policy="pad"))[1], ["4", "5", ""])
        self.assertEqual(len(list(layout.rows(policy="skip"))), 3)
        self.assertEqual(len(list(layout.rows(policy="stop"))), 1)
        with self.assertRaisesRegex(ValueError, "guess"):
            next(layout.rows(policy="guess"))

    def test_what_a_file_raises_comes_behind_the_records_before_it(self):
        class Failing(io.BytesIO):
            def read(self, size=-1):
                if self.tell() > 70_000:
                    raise OSError("the disk is gone")
                return super().read(size)

        data = b"a;b\n" + b"1;2\n" * 40_000
        rows = detect(data).rows(Failing(data))
        read = 0
        with self.assertRaisesRegex(OSError, "the disk is gone"):
            for _ in rows:
                read += 1
        self.assertGreater(read, 10_000)


class Command(unittest.TestCase):
    """python -m text_format_detection"""

    def run_it(self, *arguments, data=b""):
        return subprocess.run([sys.executable, "-m", "text_format_detection", *arguments], input=data,
                              capture_output=True, check=False)

    def test_it_answers(self):
        run = self.run_it("-", "--hint", "decimal=,", data=TEXT.encode())
        self.assertIn("pool: text", run.stdout.decode())
        with tempfile.NamedTemporaryFile(suffix=".csv") as file:
            file.write(TEXT.encode())
            file.flush()
            self.assertEqual(self.run_it(file.name, "--rows", "--hint", "quote=\"").stdout.decode().splitlines()[0],
                             "2024-06-10\tBad; west\t1.302,5")
        run = self.run_it("no such file")
        self.assertEqual((run.returncode, run.stdout), (1, b""))
        self.assertIn(b"no such file", run.stderr)
        version = self.run_it("--version").stdout.decode().strip()
        self.assertEqual(version, text_format_detection.__version__)


if __name__ == "__main__":
    unittest.main()
