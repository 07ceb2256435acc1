"""From a text to its layout."""
from __future__ import annotations

import io
import os
from typing import Any

from . import _native
from ._layout import Layout
from ._source import Input, Source

_HEAD = 0x400001  # of more bytes, the library looks at the beginning
_LISTS = ("widths", "missing")


def detect(source: Source, *, encoding: str | None = None, **hints: Any) -> Layout:
    """The layout of a text.

    `source` is a file by its name or path, bytes, an open file, or a `str`: one with a line break is the
    text itself, one without is the name of a file. Of an open file the beginning is read, and where it can
    be sought in, it then stands where it stood.

    Whatever is known can be said by name, and is then not second-guessed; `None` says nothing:

    - `method`: "advice", which weighs readings, or "rules"
    - `rows`: rows to sample, usually 250
    - `kind`: "delimited", "space_aligned", "fixed_width" or "line"
    - `delimiter`; `widths`: a list of widths in UTF-16 code units
    - `quote`, `comment`, `comment_end`, `decimal`, `thousands`: a text, "" for none
    - `whitespace`: the characters that count as blank
    - `missing`: a list of texts of cells that count as no value
    - `first_data_line`, `names_line`: lines of the text, from 0; `names_line="none"` if there is none
    - `encoding`: a codec of Python's; without it a byte order mark tells, and else it is UTF-8. What
      cannot be decoded becomes U+FFFD.

    Raises `ValueError` for a hint that is not possible, `TypeError` for one that there is not, and what
    opening and reading the file raises.

    >>> detect("a|b\\n1|2\\n3|4\\n", decimal=".").delimiter
    '|'
    >>> detect("a|b\\n1|2\\n", quote="both")
    Traceback (most recent call last):
        ...
    ValueError: ...
    """
    texts = _texts_of(hints)
    position = _position(source)
    text = Input(source, encoding)
    try:
        head = text.read_head(_HEAD)
    finally:
        text.close()
        if position is not None:
            source.seek(position)  # type: ignore[union-attr]
    return Layout._made(head, texts, text.encoding, _kept(source))


def _texts_of(hints: dict[str, Any]) -> list[tuple[str, list[str]]]:
    """The hints as the library takes them."""
    known = _native.hint_names()
    texts = []
    for name, value in hints.items():
        if name not in known:
            raise TypeError(f"there is no hint {name!r}; there are encoding, {', '.join(known)}")
        if value is None:
            continue
        if name == "widths" and not isinstance(value, str):
            value = ",".join(map(str, value))
        if name in _LISTS and not isinstance(value, str):
            texts.append((name, [str(one) for one in value]))
        else:
            texts.append((name, [str(value)]))
    return texts


def _position(source: Source) -> int | None:
    """Where an open file stands, if one can go back to it."""
    if isinstance(source, io.IOBase) and source.seekable():
        return source.tell()
    return None


def _kept(source: Source) -> Source | None:
    """What the rows can be read from later without being told again."""
    if isinstance(source, (bytearray, memoryview)):
        return bytes(source)
    return source if isinstance(source, (str, bytes, os.PathLike)) else None
