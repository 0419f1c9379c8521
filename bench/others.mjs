// CPU time of the npm package mrz: others.mjs REPETITIONS FILE.... Prints lines of "FILE NANOSECONDS…".
import { readFileSync } from "node:fs";
import { parse } from "mrz";

const [repetitions, ...files] = process.argv.slice(2);
const CALLS = 2_000;

for (const file of files) {
  const lines = readFileSync(file, "ascii").trim().split(/\r?\n/);
  if (parse(lines).fields.lastName !== "ERIKSSON") {
    throw new Error(`${file} was not read`);
  }
  const times = [];
  for (let i = 0; i <= Number(repetitions); i += 1) {
    const start = process.cpuUsage();
    for (let j = 0; j < CALLS; j += 1) {
      parse(lines);
    }
    const { user, system } = process.cpuUsage(start);
    times.push(Math.round((1000 * (user + system)) / CALLS));
  }
  console.log(file, ...times.slice(1)); // the first only warms up
}
