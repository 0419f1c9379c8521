// The page: what is entered in a tab is read by the library at every change.
import { barcode, compose, inspect, parse } from "./varnel.js";
import LICENCE_FINDINGS from "./licence_findings.js";
import { FIELDS, FINDINGS, LAYOUTS, REASONS, VERDICTS, sentence } from "./words.js";

const $ = (id) => document.getElementById(id);

// An element with attributes and children; text is set as text, never as markup.
function element(name, attributes = {}, ...children) {
  const node = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    node.setAttribute(key, value);
  }
  node.append(...children.filter((child) => child !== null));
  return node;
}

function table(caption, head, rows) {
  return element("div", { class: "scroll", tabindex: "0", role: "region", "aria-label": caption },
    element("table", {},
      element("caption", {}, caption),
      element("thead", {}, element("tr", {}, ...head.map((text) => element("th", { scope: "col" }, text)))),
      element("tbody", {}, ...rows.map(([first, ...rest]) =>
        element("tr", {}, element("th", { scope: "row" }, ...[first].flat()), ...rest)))));
}

const cell = (text, kind) => element("td", kind ? { class: kind } : {}, ...[text].flat());

// A button that copies the text of a node; where the browser does not let it, the text is selected instead.
function copyButton(node) {
  const button = element("button", { type: "button" }, "Copy");
  button.addEventListener("click", async () => {
    try {
      await navigator.clipboard.writeText(node.textContent);
      button.textContent = "Copied";
    } catch {
      getSelection().selectAllChildren(node);
      button.textContent = "Selected";
    }
  });
  return button;
}

function jsonOf(value) {
  const text = element("pre", { class: "json", tabindex: "0", role: "region", "aria-label": "JSON" },
    JSON.stringify(value, null, 2));
  return element("details", {}, element("summary", {}, "JSON"), copyButton(text), text);
}

function valuesTable(values) {
  return table("The twelve values", ["Key", "Value"],
    Object.entries(values).map(([key, value]) => [key, cell(value, "value")]));
}

// ---- tabs ----------------------------------------------------------------------------------------------------

const tabs = [...document.querySelectorAll('[role="tab"]')];

function show(tab) {
  for (const other of tabs) {
    const chosen = other === tab;
    other.setAttribute("aria-selected", String(chosen));
    other.tabIndex = chosen ? 0 : -1;
    $(other.getAttribute("aria-controls")).hidden = !chosen;
  }
}

for (const tab of tabs) {
  tab.addEventListener("click", () => show(tab));
  tab.addEventListener("keydown", (event) => {
    const step = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    const next = step ? tabs[(tabs.indexOf(tab) + step + tabs.length) % tabs.length]
      : { Home: tabs[0], End: tabs.at(-1) }[event.key];
    if (next) {
      event.preventDefault();
      show(next);
      next.focus();
    }
  });
}

// ---- texts as they were pasted or dropped -------------------------------------------------------------------------------

// A textarea makes every line end a line feed, and a barcode's carriage returns are part of it: what was pasted or
// dropped is read as it was until somebody changes it.
const originals = new WeakMap();

function textOf(area) {
  const original = originals.get(area) ?? "";
  return original.replace(/\r\n?/g, "\n") === area.value ? original : area.value;
}

for (const area of document.querySelectorAll("textarea")) {
  area.addEventListener("paste", (event) => originals.set(area, event.clipboardData.getData("text/plain")));
  area.addEventListener("dragover", (event) => {
    event.preventDefault();
    area.classList.add("dropping");
  });
  area.addEventListener("dragleave", () => area.classList.remove("dropping"));
  area.addEventListener("drop", async (event) => {
    area.classList.remove("dropping");
    const [file] = event.dataTransfer.files;
    if (file) {
      event.preventDefault();
      originals.set(area, await file.text());
      area.value = originals.get(area);
      area.dispatchEvent(new Event("input"));
    }
  });
}

// ---- inspect -------------------------------------------------------------------------------------------------

const SPECIMEN = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nL898902C36UTO7408122F1204159ZE184226B<<<<<10\n";

function verdictOf({ verdict, layout, findings, notices, nearest, expired }) {
  const [kind, title, words] = VERDICTS[verdict];
  const onTheWhole = notices.filter(({ field }) => field === null);
  const list = [...findings, ...onTheWhole].map((finding) => element("li", {}, sentence(finding)));
  if (nearest !== null) {
    const lengths = nearest.lines.map(({ expected, found }) => `${found} instead of ${expected}`).join(", ");
    list.push(element("li", {}, `Nearest layout: ${LAYOUTS[nearest.layout]}; characters in its lines: ${lengths}.`));
  }
  return element("div", { class: `verdict ${kind}` },
    element("strong", {}, layout === null ? title : `${title}: ${LAYOUTS[layout]}`),
    expired === true ? ", expired" : null,
    element("div", {}, words),
    list.length > 0 ? element("ul", {}, ...list) : null);
}

