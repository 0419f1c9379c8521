// What the codes of an inspection mean to a person.

export const FIELDS = {
  documentCode: "Document code",
  issuingState: "Issuing state",
  documentNumber: "Document number",
  nationality: "Nationality",
  birthDate: "Date of birth",
  sex: "Sex",
  expiryDate: "Date of expiry",
  primaryIdentifier: "Family name",
  secondaryIdentifier: "Given names",
  optionalData1: "Optional data 1",
  optionalData2: "Optional data 2",
  optionalData: "Optional data",
  personalNumber: "Personal number",
  officeCode: "Office code",
  composite: "Composite check digit",
};

export const VERDICTS = {
  valid: ["good", "Valid", "Every check digit agrees and nothing is missing or out of place."],
  repaired: ["good", "Valid after repair", "Nothing is wrong after the changes listed below."],
  voted: ["good", "Valid, from several looks", "Nothing is wrong with the zone that the looks agree on."],
  doubtful: ["doubt", "Doubtful", "A zone, with findings:"],
  refused: ["bad", "No document", ""],
};

export const FINDINGS = {
  empty: "is missing",
  badCharacters: "has characters that cannot stand there",
  notADate: "is not a date of the calendar",
  unknown: "is not a listed code",
  checkFailed: "does not agree with its check digit",
  datesOrder: "is before the date of birth",
  unproven: "is not certain",
  looksDiffer: "differs between the looks: they show two documents",
  noZone: "There is no machine-readable zone in this text.",
  length: "The lines are too long or too short for a zone.",
  digitInCode: "has a digit",
  codeNotAllowed: "is not allowed on this kind of document",
  codeNotListed: "is used in practice but not listed",
  nationalLetters: "has digits that stand for national letters",
  sexX: "is printed as X instead of a filler",
  fillerDigit: "has a filler in place of its check digit",
  dropped: "characters that are not part of a zone were dropped",
};

export const REASONS = {
  class: "only one kind of character can stand there",
  filler: "a filler",
  digit: "the one look-alike that makes the check digit hold",
  twin: "read twice",
};

export const LAYOUTS = {
  "TD1": "ID card, TD1",
  "TD2": "ID card, TD2",
  "TD3": "Passport, TD3",
  "MRV-A": "Visa, MRV-A",
  "MRV-B": "Visa, MRV-B",
  "FRA-ID": "French ID card issued until 2021",
};

// The words with their verb in the plural: given names are many.
function saidOfMany(said) {
  return said.replace(/^(has|is|differs)\b/, (verb) => ({ has: "have", is: "are", differs: "differ" })[verb]);
}

export function sentence({ code, field, line }) {
  if (code === "dropped") {
    return `Line ${line + 1}: ${FINDINGS.dropped}`;
  }
  if (field === "composite") {
    return `${FIELDS[field]} does not agree`;
  }
  const said = FINDINGS[code] ?? code;
  return field === null ? said : `${FIELDS[field]} ${field === "secondaryIdentifier" ? saidOfMany(said) : said}`;
}
