// The page as a person uses it: in Chromium, served from a subfolder, with nothing else on the network.
import assert from "node:assert/strict";
import { createReadStream, existsSync } from "node:fs";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { extname, join } from "node:path";
import { after, before, beforeEach, test } from "node:test";

const { VARNEL_PAGE: folder, VARNEL_TOOLS: tools } = process.env;
const require = createRequire(join(tools, "package.json"));
const { chromium } = require("playwright-core");
const AxeBuilder = require("@axe-core/playwright").default;

const ZONE = "P<UTOERIKSSON<<ANNA<MARIA<<<<<<<<<<<<<<<<<<<\nL898902C36UTO7408122F1204159ZE184226B<<<<<10";
const TYPES = { ".html": "text/html", ".js": "text/javascript", ".css": "text/css" };

let server;
let browser;
let page;
let requests;
let complaints;

before(async () => {
  server = createServer((request, response) => {
    const name = request.url.replace(/^\/some\/folder\//, "").replace(/^$/, "index.html");
    const file = join(folder, name);
    if (!request.url.startsWith("/some/folder/") || !existsSync(file)) {
      response.writeHead(404).end();
      return;
    }
    response.writeHead(200, { "content-type": TYPES[extname(name)] });
    createReadStream(file).pipe(response);
  });
  await new Promise((ready) => server.listen(0, "127.0.0.1", ready));
  browser = await chromium.launch({
    executablePath: "/usr/bin/chromium",
    args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--disable-background-networking",
      "--disable-component-update", "--disable-sync", "--no-first-run"],
  });
});

after(async () => {
  await browser?.close();
  server?.close();
});

const address = () => `http://127.0.0.1:${server.address().port}/some/folder/`;

beforeEach(async () => {
  await page?.context().close();
  page = await (await browser.newContext()).newPage();
  requests = [];
  complaints = [];
  page.on("request", (request) => requests.push(request.url()));
  page.on("console", (message) => ["error", "warning"].includes(message.type()) && complaints.push(message.text()));
  page.on("pageerror", (error) => complaints.push(String(error)));
  await page.goto(address());
  await page.waitForFunction(() => document.querySelector("#compose-answer").childElementCount > 0);
});

async function quiet() {
  assert.deepEqual(complaints, []);
  assert.ok(requests.length >= 5, "the page's own files");
  assert.deepEqual(requests.filter((url) => !url.startsWith(address()) && !url.startsWith("data:")), []);
}

const answer = () => page.locator("#inspect-answer").innerText();

test("a pasted zone is inspected", async () => {
  await page.locator("#inspect-text").fill(ZONE);
  assert.match(await answer(), /^Valid: Passport, TD3, expired/);
  assert.match(await page.locator("#inspect-details table").first().innerText(), /Family name\s+ERIKSSON/);
  assert.match(await page.locator("#inspect-details").innerText(), /1974-08-12/);
  assert.match(await page.locator("#inspect-details").innerText(), /licenseNumber\s+L898902C3/);
  await quiet();
});

test("a wrong digit is marked where it stands", async () => {
  await page.locator("#inspect-text").fill(ZONE.replace("7408122", "7408123"));
  assert.match(await answer(), /Doubtful[\s\S]*Date of birth does not agree with its check digit\nComposite check digit does not agree$/);
  const failed = page.locator(".zone .failed");
  assert.deepEqual(await failed.allInnerTexts(), ["3", "0"]); // the date's digit and the composite
  await quiet();
});

test("the columns of a code that is not listed are marked", async () => {
  await page.locator("#inspect-text").fill(ZONE.replace("C36UTO", "C36XYZ"));
  assert.match(await answer(), /Doubtful[\s\S]*Nationality is not a listed code/);
  assert.deepEqual(await page.locator(".zone .failed").allInnerTexts(), ["XYZ"]);
  await quiet();
});

