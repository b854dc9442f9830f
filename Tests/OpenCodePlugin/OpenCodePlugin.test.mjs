// The plugin as `wendlow-connect` writes it, with a hook program of each test's own behind it: what
// a host of its hooks sees, and when. A throw that escapes anywhere fails the test that is running.
import assert from "node:assert/strict"
import { execFileSync } from "node:child_process"
import fs from "node:fs"
import os from "node:os"
import path from "node:path"
import { after, describe, it } from "node:test"
import { pathToFileURL } from "node:url"

const BELT_MS = 3000
const CALL_MS = 250
const SLACK_MS = 2500 // a busy machine; what hangs here, hangs for longer
const room = fs.mkdtempSync(path.join(os.tmpdir(), "wendlow-plugin-"))
after(() => fs.rmSync(room, { recursive: true, force: true }))

/// A connected home whose hook program is this shell script: the plugin's hooks by name, and what
/// the plugin asked of the host.
async function connected({ script = "", session = {}, location = { directory: "/the/project" } } = {}) {
  const home = fs.mkdtempSync(path.join(room, "home-"))
  const programs = path.join(home, "Wendlow \"é\".app/Contents/MacOS")
  fs.mkdirSync(programs, { recursive: true })
  const hook = path.join(programs, "wendlow-hook")
  fs.writeFileSync(hook, `#!/bin/sh\ncd "$(dirname "$0")"\n${script}\n`, { mode: 0o755 })
  fs.writeFileSync(path.join(programs, "wendlow-mcp"), "")
  const config = path.join(home, ".config/opencode")
  fs.mkdirSync(config, { recursive: true })
  fs.writeFileSync(path.join(config, "package.json"), '{"type":"module"}')
  execFileSync(process.env.WENDLOW_CONNECT_PROGRAM,
    ["--home", home, "--bundle", path.dirname(path.dirname(programs)), "install", "opencode"])

  const { default: plugin } = await import(pathToFileURL(path.join(config, "plugins/wendlow.js")))
  assert.equal(plugin.id, "wendlow")
  const hooks = {}
  const cards = []
  const register = async (name, handler) => { hooks[name] = handler }
  const host = {
    location,
    session: { hook: register, synthetic: async (card) => { cards.push(card) }, ...session },
    tool: { hook: register },
  }
  assert.equal(await plugin.setup(host), undefined)
  const file = (name) => path.join(programs, name)
  return {
    plugin, hook, cards, hooks,
    wrote: (name) => fs.existsSync(file(name)) ? fs.readFileSync(file(name), "utf8") : undefined,
    ask: (text = "hello") => hooks.prompt({ sessionID: "s1", prompt: { text } }),
    call: async (input, tool = "wendlow_recall", sessionID = "s1") => {
      await hooks["execute.before"]({ tool, sessionID, input })
      return input
    },
  }
}

async function elapsed(promise) {
  const start = performance.now()
  assert.equal(await promise, undefined)
  return performance.now() - start
}

const answer = (context) => `printf '%s' '${JSON.stringify({ context })}'`
const texts = (world) => world.cards.map((card) => card.text)
const never = () => new Promise(() => {})
const isGone = (pid) => {
  try { return /^State:\s*Z/m.test(fs.readFileSync(`/proc/${pid}/status`, "utf8")) } catch { return true }
}

