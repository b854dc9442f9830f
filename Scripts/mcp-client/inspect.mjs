// Drives wendlow-mcp by the inspector's command line:  node inspect.mjs PROGRAM
// A practice gateway that is filled with a day answers. Ends with 1 where something did not hold.

import { spawnSync } from "node:child_process"
import { fileURLToPath } from "node:url"
import { callsFor } from "./calls.mjs"

const program = process.argv[2]
const inspector = fileURLToPath(new URL("node_modules/.bin/inspector", import.meta.url))
let failures = 0

function row(what, holds, seen = "") {
  if (!holds) failures++
  console.log(`  ${holds ? "holds" : "FAILS"}  inspector, ${what}${holds ? "" : `: ${JSON.stringify(seen).slice(0, 400)}`}`)
}

/** Each run starts a server of its own, which gets next to nothing of this environment. */
function inspect(...words) {
  const run = spawnSync(process.execPath,
    [inspector, "--cli", "-q", "--format", "json", "-e", `DBUS_SESSION_BUS_ADDRESS=${process.env.DBUS_SESSION_BUS_ADDRESS}`,
      program, ...words], { encoding: "utf8", maxBuffer: 1 << 26, timeout: 120_000 })
  let result
  try { result = JSON.parse(run.stdout).result } catch { }
  return { status: run.status, result, said: run.stdout + run.stderr }
}
const call = (name, args) => inspect("--method", "tools/call", "--tool-name", name, "--tool-args-json", JSON.stringify(args))
const text = (run) => (run.result?.content ?? []).map((part) => part.text).join("")

const listed = inspect("--method", "tools/list", "--strict")
row("no schema has a construct that other dialects lack", listed.status === 0 && !/Warning/.test(listed.said), listed.said)

const memory = { text: "The heron stands in the reeds.", why: "to find it again", type: "fact", scope: "/work/atlas" }
const id = /Saved (m\d+)/.exec(text(call("memory_add", memory)))?.[1]
const today = new Date().toLocaleDateString("sv")
const calls = callsFor({
  id, today, memory, session: { _wendlow_session: "s1" },
  meeting: /^- (\S+) ·/m.exec(text(call("meeting_list", {})))?.[1],
  moment: /\[(\d+)\] moment/.exec(text(call("recall", { from: "2000-01-01" })))?.[1],
})
row("the table here has every tool",
  listed.result?.tools.map((tool) => tool.name).sort().join() === Object.keys(calls).sort().join(), listed.said)
for (const [name, [right, says, wrong]] of Object.entries(calls)) {
  const answer = call(name, right)
  row(`${name}: answers`, answer.status === 0 && says.test(text(answer)), answer.said)
  row(`${name}: refuses the wrong call`, call(name, wrong).status !== 0)
}

const resources = inspect("--method", "resources/list")
const uri = resources.result?.resources?.[0]?.uri
row("resources/list", uri?.startsWith("wendlow://"), resources.said)
const read = inspect("--method", "resources/read", "--uri", uri ?? "")
row("resources/read", read.result?.contents?.[0]?.uri === uri, read.said)
const templates = inspect("--method", "resources/templates/list")
row("resources/templates/list", templates.result?.resourceTemplates?.length === 2, templates.said)
const prompts = inspect("--method", "prompts/list")
row("prompts/list", prompts.result?.prompts?.[0]?.name === "remembered", prompts.said)
const prompt = inspect("--method", "prompts/get", "--prompt-name", "remembered", "--prompt-args", "about=backup")
row("prompts/get", /backup/.test(JSON.stringify(prompt.result?.messages ?? "")), prompt.said)
const negotiated = inspect("--protocol-era", "auto", "--method", "tools/list")
row("a client that would speak a newer protocol agrees on one that the server has",
  negotiated.status === 0 && negotiated.result?.tools?.length === Object.keys(calls).length, negotiated.said)
process.exit(failures === 0 ? 0 : 1)
