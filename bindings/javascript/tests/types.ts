// Compiles when the types say what the package does.
import { type Inspection, inspect, parse } from "varnel";

const document: Inspection = inspect("no document", { date: "2026-11-21", repair: "columns" });
const verdict: "valid" | "repaired" | "voted" | "doubtful" | "refused" = document.verdict;
const name: string | null | undefined = document.fields.primaryIdentifier?.value;
const lastName: string | undefined = parse("no document")?.lastName;
// @ts-expect-error there is no such level
inspect("", { repair: "all" });
// @ts-expect-error a text is a string
parse(null);
export { verdict, name, lastName };
