import { inspect } from "varnel";

const zone = `P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<
L898902C36UTO7408122F1204159ZE184226B<<<<<10`;

const document = inspect(zone, { date: "2026-11-21" });
console.log(document.verdict);
for (const [name, { value, status }] of Object.entries(document.fields)) {
  console.log(`${name}: ${value} (${status})`);
}
