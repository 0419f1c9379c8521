// Compiles when the types say what the package does.
import { type ComposeError, type Composition, type Inspection, barcode, compose, inspect, parse } from "varnel";

const document: Inspection = inspect("no document", { date: "2026-11-21", repair: "columns" });
const verdict: "valid" | "repaired" | "voted" | "doubtful" | "refused" = document.verdict;
const name: string | null | undefined = document.fields.primaryIdentifier?.value;
const lastName: string | undefined = parse("no document")?.lastName;
const fields: Composition = { layout: "TD3", documentCode: "P", issuingState: "UTO", documentNumber: "L898902C3",
  nationality: "UTO", sex: "X", expiryDate: "2030-04-15", primaryIdentifier: "Eriksson" };
const lines: string[] = compose(fields);
export const keyOf = (error: ComposeError): keyof Composition => error.field;
const version: number | null | undefined = barcode("no barcode")?.info.version;
// @ts-expect-error mandatory values are missing
compose({ layout: "TD3" });
// @ts-expect-error there is no such level
inspect("", { repair: "all" });
// @ts-expect-error a text is a string
parse(null);
export { verdict, name, lastName, lines, version };
