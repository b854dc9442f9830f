// node set-member.js FILE: the time that jsonc-parser takes to set mcpServers.wendlow in FILE, in
// milliseconds; the median of several runs in memory.

import { readFileSync } from "node:fs";
import { applyEdits, modify } from "jsonc-parser";

const server = {
  type: "stdio",
  command: "/Applications/Wendlow.app/Contents/MacOS/wendlow-mcp",
  args: ["--tool=claude"],
};
const options = { formattingOptions: { insertSpaces: true, tabSize: 2, eol: "\n" } };

function setMember(text) {
  return applyEdits(text, modify(text, ["mcpServers", "wendlow"], server, options));
}

const [file] = process.argv.slice(2);
if (file === undefined) {
  console.error("usage: node set-member.js FILE");
  process.exit(2);
}
const text = readFileSync(file, "utf8");
if (JSON.parse(setMember(text)).mcpServers.wendlow.type !== "stdio") {
  throw new Error("the member was not set");
}
const times = [];
for (let run = 0; run < 7; ++run) {
  const start = process.hrtime.bigint();
  setMember(text);
  times.push(Number(process.hrtime.bigint() - start) / 1e6);
}
times.sort((left, right) => left - right);
console.log(`jsonc-parser setMember: median ${times[3].toFixed(0)} ms, ` +
  `from ${times[0].toFixed(0)} to ${times[6].toFixed(0)} ms`);
