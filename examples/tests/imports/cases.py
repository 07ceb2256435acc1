"""The files whose import is proved: the example files, and some that are made to be hard."""

import csv
import gzip
import io
import os
import random

# What has to be said of an example file so that it is read as a table.
HINTS = {
    "wind_tunnel.txt": [[], ["--comment", "/*", "--comment-end", "*/"]],
}

# Without a row there is nothing to import.
EMPTY = {"empty.txt"}


def rows(line, count=12):
    return "".join(line.format(i=i, j=i * 37 % 101, k=i % 10) for i in range(1, count + 1))


HARD = {
    "odd names.csv": (
        'id,"a ""quoted"" name","back\\slash","it\'s",größe,"with,comma",id,"`tick`","#(lf)"\n'
        + rows("{i},q{j},b\\{k},it's {i},{j},\"x,{k}\",{k},t{i},#(cr){i}\n"),
        "utf-8",
    ),
    "it's a 'file'.csv": ("name;amount\n" + rows("n{i};{j},5{k}\n"), "utf-8"),
    "broken_lines.csv": (
        'id,note,amount\n' + rows('{i},"first {j}\nsecond, ""{k}""",{j}.25\n'), "utf-8"),
    "missing.csv": (
        "place,depth,count,note\n" + rows("p{i},{j}.5,{k},NA\n", 6) + "p7,NA,-,NA\np8,2.25,,\n"
        + rows("q{i},{j}.5,{k},ok\n", 6),
        "utf-8",
    ),
    "codes.csv": (
        "zip,ean,share,when\n" + rows("0{j:04d},4006381333{j:03d}931{k},0.{j:02d},2024-02-{i:02d}\n"),
        "utf-8",
    ),
    "figures.csv": (
        "x;y;z\n" + rows("0.1{j}234567890123{k};-{j}e-{k};{i}.{j}\n"), "utf-8"),
    "single_quotes.csv": ("a;b;c\n" + rows("'x;{i}';'it''s {j}';{k}\n"), "utf-8"),
    "thousands.csv": (
        "town\tpeople\tarea\n" + rows("t{i}\t{i},{j:03d},00{k}\t{j}.{k}\n"), "utf-8"),
    "dates.csv": (
        "day;stamp;us;either\n"
        + rows("{i:02d}.03.2021;2021-03-{i:02d} 07:{j:02d};03/2{k}/2021;0{k}/0{k}/2021\n", 9),
        "utf-8",
    ),
    "padded.csv": ("a, b, c\n" + rows(" w{i} , {j}.5, \"q {k}\"\n"), "utf-8"),
    "marked.csv": ("a,b\n" + rows("ä{i},{j}\n"), "utf-8-sig"),
    "no_names_marked.csv": (rows("{i},{j},w{k}\n"), "utf-8-sig"),
    "returns.csv": (("a,b,c\n" + rows("x{i},{j},{k}.5\n")).replace("\n", "\r"), "utf-8"),
    "greek.csv": ("όνομα;τιμή\n" + rows("Αθήνα {i};{j},{k}\n"), "cp1253"),
    "japanese.csv": ("都市,人口\n" + rows("東京{i},{j}\n"), "shift_jis"),
    "wide.txt": (
        "".join(f"{i:<5d}Müller {'äöü'[i % 3] * (i % 4 + 1):<8}{i * 1.25:>8.2f}\n" for i in range(10, 25)),
        "utf-8",
    ),
    "quoted_blanks.txt": (
        "".join(f'{i:<5d}"two words"   {i * 1.5:>7.2f}  "x"\n' for i in range(10, 25)), "utf-8"),
    "above.csv": ("Report 7\" wide\nmade by us\n\na;b;c\n" + rows("{i};x{j};{k},5\n"), "utf-8"),
    "comments.csv": (
        "a,b\n" + rows("w{i},{j}\n", 6) + "# pause\n  # indented\n" + rows("v{i},{j}\n", 6), "utf-8"),
    "signs.csv": ("# head\na,b\n" + rows("room #{i},{j}\n", 6) + "# pause\n" + rows("r#{i},{j}\n"), "utf-8"),
    "only_numbers.csv": (rows("{i},{j},{k}.5\n"), "utf-8"),
    "empty_cells.csv": ("a,b,c\n" + rows("{i},,\n", 4) + ",,\n" + rows("{i},x,2.5\n"), "utf-8"),
    "long_rows.csv": ("a,b\n" + rows("w{i},{j}\n", 9) + "x,1,note\n" + rows("v{i},{j}\n"), "utf-8"),
    "wide_units.csv": ("name,place\n" + rows("Ж{i},{j}\n"), "utf-16"),
    "unmarked_units.csv": ("name,place\r\n" + rows("größe {i},{j}\r\n"), "utf-16-be"),
    "broken_names.csv": ('a,"b\nc",d\n' + rows("w{i},{j},{k}.5\n"), "utf-8"),
    "crlf_inside.csv": ('a,b\r\n' + rows('{i},"x {j}\r\ny"\r\n'), "utf-8"),
    "exponents.tsv": ("a\tb\tc\n" + rows("{i}e{k}\t-{j}\t-0.{j}E-1{k}\n"), "utf-8"),
    "escapes.csv": ("a;b;c\n" + rows("\\N;w{i};\\.\n", 6) + rows("\\t{i};%s{j};${k}\n", 6), "utf-8"),
    "blanks_in_numbers.csv": ("a;b\n" + rows("w{i};{i} {j:03d},5\n"), "utf-8"),
    "euro.csv": ("Größe;Preis €\n" + rows("ß{i};{j} €\n"), "cp1252"),
    "packed.csv.gz": ("a,b\n" + rows("w{i},{j}\n"), "utf-8"),
    "one_column.txt": (rows("{i}.{j}\n"), "utf-8"),
    "bars.txt": ("a|b|c\n" + rows("'{i}|{k}\"|{j}\n"), "utf-8"),
    "double_colons.txt": ("a::b::c\n" + rows("{i}::x{j}::{k}.5\n"), "utf-8"),
}


