#!/usr/bin/env python3
"""Proves import statements with the real tools: each is run, and every cell that the tool has is compared
with that of the library's reader. Status 77 if the tool is not installed."""

import argparse
import datetime
import json
import os
import shlex
import shutil
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True  # the sources may not be ours to write to

import cases
import postgres_server

HERE = os.path.dirname(os.path.abspath(__file__))
PROJECT = os.path.dirname(os.path.dirname(os.path.dirname(HERE)))
DATA = os.path.join(PROJECT, "examples", "data")
SKIPPED = 77
DATE_FORMS = ["%Y-%m-%d", "%d.%m.%Y", "%m/%d/%Y", "%d/%m/%Y", "%Y-%m-%dT%H:%M:%SZ", "%Y-%m-%d %H:%M"]


class Skip(Exception):
    """The tool cannot be run here."""


def run(command, **more):
    return subprocess.run(command, capture_output=True, check=False, **more)


def python_with(module):
    """An interpreter that has the module: Debian's packages are those of /usr/bin/python3."""
    for python in (sys.executable, "/usr/bin/python3"):
        if os.path.exists(python) and run([python, "-c", "import " + module]).returncode == 0:
            return python
    raise Skip(f"{module} for Python is not installed")


def r_with(package):
    if shutil.which("Rscript") is None:
        raise Skip("R is not installed")
    if run(["Rscript", "-e", f"library({package})"]).returncode != 0:
        raise Skip(f"{package} for R is not installed")


def node_with(package):
    if shutil.which("node") is None:
        raise Skip("Node is not installed")
    if run(["node", "-e", f"require('{package}')"]).returncode != 0:
        raise Skip(f"{package} for Node is not installed")


def run_python(jobs, python, **environment):
    done = run([python, os.path.join(HERE, "run_python.py")], env={**os.environ, **environment},
               input=json.dumps([[job.folder, job.statement] for job in jobs]).encode())
    if done.returncode != 0:
        raise RuntimeError(done.stderr.decode())
    return json.loads(done.stdout)


def run_pandas(jobs):
    return run_python(jobs, python_with("pandas"))


def run_python_csv(jobs):
    return run_python(jobs, sys.executable)


def run_polars(jobs):
    node_with("nodejs-polars")
    plans = run_python(jobs, sys.executable, PYTHONPATH=os.path.join(HERE, "stand_in"))
    good = [plan["plan"] for plan in plans if "plan" in plan]
    done = run(["node", os.path.join(HERE, "run_polars.js")], input=json.dumps(good).encode())
    if done.returncode != 0:
        raise RuntimeError(done.stderr.decode())
    results = iter(json.loads(done.stdout))
    return [next(results) if "plan" in plan else plan for plan in plans]


def run_r(jobs, package):
    r_with(package)
    with tempfile.TemporaryDirectory() as folder:
        for number, job in enumerate(jobs):
            with open(f"{folder}/{number:03}.statement", "w", encoding="utf-8") as file:
                file.write(f"# {job.folder}\n{job.statement}")
        done = run(["Rscript", os.path.join(HERE, "run_r.R"), folder], env={**os.environ, "LC_ALL": "C.UTF-8"})
        if done.returncode != 0:
            raise RuntimeError(done.stderr.decode())
        return [cells_of_r(f"{folder}/{number:03}.cells") for number in range(len(jobs))]


def cells_of_r(path):
    with open(path, encoding="utf-8", newline="") as file:
        text = file.read()
    if text.startswith("error: "):
        return {"error": text}
    names, *rows = [line.split("\x1f") for line in text.split("\x1e")]
    return {"names": names, "rows": [[None if cell == "-" else cell for cell in row] for row in rows]}


def run_duckdb(jobs):
    node_with("@duckdb/node-api")
    files = [job for job in jobs if not job.is_piped()]
    done = dict(zip(files, duckdb_cells(files)))
    for job in jobs:
        if job.is_piped():
            start = "-- Run it so: "
            line = next(line for line in job.statement.splitlines() if line.startswith(start))
            done[job] = duckdb_cells([job], line[len(start):].rpartition(" | ")[0] + " | ")[0]
    return [done[job] for job in jobs]