// Which field, check digit and change each character of the zone belongs to, and whether it is wrong.
function placesOf({ zone, fields, checks, changes, findings }) {
  const places = zone.map((line) => Array.from(line, () => ({})));
  Object.entries(fields).forEach(([name, { line, column, text }], index) => {
    for (let i = column; i < column + text.length; i += 1) {
      places[line][i].field = name;
      places[line][i].color = `f${index}`;
    }
  });
  for (const { code, field, line } of findings) {
    if (code !== "checkFailed" && fields[field]) {
      const { column, text } = fields[field];
      places[line].slice(column, column + text.length).forEach((place) => { place.wrong = true; });
    }
  }
  for (const [name, { line, column, holds }] of Object.entries(checks)) {
    places[line][column] = { ...places[line][column], check: name, wrong: !holds, color: colorOf(fields, name) };
  }
  for (const { line, column } of changes) {
    if (places[line][column]) {
      places[line][column].changed = true;
    }
  }
  return places;
}

function colorOf(fields, name) {
  const index = Object.keys(fields).indexOf(name);
  return index < 0 ? "" : `f${index}`;
}

function zoneOf(document) {
  const places = placesOf(document);
  const lines = document.zone.flatMap((line, number) => {
    const spans = [];
    let last = null;
    Array.from(line).forEach((character, column) => {
      const { field = "", check = "", wrong = false, color = "", changed = false } = places[number][column];
      const kind = [color, wrong ? "failed" : check && "check", changed && "changed"].filter(Boolean).join(" ");
      const title = check ? `${FIELDS[check]}: check digit${wrong ? " does not agree" : ""}` : FIELDS[field] ?? "";
      if (last === null || last.title !== title || last.className !== kind) {
        last = element("span", { class: kind, title });
        spans.push(last);
      }
      last.append(character);
    });
    return [...spans, "\n"];
  });
  return element("pre", { class: "zone", tabindex: "0", role: "region", "aria-label": "The zone" }, ...lines);
}

function wordsOf(document, name) {
  const about = ({ field }) => field === name;
  const bad = document.findings.filter(about).map((finding) => element("div", { class: "bad-words" }, FINDINGS[finding.code]));
  const worth = document.notices.filter(about).map((notice) => element("div", { class: "doubt-words" }, FINDINGS[notice.code]));
  const state = document.fields[name]?.name ?? document.fields[name]?.meaning;
  const cut = document.fields[name]?.truncated ? [element("div", {}, "may have been cut to fit")] : [];
  return [state ? element("div", {}, state) : null, ...cut, ...bad, ...worth].filter(Boolean);
}

function checkOf(checks, name) {
  const check = checks[name];
  if (!check) {
    return "";
  }
  return check.holds ? `${check.found} agrees` : element("span", { class: "bad-words" }, `${check.found}, expected ${check.expected}`);
}

function fieldsOf(document) {
  const rows = Object.entries(document.fields).map(([name, { value }]) => [
    [element("span", { class: `swatch ${colorOf(document.fields, name)}` }), FIELDS[name]],
    cell(value ?? "", "value"), cell(checkOf(document.checks, name)), cell(wordsOf(document, name))]);
  if (document.checks.composite) {
    rows.push([FIELDS.composite, cell(""), cell(checkOf(document.checks, "composite")), cell("")]);
  }
  return table("Fields", ["Field", "Value", "Check digit", "Remarks"], rows);
}

function changesOf({ changes }) {
  if (changes.length === 0) {
    return null;
  }
  return table("Changes", ["Place", "Read", "Taken as", "Reason"], changes.map(({ line, column, from, to, reason }) =>
    [`line ${line + 1}, column ${column + 1}`, cell(from || "nothing", "value"), cell(to || "nothing", "value"),
      cell(REASONS[reason] ?? reason)]));
}

function inspectNow() {
  const text = textOf($("inspect-text"));
  $("inspect-answer").replaceChildren();
  $("inspect-details").replaceChildren();
  if (text.trim() === "") {
    return;
  }
  let document;
  try {
    const repair = window.document.querySelector('input[name="repair"]:checked').value;
    document = inspect(text, { date: $("inspect-date").value, repair });
  } catch (error) {
    $("inspect-answer").append(element("div", { class: "verdict bad" }, error.message));
    return;
  }
  $("inspect-answer").append(verdictOf(document));
  if (document.verdict !== "refused") {
    const values = parse(document.zone.join("\n"));
    const parts = [zoneOf(document), changesOf(document), fieldsOf(document), values && valuesTable(values)];
    $("inspect-details").append(...parts.filter(Boolean));
  }
  $("inspect-details").append(jsonOf(document));
}

$("inspect-date").value = new Date().toISOString().slice(0, 10);
$("inspect-text").addEventListener("input", inspectNow);
$("inspect-date").addEventListener("input", inspectNow);
$("inspect-repair").addEventListener("change", inspectNow);
$("specimen").addEventListener("click", () => {
  $("inspect-text").value = SPECIMEN;
  inspectNow();
});

