"""Runs Python statements, and prints the cells that each gives. The statements come as a JSON list of
folder and text on standard input."""

import datetime
import json
import math
import numbers
import os
import sys
import traceback


def token(value):
    """A cell as the proof compares it: its kind and its text."""
    if value is None or (isinstance(value, float) and math.isnan(value)):
        return None
    if isinstance(value, str):
        return "s:" + value
    if type(value).__name__ in ("NaTType", "NAType"):
        return None
    if isinstance(value, datetime.datetime):
        return "t:" + value.replace(tzinfo=None).isoformat(sep=" ")
    if isinstance(value, datetime.date):
        return "t:" + value.isoformat() + " 00:00:00"
    if isinstance(value, numbers.Real):
        return "n:" + (repr(float(value)) if isinstance(value, float) else str(int(value)))
    return "?:" + repr(value)


def table(scope):
    if "rows" in scope:  # Python's csv
        return {"names": scope["names"], "rows": [[token(c) for c in row] for row in scope["rows"]]}
    data = scope["data"]
    if hasattr(data, "plan"):  # polars, which runs elsewhere
        return {"plan": data.plan}
    columns = [[token(value) for value in data[name].astype(object)] for name in data.columns]
    return {"names": [str(name) for name in data.columns], "rows": list(zip(*columns))}


results = []
for folder, statement in json.load(sys.stdin):
    os.chdir(folder)
    scope = {}
    try:
        exec(compile(statement, "<statement>", "exec"), scope)
        results.append(table(scope))
    except Exception:
        results.append({"error": traceback.format_exc(limit=3)})
json.dump(results, sys.stdout)
