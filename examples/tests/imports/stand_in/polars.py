"""Stands in for polars in Python: notes what a statement asks for, for polars in Node to do."""

String, Int64, Float64 = "String", "Int64", "Float64"


class DataFrame:
    def __init__(self, plan):
        self.plan = plan

    def with_columns(self, *changes):
        return DataFrame({**self.plan, "changes": self.plan["changes"] + [c.change for c in changes]})


class Column:
    def __init__(self, name):
        self.name = name
        self.str = self

    def to_date(self, form):
        return self.changed("Date", form)

    def to_datetime(self, form):
        return self.changed("Datetime", form)

    def changed(self, kind, form):
        self.change = {"column": self.name, "type": kind, "format": form}
        return self


def col(name):
    return Column(name)


def read_csv(source, *, separator, quote_char, has_header, schema, null_values, encoding, skip_lines=0,
             comment_prefix=None, decimal_comma=False):
    if isinstance(source, str):
        with open(source, "rb") as file:
            source = file.read()
    if not encoding.startswith("utf8"):  # as polars does in Python
        source = source.decode(encoding).encode()
        encoding = "utf8"
    return DataFrame({
        "bytes": source.hex(), "separator": separator, "quote": quote_char, "header": has_header,
        "schema": list(schema.items()), "nulls": null_values, "skip": skip_lines,
        "lossy": encoding == "utf8-lossy", "comment": comment_prefix, "comma": decimal_comma, "changes": [],
    })