// ---- compose -------------------------------------------------------------------------------------------------

const COMMON = ["documentCode", "issuingState", "documentNumber", "primaryIdentifier", "secondaryIdentifier", "nationality",
  "birthDate", "sex", "expiryDate", "language"];
const OPTIONAL = {
  "TD1": ["optionalData1", "optionalData2"],
  "TD2": ["optionalData"],
  "TD3": ["personalNumber"],
  "MRV-A": ["optionalData"],
  "MRV-B": ["optionalData"],
};
const EXAMPLE = { layout: "TD3", documentCode: "P", issuingState: "UTO", documentNumber: "L898902C3",
  primaryIdentifier: "Eriksson", secondaryIdentifier: "Anna María", nationality: "UTO", birthDate: "1974-08-12", sex: "F",
  expiryDate: "2030-04-15" };

const LANGUAGES = { "": "any language", be: "Belarusian", bg: "Bulgarian", mk: "Macedonian", sr: "Serbian", uk: "Ukrainian" };
const labelOf = (name) => ({ layout: "Layout", language: "Cyrillic letters of" })[name] ?? FIELDS[name];

function composeInput(name) {
  const options = { layout: Object.keys(OPTIONAL), language: Object.keys(LANGUAGES), sex: ["F", "M", "X"] }[name];
  const id = `compose-${name}`;
  const input = options
    ? element("select", { id, name }, ...options.map((value) => element("option", { value }, LAYOUTS[value] ?? LANGUAGES[value] ?? value)))
    : element("input", { id, name, autocomplete: "off" });
  const hint = { birthDate: " (YYYY-MM-DD, XX for unknown)", expiryDate: " (YYYY-MM-DD)" }[name] ?? "";
  return element("div", { id: `compose-${name}-box` }, element("label", { for: id }, labelOf(name) + hint), input,
    element("p", { class: "error", id: `${id}-error`, hidden: "" }));
}

const INPUTS = ["layout", ...COMMON, ...new Set(Object.values(OPTIONAL).flat())];
$("compose-fields").append(...INPUTS.map(composeInput));
for (const [name, value] of Object.entries(EXAMPLE)) {
  $(`compose-${name}`).value = value;
}

function markError(name, message) {
  for (const input of INPUTS) {
    const wrong = input === name;
    const node = $(`compose-${input}`);
    const error = $(`compose-${input}-error`);
    node.toggleAttribute("aria-invalid", false);
    node.removeAttribute("aria-describedby");
    error.hidden = !wrong;
    error.textContent = wrong ? message : "";
    if (wrong) {
      node.setAttribute("aria-invalid", "true");
      node.setAttribute("aria-describedby", error.id);
    }
  }
}

function composeNow() {
  const layout = $("compose-layout").value;
  const used = [...COMMON, ...OPTIONAL[layout]];
  for (const name of new Set(Object.values(OPTIONAL).flat())) {
    $(`compose-${name}-box`).hidden = !used.includes(name);
  }
  const fields = Object.fromEntries(used.map((name) => [name, $(`compose-${name}`).value || null]));
  $("compose-answer").replaceChildren();
  try {
    const zone = compose({ layout, ...fields });
    markError(null, "");
    const text = element("pre", { class: "zone", tabindex: "0", role: "region", "aria-label": "The composed zone" },
      zone.join("\n"));
    $("compose-answer").append(text, copyButton(text));
  } catch (error) {
    const words = error.message.replace(/^\w+: /, "");
    markError(error.field, words);
    $("compose-answer").append(element("div", { class: "verdict bad" }, `${labelOf(error.field)}: ${words}`));
  }
}

$("compose-form").addEventListener("input", composeNow);
$("compose-form").addEventListener("submit", (event) => event.preventDefault());
composeNow();

// ---- licence -------------------------------------------------------------------------------------------------

function licenceNow() {
  const text = textOf($("licence-text"));
  $("licence-answer").replaceChildren();
  $("licence-details").replaceChildren();
  if (text.trim() === "") {
    return;
  }
  const answer = barcode(text);
  if (answer === null) {
    $("licence-answer").append(element("div", { class: "verdict bad" },
      element("strong", {}, "No licence"), element("div", {}, "This is not the text of a licence's barcode.")));
    return;
  }
  const { info, ...values } = answer;
  const departures = info.findings.map(({ code, offset, element: name }) =>
    element("li", {}, `${name === null ? "" : `${name}: `}${LICENCE_FINDINGS[code]} (byte ${offset + 1})`));
  const [kind, title] = departures.length === 0 ? ["good", "Read"] : ["doubt", "Read around departures from the standard"];
  $("licence-answer").append(element("div", { class: `verdict ${kind}` },
    element("strong", {}, [title, values.documentType, info.jurisdiction, info.country].filter(Boolean).join(", ")),
    departures.length > 0 ? element("ul", {}, ...departures) : null));
  $("licence-details").append(valuesTable(values), jsonOf(answer));
}

$("licence-text").addEventListener("input", licenceNow);
