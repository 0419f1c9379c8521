"""Reads passports, ID cards and visas from the text of their machine-readable zone (ICAO Doc 9303), composes such
zones, and reads the barcodes of US and Canadian driver's licences (AAMVA DL/ID).

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
from typing import Dict, Iterable, Iterator, List, Mapping, Optional, Tuple, Union, cast

from . import _core
from ._types import (
    Barcode,
    BarcodeElement,
    BarcodeFinding,
    BarcodeInfo,
    BarcodeOmitted,
    Change,
    Check,
    Checks,
    CodeField,
    Composition,
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
    "Barcode",
    "BarcodeElement",
    "BarcodeFinding",
    "BarcodeInfo",
    "BarcodeOmitted",
    "Change",
    "Check",
    "Checks",
    "CodeField",
    "ComposeError",
    "Composition",
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
    "barcode",
    "compose",
    "inspect",
    "inspect_many",
    "parse",
    "parse_many",
]

_KEYS = _core.composition_keys()
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


class ComposeError(ValueError):
    """A value that cannot be composed.

    `field` is its key and `reason` what is wrong with it: "missing", "badCharacter", "unknown", "notADate",
    "datesOrder", "tooLong", "notInLayout", "otherLayout" or "unknownLanguage". `position` is the character of the
    value, from 0, or 0 where the value as a whole is meant. Nothing of the value is repeated.
    """

    def __init__(self, field: str, reason: str, position: int, message: str) -> None:
        super().__init__(field, reason, position, message)
        self.field = field
        self.reason = reason
        self.position = position
        self._message = message

    def __str__(self) -> str:
        return self._message


def compose(fields: Composition) -> List[str]:
    """Composes the lines of a zone from the values of a document.

    Names are transliterated and shortened and check digits computed by Doc 9303. What is written is valid to
    inspect(). Unknown keys are passed over. Raises ComposeError for the first value that cannot be composed, and
    TypeError for one that is neither str nor None.

    >>> card = {"layout": "TD1", "documentCode": "I", "issuingState": "UTO", "documentNumber": "D23145890",
    ...         "nationality": "UTO", "birthDate": "1974-08-12", "sex": "F", "expiryDate": "2032-04-15",
    ...         "primaryIdentifier": "Müller", "secondaryIdentifier": "Zoë"}
    >>> for line in compose(card):
    ...     print(line)
    I<UTOD231458907<<<<<<<<<<<<<<<
    7408122F3204153UTO<<<<<<<<<<<2
    MUELLER<<ZOE<<<<<<<<<<<<<<<<<<
    >>> compose({**card, "sex": "f"})
    Traceback (most recent call last):
    varnel.ComposeError: sex: character 1 cannot be written there
    """
    if not isinstance(fields, Mapping):
        raise TypeError(f"fields must be a mapping, not {type(fields)}")
    answer = _core.compose(tuple(_value(fields, key) for key in _KEYS))
    if isinstance(answer, tuple):
        field, reason, position, words = answer
        raise ComposeError(field, reason, position, f"{field}: {words.replace('#', str(position + 1))}")
    return answer


def barcode(text: str) -> Optional[Barcode]:
    """Reads the text of a licence's barcode, of up to 64 KiB, control characters included; None where it is none.

    The answer has the twelve values of parse() and under "info" what else the text says. Places in it count bytes of
    the text's UTF-8 form. Raises ValueError for a text that is too long.

    >>> licence = barcode("DAQD1234567\\nDCSSPECIMEN\\nDACJANE\\nDBB06061986")
    >>> licence["birthDate"], licence["info"]["findings"]
    ('19860606', [{'code': 'headerMissing', 'offset': 0, 'element': None}])
    """
    answer = _core.barcode(text)
    return None if answer is None else cast(Barcode, {**answer[0], "info": json.loads(answer[1])})


def _value(fields: Composition, key: str) -> bytes:
    """A value as the libraries read it. A NUL would end it, so another control character is refused in its place."""
    value = fields.get(key)
    if value is None:
        return b""
    if not isinstance(value, str):
        raise TypeError(f"{key} must be str or None, not {type(value)}")
    return value.replace("\0", "\x01").encode("utf-8", "surrogatepass")


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
