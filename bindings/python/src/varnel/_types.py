"""What goes in and out, as the schemas in docs describe it. Unknown keys are to be ignored."""

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


class MandatoryValues(TypedDict):
    """The values without which no zone is composed."""

    layout: str
    documentCode: str
    issuingState: str
    documentNumber: str
    nationality: str
    sex: str
    expiryDate: str
    primaryIdentifier: str


class Composition(MandatoryValues, total=False):
    """The values that a zone is composed from."""

    language: Optional[str]
    birthDate: Optional[str]
    secondaryIdentifier: Optional[str]
    optionalData1: Optional[str]
    optionalData2: Optional[str]
    optionalData: Optional[str]
    personalNumber: Optional[str]


class BarcodeElement(TypedDict):
    """An element that is none of a licence's values, and the bytes of the text where its value stands."""

    element: str
    start: int
    end: int


class BarcodeFinding(TypedDict):
    """A place where the text departs from the standard, or where a value could not be taken as it stands."""

    code: str
    offset: int
    element: Optional[str]


class BarcodeOmitted(TypedDict):
    """How many elements and findings found no room."""

    elements: int
    findings: int


class BarcodeInfo(TypedDict):
    """What a barcode says beside its values."""

    version: Optional[int]
    issuer: Optional[str]
    jurisdiction: Optional[str]
    country: Optional[str]
    subfiles: List[str]
    elements: List[BarcodeElement]
    findings: List[BarcodeFinding]
    omitted: BarcodeOmitted


class Barcode(TypedDict):
    """A driver's licence: the twelve values, and what else its barcode says."""

    firstName: str
    lastName: str
    middleName: str
    licenseNumber: str
    birthDate: str
    expirationDate: str
    gender: str
    countryCode: str
    jurisdictionCode: str
    nationality: str
    documentType: str
    issueDate: str
    info: BarcodeInfo
