"""Reads passports, ID cards and visas from the text of their machine-readable zone (ICAO Doc 9303).

>>> import varnel
>>> zone = '''P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<
... L898902C36UTO7408122F1204159ZE184226B<<<<<10'''
>>> varnel.parse(zone)["lastName"]
'ERIKSSON'
>>> varnel.inspect(zone, date="2026-11-21")["verdict"]
'valid'
"""

import datetime
import json
from functools import partial
from typing import Dict, Iterable, Iterator, Optional, Tuple, Union, cast

from . import _core
from ._types import (
    Change,
    Check,
    Checks,
    CodeField,
    DateField,
    Field,
    Fields,
    Finding,
    Inspection,
    NameField,
    Nearest,
    NearestLine,
    Source,
    StateField,
)

__all__ = [
    "Change",
    "Check",
    "Checks",
    "CodeField",
    "DateField",
    "Field",
    "Fields",
    "Finding",
    "Inspection",
    "NameField",
    "Nearest",
    "NearestLine",
    "Source",
    "StateField",
    "inspect",
    "inspect_many",
    "parse",
    "parse_many",
]

_REPAIR = {"off": 0, "columns": 1, "digits": 2}


def parse(text: str) -> Optional[Dict[str, str]]:
    """Reads the text of a zone into its twelve values; None where no layout accepts it.

    Line breaks, spaces and other noise are dropped. A value that the document does not have is empty. Two-digit
    years are resolved against 15 February 2018, and no check digit is compared: inspect() does both better.

    >>> parse("no document") is None
    True
    """
    return _core.parse(text)


def parse_many(texts: Iterable[str]) -> Iterator[Optional[Dict[str, str]]]:
    """Reads one text after the other, lazily, as parse() does.

    >>> list(parse_many(["no document", "nor this"]))
    [None, None]
    """
    return map(_core.parse, texts)


def inspect(
    text: str, *, date: Union[datetime.date, str, None] = None, repair: str = "off"
) -> Inspection:
    """Finds the zone in a text of up to 64 KiB and says of every field whether it is right.

    `date` is the reference date (today, UTC, by default), a date or its ISO 8601 form. `repair` says how far
    characters may be changed: "off", "columns" or "digits". Places in `source` count bytes of the text's UTF-8
    form. Raises ValueError for a date that does not exist, an unknown level or a text that is too long.

    >>> inspect("no document", date="2026-11-21")["findings"]
    [{'code': 'noZone', 'field': None, 'line': None, 'column': None}]
    """
    return _inspect(_options(date, repair), text)


def inspect_many(
    texts: Iterable[str], *, date: Union[datetime.date, str, None] = None, repair: str = "off"
) -> Iterator[Inspection]:
    """Inspects one text after the other, lazily; the reference date is the same for all.

    >>> [document["verdict"] for document in inspect_many(["no document"])]
    ['refused']
    """
    return map(partial(_inspect, _options(date, repair)), texts)


def _options(date: Union[datetime.date, str, None], repair: str) -> Tuple[int, int, int, int]:
    if repair not in _REPAIR:
        raise ValueError(f"repair must be 'off', 'columns' or 'digits', not {repair!r}")
    if date is None:
        date = datetime.datetime.now(datetime.timezone.utc).date()
    elif isinstance(date, str):
        date = datetime.date.fromisoformat(date)
    return date.year, date.month, date.day, _REPAIR[repair]


def _inspect(options: Tuple[int, int, int, int], text: str) -> Inspection:
    return cast(Inspection, json.loads(_core.inspect(text, *options)))