test("characters that were dropped are mentioned", async () => {
  await page.locator("#inspect-text").fill(ZONE.replace("<<ANNA", "<?<ANNA"));
  assert.match(await answer(), /^Valid[\s\S]*Line 1: characters that are not part of a zone were dropped/);
  await quiet();
});

test("a repair is listed, and only when asked for", async () => {
  await page.locator("#inspect-text").fill(ZONE.replace("7408122F", "74O8122F"));
  assert.match(await answer(), /Doubtful/);
  await page.getByLabel("columns").check();
  assert.match(await answer(), /Valid after repair/);
  assert.match(await page.getByRole("region", { name: "Changes" }).innerText(), /line 2, column 16\s+O\s+0/);
  assert.equal(await page.locator(".zone .changed").innerText(), "0");
  await page.locator("#inspect-text").fill(ZONE.replace("L898902", "L8989O2"));
  assert.match(await answer(), /Doubtful/);
  await page.getByLabel("digits").check();
  assert.match(await answer(), /Valid after repair/);
  assert.match(await page.getByRole("region", { name: "Changes" }).innerText(),
    /line 2, column 6\s+O\s+0\s+the one look-alike that makes the check digit hold/);
  await quiet();
});

test("text that holds no zone is refused in words", async () => {
  await page.locator("#inspect-text").fill("Dear Sir or Madam");
  assert.match(await answer(), /No document[\s\S]*There is no machine-readable zone in this text/);
  await quiet();
});

test("markup in a text stays text", async () => {
  await page.locator("#inspect-text").fill(`<img src=x onerror=alert(1)>\n${ZONE}`);
  assert.equal(await page.locator("#inspect-details img").count(), 0);
  assert.match(await answer(), /Valid/);
  await quiet();
});

test("a zone is composed from a form", async () => {
  await page.getByRole("tab", { name: "Compose" }).click();
  await page.locator("#compose-primaryIdentifier").fill("Müller");
  await page.locator("#compose-secondaryIdentifier").fill("Jörg");
  assert.match(await page.locator("#compose-answer pre").innerText(), /^P<UTOMUELLER<<JOERG<+\nL898902C36UTO7408122F3004157/);
  await page.locator("#compose-primaryIdentifier").fill("Гнатюк");
  await page.getByLabel("Cyrillic letters of").selectOption("Ukrainian");
  assert.match(await page.locator("#compose-answer pre").innerText(), /^P<UTOHNATIUK<<JOERG<+\n/);
  await page.locator("#compose-primaryIdentifier").fill("名前");
  assert.equal(await page.locator("#compose-primaryIdentifier").getAttribute("aria-invalid"), "true");
  assert.equal(await page.locator("#compose-answer").innerText(), "Family name: character 1 cannot be written there");
  await quiet();
});

async function drop(area, text) {
  const data = await page.evaluateHandle((content) => {
    const transfer = new DataTransfer();
    transfer.items.add(new File([content], "text.txt", { type: "text/plain" }));
    return transfer;
  }, text);
  await page.locator(area).dispatchEvent("drop", { dataTransfer: data });
}

test("a licence's barcode is read", async () => {
  const elements = ["DAQD1234567", "DCSSPECIMEN", "DACJANE", "DADNONE", "DBB06061986", "DBA12312030", "DBD01012022", "DBC2",
    "DAG1 MAIN ST", "DAIANYTOWN", "DAJVA", "DAK123450000", "DCGUSA", "DCFX1"].join("\n");
  const body = `DL${elements}\r`;
  const barcode = `@\n\u001e\rANSI 636000090001DL0031${String(body.length).padStart(4, "0")}${body}`;
  await page.getByRole("tab", { name: "Driver's licence" }).click();
  await drop("#licence-text", barcode);
  await page.waitForFunction(() => document.querySelector("#licence-answer").childElementCount > 0);
  assert.match(await page.locator("#licence-details").innerText(), /lastName\s+SPECIMEN/);
  assert.match(await page.locator("#licence-details").innerText(), /jurisdictionCode\s+VA/);
  assert.equal(await page.locator("#licence-answer").innerText(), "Read, DL, VA, USA");
  await page.locator("#licence-text").press("End");
  await page.locator("#licence-text").press("Enter"); // from here on the line ends are the textarea's
  assert.match(await page.locator("#licence-answer").innerText(), /DL: Separators are doubled or out of place\. \(byte 170\)/);
  await page.locator("#licence-text").fill("Dear Sir or Madam");
  assert.match(await page.locator("#licence-answer").innerText(), /No licence/);
  await quiet();
});

