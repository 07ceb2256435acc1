"""Where a text comes from: what a caller may hand over, as UTF-8 piece by piece."""
from __future__ import annotations

import codecs
import io
import os
from typing import IO, Any, Callable, Union

#: A file by its name, bytes, a text with a line break in it, or an open file.
Source = Union[str, "os.PathLike[str]", bytes, bytearray, memoryview, IO[Any]]

#: Gives up to so many bytes of UTF-8, and none at the end.
Read = Callable[[int], bytes]

_PIECE = 0x10000

_MARKS = (
    (codecs.BOM_UTF8, "utf-8"),
    (codecs.BOM_UTF32_LE, "utf-32"),
    (codecs.BOM_UTF32_BE, "utf-32"),
    (codecs.BOM_UTF16_LE, "utf-16"),
    (codecs.BOM_UTF16_BE, "utf-16"),
)


class Input:
    """A text that is read once, from where it stands.

    `encoding` is the one to decode with; without one, a byte order mark tells, and UTF-8 is taken where
    there is none. Whatever cannot be decoded becomes U+FFFD.
    """

    def __init__(self, source: Source, encoding: str | None = None):
        if encoding is not None:
            codecs.lookup(encoding)
        self.encoding = encoding or "utf-8"
        self._is_ours = False
        self._decoder: codecs.IncrementalDecoder | None = None
        self._left = b""
        self._has_ended = False
        self._file = self._opened(source)
        start = self._file.read(4)
        if isinstance(start, str):
            self.encoding = "utf-8"
        else:
            self._choose_decoder(encoding, start or b"")
        self._take(start)

    def _opened(self, source: Source) -> IO[Any]:
        if isinstance(source, (bytes, bytearray, memoryview)):
            return io.BytesIO(source)
        if isinstance(source, str) and ("\n" in source or "\r" in source):
            return io.StringIO(source, newline="")
        if isinstance(source, (str, os.PathLike)):
            self._is_ours = True
            return open(source, "rb")
        if hasattr(source, "read"):
            return source
        raise TypeError(f"a path, bytes, a str or an open file is wanted, not {type(source).__name__}")

    def _choose_decoder(self, encoding: str | None, start: bytes) -> None:
        if encoding is None:
            self.encoding = next((name for mark, name in _MARKS if start.startswith(mark)), "utf-8")
        if codecs.lookup(self.encoding).name not in ("utf-8", "utf-8-sig", "ascii"):
            self._decoder = codecs.getincrementaldecoder(self.encoding)(errors="replace")

    def _take(self, piece: str | bytes | None) -> None:
        """Keeps a piece of the file, which is empty at its end, as UTF-8."""
        self._has_ended = not piece
        if isinstance(piece, str):
            self._left = _utf8(piece)
        elif self._decoder:
            self._left = _utf8(self._decoder.decode(piece or b"", self._has_ended))
        else:
            self._left = piece or b""

    def read(self, size: int) -> bytes:
        """Up to `size` bytes of UTF-8; none at the end."""
        while not self._left and not self._has_ended:
            self._take(self._file.read(_PIECE))
        piece, self._left = self._left[:size], self._left[size:]
        return piece

    def read_head(self, size: int) -> bytes:
        """The first `size` bytes, or all if there are fewer."""
        pieces, length = [], 0
        while length < size and (piece := self.read(size - length)):
            pieces.append(piece)
            length += len(piece)
        return b"".join(pieces)

    def close(self) -> None:
        """Closes the file if it was opened here."""
        if self._is_ours:
            self._file.close()


def _utf8(text: str) -> bytes:
    return text.encode("utf-8", "surrogatepass")
