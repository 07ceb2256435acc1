"""python -m text_format_detection FILE...: how are the files laid out?"""
from __future__ import annotations

import argparse
import sys

from . import HINTS, __version__, detect


def main() -> int:
    """Prints the layout of each file; the status is 1 if one cannot be read."""
    parser = argparse.ArgumentParser(prog="text_format_detection", description="Works out how text files are laid out.")
    parser.add_argument("files", nargs="+", metavar="FILE", help="files; - for standard input")
    parser.add_argument("--hint", action="append", default=[], metavar="NAME=VALUE",
                        help=f"what is known beforehand; names: encoding, {', '.join(HINTS)}")
    parser.add_argument("--rows", action="store_true", help="print the rows instead, with tabs between their values")
    parser.add_argument("--version", action="version", version=__version__)
    arguments = parser.parse_args()
    hints = dict(hint.partition("=")[::2] for hint in arguments.hint)
    status = 0
    for name in arguments.files:
        try:
            _show(name, hints, arguments.rows)
        except (OSError, TypeError, ValueError, LookupError) as error:
            print(f"{name}: {error}", file=sys.stderr)
            status = 1
    return status


def _show(name: str, hints: dict[str, str], is_for_rows: bool) -> None:
    source: str | bytes = sys.stdin.buffer.read() if name == "-" else name
    layout = detect(source, **hints)
    if is_for_rows:
        for row in layout.rows():
            print(*row, sep="\t")
        return
    print(f"{name}: {layout}")
    for column in layout.columns:
        print(f"  {column.name or '-'}: {column.class_}")


if __name__ == "__main__":
    sys.exit(main())
