// node set-member.js FILE: the time that jsonc-parser takes to set mcpServers.wendlow in FILE, in
// milliseconds; the median of seven runs in memory.

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
const median = (times) => times.sort((left, right) => left - right)[times.length >> 1].toFixed(0);
const wall = [];
const processor = []; // on a busy machine the steadier of the two
for (let run = 0; run < 7; ++run) {
  const start = process.hrtime.bigint();
  const used = process.cpuUsage();
  setMember(text);
  const { user, system } = process.cpuUsage(used);
  wall.push(Number(process.hrtime.bigint() - start) / 1e6);
  processor.push((user + system) / 1e3);
}
console.log(`jsonc-parser: median ${median(wall)} ms, processor ${median(processor)} ms`);