describe("a prompt", { concurrency: true }, () => {
  it("is told to the hook program whole, and its answer becomes one card", async () => {
    const world = await connected({ script: `cat >in; echo "$@" >args; ${answer("é — \"x\"")}` })
    const text = "long\n\"é\" ".repeat(50_000)
    await world.ask(text)
    assert.deepEqual(JSON.parse(world.wrote("in")), { prompt: text, cwd: "/the/project", sessionID: "s1" })
    assert.equal(world.wrote("args"), "--harness opencode\n")
    assert.deepEqual(world.cards, [{
      sessionID: "s1", text: "é — \"x\"", description: "Wendlow memory",
      metadata: { wendlow: true }, delivery: "steer", resume: false,
    }])
  })

  it("of a host without a folder is asked for this process's own", async () => {
    const world = await connected({ script: "cat >in", location: null })
    await world.ask()
    assert.equal(JSON.parse(world.wrote("in")).cwd, process.cwd())
  })

  it("waits for an answer that is late, in pieces, through a character", async () => {
    const pieces = ['{"context":"', "\\303", "\\251 \\342", "\\202", "\\254", ' \\360\\237', "\\230\\200", '"}']
    const world = await connected({ script: pieces.map((piece) => `printf '${piece}'; sleep 0.15`).join("\n") })
    await world.ask()
    assert.deepEqual(texts(world), ["é € 😀"])
  })

  // What each hook program prints, and whether it is a card.
  const hanging = [
    ["nothing", "echo $$ >pid; exec sleep 20", []],
    ["an answer, with the pipe left open", `echo $$ >pid; ${answer("here")}; exec sleep 20`, ["here"]],
    ["half an answer", "echo $$ >pid; printf '{\"context\":\"ha'; exec sleep 20", []],
    ["an answer, with a grandchild at the pipe", `sleep 20 & echo $$ >pid; ${answer("here")}`, ["here"]],
    ["no answer, with a grandchild at the pipe", "sleep 20 & echo $$ >pid", []],
    ["a signal that it ignores", "trap '' TERM INT HUP; echo $$ >pid; while :; do sleep 0.2; done", []],
  ]
  for (const [name, script, cards] of hanging)
    it(`waits for the belt and no longer: ${name}`, async () => {
      const world = await connected({ script })
      const time = await elapsed(world.ask())
      assert.ok(time > BELT_MS - 100 && time < BELT_MS + SLACK_MS, `${time} ms`)
      assert.deepEqual(texts(world), cards)
      await new Promise((resolve) => setTimeout(resolve, 200))
      assert.ok(isGone(Number(world.wrote("pid"))), "the hook program lives on")
    })

  const quick = [
    ["dies before it reads", "exec kill -9 $$"],
    ["dies with words", "echo broken; exit 3"],
    ["closes its input", "exec <&-; sleep 0.3"],
    ["prints nothing", "cat >/dev/null"],
    ["prints rubbish", "printf 'not JSON \\377\\376\\000'"],
    ["prints no object", "echo null"],
    ["prints a list", "echo '[\"context\"]'"],
    ["prints two answers", "echo '{\"context\":\"a\"}{\"context\":\"b\"}'"],
    ["answers with a number", "echo '{\"context\":7}'"],
    ["answers with nothing", "echo '{\"context\":\"\"}'"],
    ["floods", "yes '{\"context\":\"a\"}' | head -c 50000000"],
    ["complains without end", "head -c 5000000 /dev/zero >&2"],
  ]
  for (const [name, script] of quick)
    it(`adds nothing when the hook program ${name}`, async () => {
      const world = await connected({ script })
      const time = await elapsed(world.ask("x".repeat(1_000_000)))
      assert.ok(time < BELT_MS + SLACK_MS, `${time} ms`)
      assert.deepEqual(world.cards, [])
    })

  it("keeps a large answer whole", async () => {
    const world = await connected({ script: "printf '{\"context\":\"'; head -c 5000000 /dev/zero | tr '\\0' x; printf '\"}'" })
    await world.ask()
    assert.equal(world.cards[0].text.length, 5_000_000)
  })

  it("survives a hook program that is gone or cannot run", async () => {
    const world = await connected()
    fs.chmodSync(world.hook, 0o644)
    await world.ask()
    fs.rmSync(world.hook)
    await world.ask()
    assert.deepEqual(world.cards, [])
  })

  it("of another shape asks nobody", async () => {
    const world = await connected({ script: "touch ran" })
    for (const event of [undefined, null, {}, { sessionID: "", prompt: { text: "x" } },
      { sessionID: 1, prompt: { text: "x" } }, { sessionID: "s", prompt: null },
      { sessionID: "s", prompt: { text: ["x"] } }, new Proxy({}, { get() { throw new Error() } })])
      await world.hooks.prompt(event)
    assert.equal(world.wrote("ran"), undefined)
  })

  for (const [name, synthetic] of [["throws", () => { throw new Error() }],
    ["rejects", () => Promise.reject(new Error())], ["never settles", never]])
    it(`goes on when the host's card ${name}`, async () => {
      const world = await connected({ script: answer("here"), session: { synthetic } })
      assert.ok(await elapsed(world.ask()) < CALL_MS + SLACK_MS)
    })
})

