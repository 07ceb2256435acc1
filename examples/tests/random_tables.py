#!/usr/bin/env python3
"""Writes random tables, has detect_layout convert them, and compares what Python's csv reads of that
with the tables, cell by cell. Tables differ in size, names, types, delimiter, quote, quoting, marks of
numbers, line endings, line breaks in quotes, lines above and character set. Each comes from its number
alone, so that one can be looked at again:

  random_tables.py --program detect_layout --first 4711 --count 1 --keep folder

The exit status is 1 if more tables than --allowed come out differently, those not counted of which nobody could
know from the file how they were meant.
"""

import argparse
import collections
import csv
import json
import pathlib
import random
import re
import subprocess
import sys
import tempfile

WORDS = {
    "latin": "Müller Größe Straße Köln Zürich Märkte für über Gemüse Prüfung schön Lübeck Österreich Fußball "
             "Brücke Küche Tür Jäger süß Häuser".split(),
    "cyrillic": "Москва город жители улица Казань прибор дневник работа вода Сергей Ольга новый завод книга "
                "погода область поезд".split(),
    "japanese": "東京 大阪 名古屋 京都 横浜 りんご みかん さくら 会社 電話 住所 天気 カメラ テレビ".split(),
    "ascii": "bolt nut pin Washer north harbour Old Mill gate valve pump house river station green small red "
             "heavy Monday letter note paper".split(),
}
# What a set can write, and how often it is taken.
CHARACTER_SETS = [("utf-8", None, 10), ("utf-8-sig", None, 2), ("utf-16", None, 2), ("utf-16-be", None, 1),
                  ("cp1252", "latin", 2), ("cp1251", "cyrillic", 2), ("shift_jis", "japanese", 2)]

# Why nobody could know from the file alone how a table was meant. Such tables are counted, and are no faults.
UNKNOWN_MARKS = "ambiguous: neither a number nor a column tells whether 1.234 has thousands"
UNKNOWN_NAMES = "ambiguous: all cells are words, and so are the names"
NAMES = "id name city day price amount count note weight code street phone share colour level size".split()


class Table:
    def __init__(self, number):
        self.random = random.Random(number)
        chosen = self.random.choices(CHARACTER_SETS, [weight for _, _, weight in CHARACTER_SETS])[0]
        self.character_set, self.language, _ = chosen
        self.language = self.language or self.random.choice(list(WORDS))
        self.delimiter = self.random.choice(",,;;\t\t||")
        self.quote = self.random.choice('"""""\'')
        self.quoting = self.random.choice([csv.QUOTE_MINIMAL] * 3 + [csv.QUOTE_ALL, csv.QUOTE_NONNUMERIC])
        self.decimal = "." if self.delimiter == "," or self.random.random() < 0.5 else ","
        self.thousands = self.random.choice(["", "", "", {".": ",", ",": "."}[self.decimal]])
        self.line_end = self.random.choice(["\n", "\r\n"])
        self.breaks_lines = self.random.random() < 0.3
        columns = self.random.randint(2, 9)
        makers = [self.random.choice([self.whole, self.fraction, self.date, self.time, self.words, self.words, self.code])
                  for _ in range(columns)]
        if columns > 1 and self.words not in makers and self.random.random() < 0.7:
            makers[0] = self.words
        gaps = [self.random.choice([0, 0, 0, 0.1, 0.3]) for _ in range(columns)]
        self.has_words_alone = all(make == self.words for make in makers)
        self.names = self.random.sample(NAMES, columns)
        self.names = [name if self.random.random() < 0.8 else f"{name} {self.random.choice(WORDS[self.language])}"
                      for name in self.names]
        self.written, self.values = [], []
        for _ in range(self.random.randint(8, 80)):
            cells = [("", "") if self.random.random() < gap else make() for make, gap in zip(makers, gaps)]
            if any(value for value, _ in cells):
                self.written.append([written for _, written in cells])
                self.values.append([value for value, _ in cells])
        self.title = self.random.choice(["", "", "", "", "", "", "List of the day", "Stock, main store"])

    def digits(self, text):
        """A number with its marks: the plain one, and as it is written."""
        whole, point, rest = text.partition(".")
        if self.thousands and len(whole.lstrip("-")) > 3:
            whole = f"{int(whole):,}".replace(",", self.thousands)
        return text, whole + (self.decimal if point else "") + rest

    def whole(self):
        return self.digits(str(self.random.randint(-50, 10 ** self.random.randint(1, 6))))

    def fraction(self):
        return self.digits(f"{self.random.uniform(-100, 10 ** self.random.randint(1, 5)):.2f}")

    def date(self):
        text = f"{self.random.randint(1990, 2024)}-{self.random.randint(1, 12):02}-{self.random.randint(1, 28):02}"
        return text, text

    def time(self):
        text = f"{self.random.randint(0, 23):02}:{self.random.randint(0, 59):02}:{self.random.randint(0, 59):02}"
        return text, text

    def code(self):
        text = f"{self.random.choice('ABCDEFG')}{self.random.choice('-/ ')}{self.random.randint(100, 999)}"
        return text, text

    def words(self):
        words = self.random.choices(WORDS[self.language] + WORDS["ascii"], k=self.random.randint(1, 5))
        text = " ".join(words)
        chance = self.random.random()
        if chance < 0.1:
            text = text.replace(" ", self.delimiter + " ", 1)
        elif chance < 0.15:
            text = text.replace(words[0], f"{self.quote}{words[0]}{self.quote}", 1)
        elif chance < 0.3 and self.breaks_lines:
            text = text.replace(" ", self.line_end, 1)
        return text, text

    def shows_marks(self):
        """Whether it can be seen which mark is which: by a number with two of them, or without three digits behind
        one; or by a column in which such numbers stand beside two or more without a mark, as decimals do not."""
        for column in zip(*self.written):
            numbers = [cell for cell in column if re.fullmatch(r"-?[\d.,]+", cell)]
            marked = [number for number in numbers if re.search("[.,]", number)]
            if any(not re.fullmatch(r"-?\d{1,3}[.,]\d\d\d", number) for number in marked):
                return True
            if marked and len(numbers) - len(marked) > 1:
                return True
        return False

    def write(self, path):
        with open(path, "w", encoding=self.character_set, newline="") as file:
            if self.character_set == "utf-16-be":
                file.write("\ufeff")
            if self.title:
                file.write(self.title + self.line_end + self.line_end)
            writer = csv.writer(file, delimiter=self.delimiter, quotechar=self.quote, quoting=self.quoting,
                                lineterminator=self.line_end)
            writer.writerow(self.names)
            writer.writerows(self.written)

    def cells(self):
        return [self.names, *self.values]


