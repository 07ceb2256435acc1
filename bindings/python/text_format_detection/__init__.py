"""Works out how a text file with a table in it is laid out, and reads it.

>>> import io
>>> from text_format_detection import detect
>>> layout = detect(b"Stock, main store\\nitem;price\\nbolt;0,12\\nnut;0,08\\n")
>>> layout.kind, layout.delimiter, layout.decimal, layout.first_data_line
('delimited', ';', ',', 2)
>>> layout.names
['item', 'price']
>>> list(layout.rows())
[['bolt', '0,12'], ['nut', '0,08']]
"""
from ._detect import detect
from ._layout import Column, Layout, Proposal
from ._native import hint_names as _hint_names
from ._native import version as __version__

#: The names of all hints that `detect` takes beside `encoding`.
HINTS = tuple(_hint_names())

__all__ = ["HINTS", "Column", "Layout", "Proposal", "__version__", "detect"]