describe("a host", () => {
  it("may lack or refuse either hook", async () => {
    const { plugin } = await connected()
    const seen = []
    const hook = async (name) => { seen.push(name) }
    const refuse = () => { throw new Error() }
    await plugin.setup({ session: { hook: refuse }, tool: { hook } })
    await plugin.setup({ session: { hook }, tool: { hook: () => Promise.reject(new Error()) } })
    await plugin.setup({})
    await plugin.setup(undefined)
    assert.deepEqual(seen, ["execute.before", "prompt"])
  })
})

describe("a tool call", { concurrency: true }, () => {
  /// A host whose chats have these parents, counting the look-ups.
  const chats = (parents) => {
    const asked = []
    const get = async ({ sessionID }) => {
      asked.push(sessionID)
      return { id: sessionID, parentID: parents[sessionID] }
    }
    return { asked, session: { get } }
  }

  it("is told its chat, and its subagent where that is another", async () => {
    const { asked, session } = chats({ s1: "mid", mid: "top" })
    const world = await connected({ session })
    const told = { a: 1, _wendlow_session: "top", _wendlow_subagent: "s1" }
    assert.deepEqual(await world.call({ a: 1 }), told)
    assert.deepEqual(await world.call({}, "wendlow_", "top"), { _wendlow_session: "top" })
    assert.deepEqual(await world.call({ a: 1 }), told)
    assert.deepEqual(asked, ["s1", "mid", "top"], "parents never change")
  })

  it("of anybody else's tool, or of another shape, is left alone", async () => {
    const { asked, session } = chats({})
    const world = await connected({ session })
    for (const tool of ["bash", "wendlowx", "my_wendlow_x", null, 7])
      assert.deepEqual(await world.call({ a: 1 }, tool), { a: 1 })
    assert.deepEqual(await world.call({}, "wendlow_x", ""), {})
    assert.deepEqual(await world.call({}, "wendlow_x", 7), {})
    for (const input of [null, undefined, "text", 7])
      assert.equal(await world.call(input), input)
    await world.hooks["execute.before"](undefined)
    assert.deepEqual(asked, [])
    assert.deepEqual(await world.call(Object.freeze({ a: 1 })), { a: 1 })
  })

  it("climbs no more than 16 parents, round and round too", async () => {
    const line = Object.fromEntries([...Array(40).keys()].map((n) => [`s${n}`, `s${n + 1}`]))
    const long = await connected(chats(line))
    assert.equal((await long.call({}))._wendlow_session, "s17")
    const round = await connected(chats({ s1: "s2", s2: "s1" }))
    assert.deepEqual(await round.call({}), { _wendlow_session: "s1" })
  })

  for (const [name, get] of [["throws", () => { throw new Error() }], ["never answers", never],
    ["rejects", () => Promise.reject(new Error())], ["knows nothing", async () => undefined],
    ["answers with another shape", async () => ({ id: 7, parentID: "x" })], ["is not there", undefined]])
    it(`names its own chat when the host's look-up ${name}`, async () => {
      const world = await connected({ session: { get } })
      const time = await elapsed(world.call({}).then((input) =>
        assert.deepEqual(input, { _wendlow_session: "s1" })))
      assert.ok(time < CALL_MS + SLACK_MS, `${time} ms`)
    })

  it("remembers only a real answer", async () => {
    let answers = 0
    const get = async ({ sessionID }) =>
      ++answers === 1 ? undefined : { id: sessionID, parentID: sessionID === "s1" ? "top" : undefined }
    const world = await connected({ session: { get } })
    assert.equal((await world.call({}))._wendlow_session, "s1")
    assert.equal((await world.call({}))._wendlow_session, "top")
  })
})
