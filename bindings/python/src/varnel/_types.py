"""The shape of an inspection, as docs/inspection.schema.json describes it. Unknown keys are to be ignored."""

from typing import List, Optional, TypedDict

Source = TypedDict("Source", {"start": int, "end": int})


class Field(TypedDict):
    """A field of the zone."""

    text: str
    value: Optional[str]
    line: int
    column: int
    source: Source
    status: str
    proof: str


class CodeField(Field):
    """The document code."""

    meaning: Optional[str]


class StateField(Field):
    """An issuing state or nationality."""

    name: Optional[str]
    alpha2: Optional[str]


class NameField(Field):
    """A part of the name."""

    truncated: bool


class DateField(Field):
    """A date; parts are None where they are unknown."""

    year: Optional[int]
    month: Optional[int]
    day: Optional[int]


class Fields(TypedDict, total=False):
    """The fields of a layout, in the order of the zone."""

    documentCode: CodeField
    issuingState: StateField
    documentNumber: Field
    nationality: StateField
    birthDate: DateField
    sex: Field
    expiryDate: DateField
    primaryIdentifier: NameField
    secondaryIdentifier: NameField
    optionalData1: Field
    optionalData2: Field
    optionalData: Field
    personalNumber: Field
    officeCode: Field


class Check(TypedDict):
    """A check digit."""

    line: int
    column: int
    found: str
    expected: str
    holds: bool
    rule: Optional[str]


class Checks(TypedDict, total=False):
    """The check digits of a layout."""

    documentNumber: Check
    birthDate: Check
    expiryDate: Check
    personalNumber: Check
    composite: Check


Change = TypedDict("Change", {"line": int, "column": int, "from": str, "to": str, "reason": str})


class Finding(TypedDict):
    """A finding or a notice."""

    code: str
    field: Optional[str]
    line: Optional[int]
    column: Optional[int]


class NearestLine(TypedDict):
    """The length of a line, expected and found."""

    expected: int
    found: int


class Nearest(TypedDict):
    """The layout that lines of the wrong length come closest to."""

    layout: str
    lines: List[NearestLine]


class Inspection(TypedDict):
    """An inspected document."""

    version: int
    date: str
    repair: str
    verdict: str
    kind: Optional[str]
    layout: Optional[str]
    zone: List[str]
    source: List[Source]
    fields: Fields
    checks: Checks
    changes: List[Change]
    findings: List[Finding]
    notices: List[Finding]
    nearest: Optional[Nearest]
    expired: Optional[bool]
    chipAccess: Optional[str]