test("a file that is dropped is read", async () => {
  await drop("#inspect-text", ZONE);
  await page.waitForFunction(() => document.querySelector("#inspect-answer").childElementCount > 0);
  assert.match(await answer(), /^Valid/);
  await quiet();
});

test("the JSON is copied, or else selected", async () => {
  await page.locator("#inspect-text").fill(ZONE);
  await page.getByText("JSON", { exact: true }).click();
  const button = page.locator("#inspect-details").getByRole("button");
  await page.context().grantPermissions(["clipboard-read", "clipboard-write"]);
  await button.click();
  await page.getByRole("button", { name: "Copied" }).waitFor();
  assert.equal(JSON.parse(await page.evaluate(() => navigator.clipboard.readText())).verdict, "valid");
  await page.evaluate(() => { navigator.clipboard.writeText = () => Promise.reject(new Error("not allowed")); });
  await button.click();
  await page.getByRole("button", { name: "Selected" }).waitFor();
  assert.equal(JSON.parse(await page.evaluate(() => String(getSelection()))).verdict, "valid");
  await quiet();
});

test("the keyboard alone is enough", async () => {
  assert.equal(await page.evaluate(() => document.activeElement.id), "inspect-text", "the first thing");
  await page.keyboard.type(ZONE.replace("\n", " "));
  assert.match(await answer(), /Valid/);
  await page.locator("#tab-inspect").focus();
  await page.keyboard.press("ArrowRight");
  assert.equal(await page.evaluate(() => document.activeElement.id), "tab-compose");
  assert.ok(await page.locator("#compose").isVisible());
  await page.keyboard.press("Tab");
  assert.equal(await page.evaluate(() => document.activeElement.id), "compose-layout");
  await quiet();
});

for (const colorScheme of ["light", "dark"]) {
  for (const width of [1200, 360]) {
    test(`accessible in ${colorScheme} mode at ${width} pixels`, async () => {
      await page.emulateMedia({ colorScheme });
      await page.setViewportSize({ width, height: 800 });
      for (const tab of ["Inspect", "Compose", "Driver's licence"]) {
        await page.getByRole("tab", { name: tab }).click();
        if (tab === "Inspect") {
          await page.locator("#inspect-text").fill(ZONE.replace("7408122", "7408123"));
        } else if (tab === "Compose") {
          await page.locator("#compose-expiryDate").fill("2030-02-30");
        } else {
          await page.locator("#licence-text").fill("DAQD1234567\nDCSSPECIMEN\nDACJANE\nDBB06061986");
        }
        const { violations } = await new AxeBuilder({ page })
          .withTags(["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa", "best-practice"]).analyze();
        assert.deepEqual(violations.map(({ id, nodes }) => [id, nodes.map((node) => node.html)]), [], tab);
        const overflow = await page.evaluate(() => document.documentElement.scrollWidth > window.innerWidth);
        assert.equal(overflow, false, `${tab} is not wider than the screen`);
        if (process.env.VARNEL_SCREENSHOTS) {
          await page.screenshot({ fullPage: true, path: join(process.env.VARNEL_SCREENSHOTS, `${tab}-${colorScheme}-${width}.png`) });
        }
      }
      await quiet();
    });
  }
}
