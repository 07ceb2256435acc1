"""How pandas is told of a layout."""
from __future__ import annotations

import re
from typing import TYPE_CHECKING, Any, Dict

if TYPE_CHECKING:
    from ._layout import Layout


class Arguments(Dict[str, Any]):
    """Keyword arguments; `function` names the function of pandas that they are for."""

    function: str


def unique_names(names: list[str]) -> list[str]:
    """The names, made up where there are none, and told apart where they are alike."""
    result: list[str] = []
    taken = set(names)
    uses: dict[str, int] = {}
    for index, own in enumerate(names):
        unique = name = own or f"column_{index + 1}"
        is_its_own = bool(own) and name not in uses
        uses.setdefault(name, 1)
        while not is_its_own and unique in taken:
            uses[name] += 1
            unique = f"{name}_{uses[name]}"
        taken.add(unique)
        result.append(unique)
    return result


def arguments_of(layout: "Layout", missing: list[str]) -> Arguments:
    """The arguments for `read_csv` or `read_fwf`."""
    if layout.kind == "line":
        raise ValueError("pandas has no reader for one field a line")
    arguments = Arguments(names=unique_names(layout.names), header=None, skiprows=layout.first_data_line,
                          encoding=layout.encoding)
    arguments.function = "read_fwf" if layout.kind == "fixed_width" else "read_csv"
    if layout.kind == "fixed_width":
        ends = [sum(layout.widths[: index + 1]) for index in range(len(layout.widths))]
        arguments["colspecs"] = list(zip([0, *ends], ends))
    else:
        _add_separator(arguments, layout.delimiter, layout.quote)
    if layout.comment:
        if len(layout.comment) > 1 or layout.comment_end:
            raise ValueError(f"pandas cannot pass over comments with {layout.comment!r}")
        arguments["comment"] = layout.comment
    if layout.decimal:
        arguments["decimal"] = layout.decimal
    if layout.thousands:
        arguments["thousands"] = layout.thousands
    if missing:
        arguments["na_values"] = missing
    return arguments


def _add_separator(arguments: Arguments, delimiter: str | None, quote: str | None) -> None:
    if delimiter is None:
        arguments["sep"] = r"\s+"
    elif len(delimiter) == 1:
        arguments["sep"] = delimiter
    else:
        arguments["sep"] = re.escape(delimiter)
        arguments["engine"] = "python"
    if quote:
        arguments["quotechar"] = quote
    else:
        arguments["quoting"] = 3
