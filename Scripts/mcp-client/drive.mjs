// Drives wendlow-mcp by the protocol's own client:  node drive.mjs PROGRAM
// A practice gateway that is filled with a day answers. Ends with 1 where something did not hold.

import { readFileSync } from "node:fs"
import { Client } from "@modelcontextprotocol/sdk/client/index.js"
import { StdioClientTransport } from "@modelcontextprotocol/sdk/client/stdio.js"
import { LATEST_PROTOCOL_VERSION } from "@modelcontextprotocol/sdk/types.js"
import { Ajv } from "ajv"
import { callsFor } from "./calls.mjs"

const program = process.argv[2]
let failures = 0

function row(what, holds, seen = "") {
  if (!holds) failures++
  console.log(`  ${holds ? "holds" : "FAILS"}  ${what}${holds ? "" : `: ${JSON.stringify(seen).slice(0, 400)}`}`)
}

async function connect(name) {
  const transport = new StdioClientTransport({ command: program, env: process.env, stderr: "pipe" })
  let complaints = ""
  transport.stderr?.on("data", (chunk) => { complaints += chunk })
  const client = new Client({ name, version: "1" })
  const start = performance.now()
  await client.connect(transport)
  const { tools } = await client.listTools()
  return { client, transport, tools, took: performance.now() - start, complaints: () => complaints }
}

const { client, transport, tools, took, complaints } = await connect("claude-code")
const text = (result) => result.content.map((part) => part.text).join("")
const call = (name, args = {}) => client.callTool({ name, arguments: args })
const idIn = (result) => /Saved (m\d+)/.exec(text(result))?.[1]

console.log(`initialize to tools/list: ${took.toFixed(1)} ms`)
row("the client's newest revision is agreed on",
  transport._protocolVersion === undefined || transport._protocolVersion === LATEST_PROTOCOL_VERSION, transport._protocolVersion)
row("it says what it is and how to use it",
  client.getServerVersion()?.name === "wendlow" && (client.getInstructions() ?? "").includes("recall"))
await client.ping()

const session = { _wendlow_session: "s1", _wendlow_subagent: "a1" }
const today = new Date().toLocaleDateString("sv")
const memory = { text: "The heron stands in the reeds.", why: "to find it again", type: "fact", scope: "/work/atlas" }
const id = idIn(await call("memory_add", { ...memory, ...session }))
const meeting = /^- (\S+) ·/m.exec(text(await call("meeting_list")))?.[1]
const moment = /\[(\d+)\] moment/.exec(text(await call("recall", { from: "2000-01-01" })))?.[1]
let chapter
for (let back = 0; back < 8 && !chapter; back++) {
  const day = new Date(Date.now() - back * 86400_000).toLocaleDateString("sv")
  chapter = /\bc\d+\b/.exec(text(await call("day_get", { day })))?.[0]
}

const calls = callsFor({ id, meeting, moment, chapter, today, session, memory })
row("the table here has every tool", tools.map((tool) => tool.name).sort().join() === Object.keys(calls).sort().join(),
  tools.map((tool) => tool.name))

async function wrongly(name, args) {
  try {
    return (await call(name, args)).isError === true
  } catch (error) {
    return error.code === -32602
  }
}

const ajv = new Ajv({ strict: true, validateSchema: true })
for (const [name, [right, says, wrong]] of Object.entries(calls)) {
  const tool = tools.find((one) => one.name === name)
  const validate = ajv.compile(tool.inputSchema)
  const plain = Object.fromEntries(Object.entries(right).filter(([key]) => !key.startsWith("_wendlow_")))
  const bad = JSON.parse(JSON.stringify(wrong))
  row(`${name}: its schema takes the right call`, validate(plain), validate.errors)
  // What needs one of several arguments says so in words; a schema of the tools' kind cannot.
  row(`${name}: its schema or the server refuses the wrong one`, await wrongly(name, bad), bad)
  row(`${name}: described and annotated`,
    tool.description.length > 40 && Object.values(tool.inputSchema.properties).every((one) => one.description) &&
    typeof tool.annotations.readOnlyHint === "boolean" && tool.annotations.title)
  const answer = await call(name, right)
  row(`${name}: answers`, !answer.isError && says.test(text(answer)), answer)
}

const found = await call("recall", { query: "heron" })
row("a recent client gets the parts, too", Array.isArray(found.structuredContent?.cards), found)
row("a failure is told to the model", (await call("memory_delete", { id: "m999999" })).isError === true)

let resources = [], cursor, pages = 0
do {
  const page = await client.listResources({ cursor })
  resources = resources.concat(page.resources)
  cursor = page.nextCursor
} while (cursor && ++pages < 200)
row("resources come page by page, each once", pages > 0 && new Set(resources.map((one) => one.uri)).size === resources.length, pages)
const module = resources.find((one) => one.uri.startsWith("wendlow://rules/work/atlas/birds"))
row("a rules module is one of them", module !== undefined, resources.slice(0, 3))
row("and is read", /Name the heron/.test((await client.readResource({ uri: module.uri })).contents[0].text))
const last = resources.at(-1)
row("so is a memory", (await client.readResource({ uri: last.uri })).contents[0].uri === last.uri)
row("one that there is not is refused", await client.readResource({ uri: "wendlow://memory/m0" }).then(() => false, (error) => error.code === -32002))
row("there are templates", (await client.listResourceTemplates()).resourceTemplates.length === 2)
const prompts = await client.listPrompts()
const prompt = await client.getPrompt({ name: prompts.prompts[0].name, arguments: { about: "heron" } })
row("the prompt brings what is remembered", /heron/.test(prompt.messages[0].content.text))

const many = await Promise.all(Array.from({ length: 300 }, (_, count) => call("search", { query: "heron", limit: count % 9 + 1 })))
row("300 calls at once are answered", many.every((one) => !one.isError))
const began = performance.now()
for (let count = 0; count < 10_000; count += 100)
  await Promise.all(Array.from({ length: 100 }, () => call("memory_list_types", { scope: "/work/atlas" })))
const status = readFileSync(`/proc/${transport.pid}/status`, "utf8")
const megabytes = Number(/VmHWM:\s+(\d+)/.exec(status)[1]) / 1024
console.log(`10,000 calls in ${((performance.now() - began) / 1000).toFixed(1)} s; the server held ${megabytes.toFixed(1)} MB at most`)
row("no more than 64 MB are held", megabytes <= 64, megabytes)
await client.close()
row("nothing stood on standard error", complaints() === "", complaints())
process.exit(failures === 0 ? 0 : 1)
