"""What was found in a text, and what can be done with it."""
from __future__ import annotations

import csv
import json
import zlib
from dataclasses import dataclass, field
from typing import Any, Callable, Iterator

from . import _frames, _native, _pandas
from ._source import Input, Source


@dataclass(frozen=True)
class Column:
    """One column of the table."""

    name: str  #: empty where there is none
    class_: str  #: what most values are: "number", "text", "date", "datetime", "duration", ...
    values: int  #: cells of the sample that hold a value
    missing: int  #: cells that are empty or count as missing, or that a row lacks


@dataclass(frozen=True)
class Proposal:
    """One way to read the text."""

    kind: str  #: "delimited", "space_aligned", "fixed_width" or "line"
    delimiter: str | None  #: of a delimited text
    widths: list[int]  #: of fixed columns, in UTF-16 code units
    header_lines: int  #: lines above the data, as a reader of the layout counts them
    names_line: int | None  #: the line with the names, from 0
    first_data_line: int  #: the first line with data, from 0
    quote: str | None  #: under which it is read, whether it occurs or not
    comment: str | None  #: what opens a comment
    comment_end: str | None  #: what closes it, unless that is the end of the line
    decimal: str | None  #: the decimal mark, where the numbers tell
    thousands: str | None  #: the thousands separator
    columns: list[Column]
    score: float | None  #: above 0 and at most 1; none under the rules
    terms: dict[str, float] = field(repr=False)  #: the factors of the score
    rows: int  #: rows of the sample, those above the table included
    regular_rows: int  #: rows of the table that have all its fields
    why: str = field(repr=False)  #: what speaks for it and against it

    @property
    def names(self) -> list[str]:
        """The names of the columns; empty ones where there are none."""
        return [column.name for column in self.columns]

    @classmethod
    def _from(cls, found: dict[str, Any]) -> "Proposal":
        columns = [Column(one["name"], one["class"], one["values"], one["missing"]) for one in found["columns"]]
        return cls(columns=columns, **{name: found[name] for name in cls.__dataclass_fields__ if name != "columns"})