def duckdb_cells(jobs, source=""):
    """The cells that DuckDB has, `source` being a command whose output it gets."""
    with tempfile.NamedTemporaryFile("w", encoding="utf-8") as file:
        json.dump([[job.folder, job.statement, job.table_name('CREATE TABLE "')] for job in jobs], file)
        file.flush()
        command = shlex.join(["node", os.path.join(HERE, "run_duckdb.js"), file.name])
        done = run(["sh", "-c", source + command], cwd=jobs[0].folder)
        return json.loads(done.stdout) if done.stdout else [{"error": done.stderr.decode()}] * len(jobs)


def run_sqlite(jobs):
    import sqlite3

    if shutil.which("sqlite3") is None:
        raise Skip("sqlite3 is not installed")
    results = []
    for job in jobs:
        with tempfile.TemporaryDirectory() as folder:
            database = f"{folder}/data.sqlite"
            done = run(["sqlite3", database], input=job.statement.encode(), cwd=job.folder)
            connection = sqlite3.connect(database)
            try:
                table = connection.execute(f'SELECT * FROM "{job.table_name("CREATE TABLE ")}"')
                rows = [[token_of_sql(cell) for cell in row] for row in table]
                results.append({"names": [column[0] for column in table.description], "rows": rows})
            except sqlite3.Error as error:
                results.append({"error": f"{error}: {done.stderr.decode()}"})
            connection.close()
    return results


def token_of_sql(cell):
    if cell is None:
        return None
    return ("s:" if isinstance(cell, str) else "n:") + (cell if isinstance(cell, str) else repr(cell))


def run_postgres(jobs):
    if not postgres_server.is_installed():
        raise Skip("PostgreSQL is not installed")
    with postgres_server.Server() as server:
        return [server.cells(job) for job in jobs]


def not_run(what):
    def skip(jobs):
        raise Skip(f"{what} cannot be run here, so its statements are not proved")

    return skip


TOOLS = {
    "data.table": lambda jobs: run_r(jobs, "data.table"),
    "duckdb": run_duckdb,
    "excel": not_run("Excel"),
    "pandas": run_pandas,
    "polars": run_polars,
    "postgres": run_postgres,
    "python-csv": run_python_csv,
    "r": lambda jobs: run_r(jobs, "readr"),
    "spark": not_run("Spark"),
    "sqlite": run_sqlite,
}


class Job:
    """A file and the statement that reads it."""

    def __init__(self, folder, file, hints, statement, expected):
        self.folder, self.file, self.hints = folder, file, hints
        self.statement, self.expected = statement, expected

    def title(self):
        return " ".join([self.file, *self.hints])

    def is_piped(self):
        return "So detect_layout rewrites it" in self.statement

    def table_name(self, start):
        line = next(line for line in self.statement.splitlines() if line.startswith(start))
        return line.split('"')[1]


def jobs_for(tool, arguments, folders):
    """A job for each file, and the failures of those for which there is none."""
    jobs, failures = [], []
    for folder, files in folders:
        for file in files:
            for hints in cases.HINTS.get(file, [[]]):
                command = [arguments.program, "import", file, "--for", tool, *hints]
                done = run(command, cwd=folder)
                if file in cases.EMPTY:
                    if done.returncode != 2 or b"no rows" not in done.stderr:
                        failures.append(f"{file}: is taken for a table")
                elif done.returncode != 0:
                    failures.append(f"{file}: {done.stderr.decode()}")
                else:
                    cells = run([arguments.cells, file, *hints], cwd=folder)
                    jobs.append(Job(folder, file, hints, done.stdout.decode(), json.loads(cells.stdout)))
    return jobs, failures


def plain(number, marks):
    return number.replace(marks["thousands"] or "\0", "").replace(marks["decimal"] or ".", ".")


def is_number(text, marks):
    """Whether the text is a number for certain, which no tool should take for a text."""
    whole, _, rest = plain(text, marks).removeprefix("-").partition(".")
    digits = whole + rest
    return digits.isdecimal() and digits.isascii() and len(digits) < 16 and (whole == "0" or whole[:1] != "0")


