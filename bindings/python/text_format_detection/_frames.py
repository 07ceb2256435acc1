"""From rows to a table in memory."""
from __future__ import annotations

from typing import TYPE_CHECKING, Any, Iterable

from ._pandas import unique_names

if TYPE_CHECKING:
    from ._layout import Layout


def frame_of(rows: Iterable[list[str]], layout: "Layout", missing: list[str]) -> Any:
    """A `DataFrame` of the rows, or their list where pandas is not installed."""
    try:
        import pandas  # type: ignore[import]
    except ImportError:
        return list(rows)
    rows = list(rows)
    count = max([len(layout.columns), *map(len, rows)])
    names = unique_names([*layout.names, *[""] * (count - len(layout.columns))])
    padded = (row + [""] * (count - len(row)) for row in rows)
    frame = pandas.DataFrame(padded, columns=names, dtype=object)
    for name, column in zip(names, layout.columns):
        if column.class_ == "number":
            frame[name] = _numbers(frame[name], layout, {"", *missing})
    return frame


def _numbers(cells: Any, layout: "Layout", missing: set[str]) -> Any:
    """The cells as numbers, or as they are if one of them is none."""
    import pandas

    plain = cells.mask(cells.isin(list(missing)))
    if layout.thousands:
        plain = plain.str.replace(layout.thousands, "", regex=False)
    if layout.decimal and layout.decimal != ".":
        plain = plain.str.replace(layout.decimal, ".", regex=False)
    try:
        return pandas.to_numeric(plain)
    except ValueError:
        return cells