def without_groups(cell, thousands):
    is_grouped = re.fullmatch(rf"-?\d{{1,3}}({re.escape(thousands)}\d\d\d)+", cell)
    return cell.replace(thousands, "") if is_grouped else cell


def first_difference(expected, found):
    if [len(row) for row in expected] != [len(row) for row in found]:
        return f"{len(expected)} rows of {len(expected[0])} expected, {len(found)} of {len(found[0]) if found else 0} found"
    return next(f"row {i}: {a!r} expected, {b!r} found" for i, (row, other) in enumerate(zip(expected, found))
                for a, b in zip(row, other) if a != b)


def kind_of_difference(program, path, table):
    """In what the answer is another one."""
    answer = json.loads(subprocess.run([program, "--json", path], check=True, capture_output=True).stdout)
    usual = {"utf-8": "UTF-8", "utf-8-sig": "UTF-8", "utf-16": "UTF-16LE", "utf-16-be": "UTF-16BE",
             "cp1252": "windows-1252", "cp1251": "windows-1251", "shift_jis": "Shift_JIS"}
    if answer["charset"] != usual[table.character_set] and answer["charset"] != "UTF-8":
        return f"character set {answer['charset']} instead of {usual[table.character_set]}"
    if answer["kind"] != "delimited" or answer["delimiters"] != [table.delimiter]:
        return "delimiter"
    if answer["num_variables"] != len(table.names):
        return "number of columns"
    if answer["names_line"] is None:
        return "names taken for data"
    if answer["first_data_line"] - answer["names_line"] != 1 or answer["names_line"] != (2 if table.title else 0):
        return "lines of names and data"
    if answer["quote"] not in (None, table.quote):
        return "quote"
    if answer["comment"] is not None:
        return "comments that are none"
    return "values"


def check(program, number, folder):
    table = Table(number)
    path, converted = folder / f"{number}.txt", folder / f"{number}.csv"
    table.write(path)
    result = subprocess.run([program, "convert", path, "-o", converted, "--force"], capture_output=True, text=True, check=False)
    if result.returncode not in (0, 1):
        return "error", result.stderr
    with open(converted, encoding="utf-8", newline="") as file:
        found = list(csv.reader(file))
    expected = table.cells()
    if found == expected and result.returncode == 0:
        return None
    if found == expected:
        return "status 1 for nothing", result.stderr
    if table.has_words_alone and found[1:] == expected:
        return UNKNOWN_NAMES, first_difference(expected, found)
    if table.thousands and expected == [[without_groups(cell, table.thousands) for cell in row] for row in found]:
        return "marks of numbers" if table.shows_marks() else UNKNOWN_MARKS, first_difference(expected, found)
    return kind_of_difference(program, path, table), first_difference(expected, found)


def main():
    parser = argparse.ArgumentParser(description="Converts random tables and compares all cells.")
    parser.add_argument("--program", required=True, help="detect_layout")
    parser.add_argument("--first", type=int, default=0, help="number of the first table")
    parser.add_argument("--count", type=int, default=10000)
    parser.add_argument("--allowed", type=int, default=0, help="tables that may come out differently")
    parser.add_argument("--keep", type=pathlib.Path, help="folder for the files")
    options = parser.parse_args()
    kinds = collections.defaultdict(list)
    with tempfile.TemporaryDirectory() as temporary:
        folder = options.keep or pathlib.Path(temporary)
        folder.mkdir(exist_ok=True)
        for number in range(options.first, options.first + options.count):
            difference = check(options.program, number, folder)
            if difference:
                kinds[difference[0]].append((number, difference[1]))
            if not options.keep:
                for file in folder.iterdir():
                    file.unlink()
    ambiguous = sum(len(kinds.get(kind, [])) for kind in (UNKNOWN_MARKS, UNKNOWN_NAMES))
    different = sum(map(len, kinds.values())) - ambiguous
    equal = options.count - ambiguous - different
    print(f"{options.count} tables, {equal} equal cell by cell, {ambiguous} ambiguous, {different} not equal")
    for kind, cases in sorted(kinds.items(), key=lambda item: -len(item[1])):
        print(f"{kind}: {len(cases)}")
        for number, text in cases[:5]:
            print(f"  table {number}: {text.strip()}")
    return 1 if different > options.allowed else 0


if __name__ == "__main__":
    sys.exit(main())