class Layout:
    """The layout of a text: its best reading, the others, and how sure it is.

    It has the members of its best proposal: `kind`, `delimiter`, `widths`, `names_line`, ...

    >>> import text_format_detection
    >>> layout = text_format_detection.detect("day,litres\\n2024-05-01,12.5\\n2024-05-02,13\\n")
    >>> layout
    Layout(kind='delimited', delimiter=',', columns=2, first_data_line=1, confidence=...)
    >>> [column.class_ for column in layout.columns]
    ['date', 'number']
    """

    proposals: list[Proposal]  #: all readings, best first; never empty
    confidence: float | None  #: from 1 up; 3 and more can be relied on; none under the rules
    is_table: bool  #: whether there is a table of two columns or more
    data_rows: int  #: rows with data in the sample
    encoding: str  #: with which the text was decoded

    kind: str
    delimiter: str | None
    widths: list[int]
    header_lines: int
    names_line: int | None
    first_data_line: int
    quote: str | None
    comment: str | None
    comment_end: str | None
    decimal: str | None
    thousands: str | None
    columns: list[Column]
    names: list[str]
    score: float | None
    terms: dict[str, float]

    @classmethod
    def _made(cls, head: bytes, hints: list[tuple[str, list[str]]], encoding: str, source: Source | None) -> "Layout":
        layout = cls.__new__(cls)
        layout.__setstate__((zlib.compress(head, 1), hints, encoding, source))
        return layout

    def __getstate__(self) -> tuple[Any, ...]:
        return self._state

    def __setstate__(self, state: tuple[Any, ...]) -> None:
        """The same text and hints give the same layout, so a pickle keeps these."""
        self._state = state
        head, hints, self.encoding, self._source = state
        self._answer = _native.detect(zlib.decompress(head), hints)
        self._missing = [text for name, values in hints if name == "missing" for text in values]
        found = json.loads(self._answer.json())
        self.proposals = [Proposal._from(one) for one in found["proposals"]]
        self.confidence = found["confidence"]
        self.is_table = found["is_table"]
        self.data_rows = found["rows"]

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_") or name in ("proposals", "why"):
            raise AttributeError(name)
        return getattr(self.proposals[0], name)

    def __dir__(self) -> list[str]:
        return sorted({*super().__dir__(), *Proposal.__dataclass_fields__, "names"})

    def __repr__(self) -> str:
        how = {"delimited": f" delimiter={self.delimiter!r},", "fixed_width": f" widths={self.widths},"}
        sure = "None" if self.confidence is None else f"{self.confidence:.3g}"
        return (f"Layout(kind={self.kind!r},{how.get(self.kind, '')} columns={len(self.columns)}, "
                f"first_data_line={self.first_data_line}, confidence={sure})")

    def why(self) -> str:
        """What speaks for each reading, best first, a line each."""
        return "\n".join(one.why for one in self.proposals)

    def rows(self, source: Source | None = None, *, policy: str = "keep",
             tell: Callable[[int, str, list[str]], None] | None = None, proposal: int = 0) -> Iterator[list[str]]:
        """The records with data, each a list of its values, from a text of any length in little memory.

        `source` is what `detect` takes, from its start; without one it is what was given to `detect`, unless
        that was an open file. `policy` says what becomes of records with too few or too many fields: "keep",
        "pad", "skip" or "stop". `tell` is called for each such record that is given, with its line from 0, the
        word for its fault and its values.

        >>> import text_format_detection
        >>> layout = text_format_detection.detect("a;b;c\\n1;2;3\\n4;5\\n6;7;8\\n9;10;11\\n")
        >>> list(layout.rows(policy="pad"))[1]
        ['4', '5', '']
        """
        source = self._source if source is None else source
        if source is None:
            raise ValueError("the layout of an open file does not keep it: say what to read")
        return self._records(Input(source, self.encoding), policy, tell, proposal)

    def _records(self, text: Input, policy: str, tell: Callable[[int, str, list[str]], None] | None,
                 proposal: int) -> Iterator[list[str]]:
        try:
            native = _native.Rows(self._answer, proposal, text.read, policy)
            while batch := native.next(256):
                for values, line, fault in batch:
                    if tell and fault != "none":
                        tell(line, fault, values)
                    yield values
            if native.end() == "too_long":
                raise ValueError("a record is too long to be kept in memory; a quote may be left open")
        finally:
            text.close()

    def read(self, source: Source | None = None) -> Any:
        """The whole table: a pandas `DataFrame` where pandas is installed, else a list of rows.

        In a `DataFrame`, columns of numbers become numbers if all their values do; empty cells and those that
        `missing` names are then missing values. All other values stay as they are written.
        """
        rows = self.rows(source, policy="pad")
        return _frames.frame_of(rows, self, self._missing)

    def pandas(self) -> "_pandas.Arguments":
        """The keyword arguments with which pandas reads the file; `.function` names its function.

        Raises `ValueError` for a layout that pandas cannot read.

        >>> import text_format_detection
        >>> arguments = text_format_detection.detect("a;b\\n1;2,5\\n3;4,5\\n").pandas()
        >>> arguments.function, arguments["sep"], arguments["decimal"]
        ('read_csv', ';', ',')
        """
        return _pandas.arguments_of(self, self._missing)

    def dialect(self) -> "type[csv.Dialect]":
        """The dialect for Python's `csv`, whose reader starts at the first line of what it is given.

        Raises `ValueError` for a layout that `csv` cannot read.
        """
        if self.kind not in ("delimited", "space_aligned") or len(self.delimiter or " ") != 1:
            raise ValueError(f"csv cannot read {self.kind} text"
                             + (f" with the delimiter {self.delimiter!r}" if self.delimiter else ""))
        members = {
            "delimiter": self.delimiter or " ", "quotechar": self.quote, "doublequote": True, "escapechar": None,
            "quoting": csv.QUOTE_MINIMAL if self.quote else csv.QUOTE_NONE, "lineterminator": "\r\n",
            "skipinitialspace": self.kind == "space_aligned", "strict": False,
        }
        return type("Dialect", (csv.Dialect,), members)