def is_equal(cell, text, marks, missing, is_piped):
    """Whether what a tool has for a cell is what the reader gives. By way of `convert`, numbers have
    decimal points in columns of text too, if most of their values are numbers."""
    if cell is None:
        return text == "" or text in missing
    kind, value = cell.split(":", 1)
    if kind == "s":
        return value == text or (is_piped and value == plain(text, marks))
    try:
        if kind == "n":
            return float(value) == float(plain(text, marks))
        value = datetime.datetime.strptime(value, "%Y-%m-%d %H:%M:%S")
    except ValueError:
        return False
    for form in DATE_FORMS:
        try:
            if datetime.datetime.strptime(text, form) == value:
                return True
        except ValueError:
            continue
    return False


def faults_of(job, result):
    """What is wrong with the cells that a tool gave."""
    if "error" in result:
        return [result["error"]]
    expected = job.expected
    # The reader is not asked for names, which are those of the answer, quotes still doubled.
    names = [name.replace('""', '"') for name in expected["names"]] or [""]
    rows = expected["rows"]
    if "are left out" in job.statement:
        rows = [row for row in rows if len(row) == len(names)]
    faults = []
    unique = [name for name in names if sum(name.casefold() == other.casefold() for other in names) == 1]
    for name, found in zip(names, result["names"]):
        if name in unique and name and name != found:
            faults.append(f"column {name!r} is called {found!r}")
    if len(rows) != len(result["rows"]):
        faults.append(f"{len(result['rows'])} rows of {len(rows)}")
    # In these files, a few cells without a value say so.
    missing = {"NA", "-"} if job.file.startswith(("missing", "random")) else set()
    for row, found in zip(rows, result["rows"]):
        # A tool has cells for all columns, the reader those that are there.
        width = max(len(row), len(found))
        padded = list(row) + [""] * (width - len(row))
        cells = list(found) + [None] * (width - len(found))
        for text, cell in zip(padded, cells):
            if not is_equal(cell, text, expected, missing, job.is_piped()):
                faults.append(f"{cell!r} for {text!r}")
    for i in range(len(names)):
        column = [row[i] for row in rows if i < len(row) and row[i] not in missing | {""}]
        found = [row[i] for row in result["rows"] if i < len(row) and row[i] is not None]
        if column and all(is_number(text, expected) for text in column):
            if any(cell.startswith("s:") for cell in found if cell != "s:"):
                faults.append(f"numbers of column {i + 1} are texts")
    return faults


def prove(tool, arguments, folders):
    jobs, failures = jobs_for(tool, arguments, folders)
    if arguments.only:
        jobs = [job for job in jobs if arguments.only in job.file]
    start = time.monotonic()
    results = TOOLS[tool](jobs)
    seconds = time.monotonic() - start
    cells = 0
    for job, result in zip(jobs, results, strict=True):
        faults = faults_of(job, result)
        cells += sum(len(row) for row in job.expected["rows"])
        if faults:
            failures.append("\n  ".join([f"{job.title()}: {len(faults)} faults", *faults[:5]]))
            if arguments.verbose:
                failures.append(job.statement)
    piped = sum(job.is_piped() for job in jobs)
    print(f"{tool}: {len(jobs)} files, {piped} of them by way of convert, {cells} cells, {seconds:.1f} s")
    for failure in failures:
        print(failure)
    return 1 if failures else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("tool", choices=TOOLS)
    parser.add_argument("--program", required=True, help="detect_layout")
    parser.add_argument("--cells", required=True, help="reader_cells")
    parser.add_argument("--random", type=int, default=25, help="random files (default 25)")
    parser.add_argument("--seed", type=int, default=1, help="of the first of them (default 1)")
    parser.add_argument("--only", help="files whose names hold this")
    parser.add_argument("--verbose", action="store_true", help="show the statements that fail")
    arguments = parser.parse_args()
    os.environ["PATH"] = os.path.dirname(os.path.abspath(arguments.program)) + ":" + os.environ["PATH"]
    os.environ["NODE_PATH"] = os.path.join(PROJECT, "build", "import_tools", "node_modules")
    with tempfile.TemporaryDirectory() as hard:
        made = cases.write_hard(hard, arguments.random, arguments.seed)
        examples = sorted(name for name in os.listdir(DATA) if name != "README.md")
        try:
            return prove(arguments.tool, arguments, [(DATA, examples), (hard, made)])
        except Skip as reason:
            print(f"skipped: {reason}")
            return SKIPPED


if __name__ == "__main__":
    sys.exit(main())