WORDS = ["bolt", "Größe", "x y", "it's", 'say "so"', "a,b;c", "two\nlines", "C:\\new", "100 %", "é", "", "#3", "-"]


def random_value(source, kind, mark):
    """One value of a column of that kind, with that decimal mark."""
    if source.random() < 0.05 and kind != "word":
        return source.choice(["", "", "NA"])
    number = source.randrange(-5000, 200000)
    return {
        "whole": lambda: str(number),
        "decimal": lambda: f"{number / 100:.2f}".replace(".", mark),
        "code": lambda: f"{abs(number):07d}",
        "date": lambda: f"20{source.randrange(10, 25)}-{source.randrange(1, 13):02}-{source.randrange(1, 29):02}",
        "german": lambda: f"{source.randrange(1, 29):02}.{source.randrange(1, 13):02}.20{source.randrange(10, 25)}",
        "word": lambda: source.choice(WORDS),
    }[kind]()


def random_file(seed):
    """A table of random columns, as Python's csv writes it; gives text and character set."""
    source = random.Random(seed)
    delimiter = source.choice(",;\t|")
    mark = source.choice(".,") if delimiter != "," else "."
    kinds = [source.choice(["whole", "decimal", "code", "date", "german", "word"]) for _ in range(source.randrange(2, 7))]
    text = io.StringIO()
    writer = csv.writer(text, delimiter=delimiter, lineterminator=source.choice(["\n", "\n", "\r\n"]),
                        quoting=source.choice([csv.QUOTE_MINIMAL, csv.QUOTE_MINIMAL, csv.QUOTE_ALL]))
    if source.random() < 0.3:
        text.write("Report of the day\n")
    if source.random() < 0.8:
        writer.writerow([f"{kind} {i}" for i, kind in enumerate(kinds)])
    for _ in range(source.randrange(8, 30)):
        writer.writerow([random_value(source, kind, mark) for kind in kinds])
    return text.getvalue(), source.choice(["utf-8", "utf-8", "utf-8-sig", "cp1252", "utf-16"])


def write_hard(folder, random_files, seed):
    """Writes the hard files and so many random ones; gives their names."""
    files = dict(HARD)
    files.update({f"random_{seed + i}.csv": random_file(seed + i) for i in range(random_files)})
    for name, (text, encoding) in files.items():
        opener = gzip.open if name.endswith(".gz") else open
        with opener(os.path.join(folder, name), "wt", encoding=encoding, newline="") as file:
            file.write(text)
    return list(files)
