// CPU time of a call from node: parse.mjs PACKAGE REPETITIONS. Prints lines of "NAME NANOSECONDS…".
const [folder, repetitions] = process.argv.slice(2);
const { inspect, parse } = await import(`${folder}/varnel.js`);
const zone = ["P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<", "L898902C36UTO7408122F1204159ZE184226B<<<<<10"];
const text = zone.join("\n");

function measure(name, calls, call) {
  const times = [];
  for (let i = 0; i <= Number(repetitions); i += 1) {
    const start = process.cpuUsage();
    for (let j = 0; j < calls; j += 1) {
      call();
    }
    const { user, system } = process.cpuUsage(start);
    times.push(Math.round((1000 * (user + system)) / calls));
  }
  console.log(name, ...times.slice(1)); // the first only warms up
}

if (parse(text).lastName !== "ERIKSSON") {
  throw new Error("the passport was not read");
}
measure("node,varnel", 50_000, () => parse(text));
measure("node,inspect", 10_000, () => inspect(text, { date: "2026-11-21" }));
try {
  const other = (await import("mrz")).parse;
  if (other(zone).fields.lastName !== "ERIKSSON") {
    throw new Error("the other parser did not read the passport");
  }
  measure("node,mrz", 2_000, () => other(zone));
} catch (error) {
  if (error.code !== "ERR_MODULE_NOT_FOUND") {
    throw error;
  }
}
