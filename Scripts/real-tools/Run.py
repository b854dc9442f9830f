"""Runs the AI tools themselves against what wendlow-connect wrote into their files, and then, with the
real hook and server beside a practice gateway, through a whole loop of the memory.

    Run.py TOOLS BUNDLE WORK [NAME...]      needs Debian's own Python, with python3-dbus

TOOLS is the folder into which the tools were installed, BUNDLE the built application, WORK an empty
folder for homes and logs; NAME picks tools. Refuses to run where anything but the loopback can be
reached. Prints a table and ends with 1 where a row did not hold."""

import json
import os
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import threading
from pathlib import Path

import Film
import Model
from Desk import Desk
from Loopback import only_loopback

PROMPT = "Where does the heron stand?"
CONTEXT = "The heron stands in the reeds."
PATIENCE = 600  # seconds for one command of a tool: on a busy machine one has taken more than two minutes


class Place:
    """A private home with a made-up model beside it, and all that was kept of a run."""

    def __init__(self, work, bundle, stand_ins=True):
        self.home = work / "home"
        self.project = self.home / "project"
        self.project.mkdir(parents=True)
        # Or a tool takes the checkout around it for the project.
        subprocess.run(["git", "init", "-q", self.project], check=True)
        self.bundle = work / "Wendlow.app"
        shutil.copytree(bundle, self.bundle, symlinks=True)
        if stand_ins:
            for program in (Path(__file__).parent / "StandIn").iterdir():
                shutil.copy2(program, self.bundle / "Contents/MacOS")
        self.model = Model.serve(work / "model.log")
        self.port = self.model.server_address[1]
        threading.Thread(target=self.model.serve_forever, daemon=True).start()
        self.work = work
        self.transcript = open(work / "transcript.txt", "w")

    def run(self, *command, **more):
        environment = {"HOME": str(self.home), "PATH": "/usr/bin:/bin", "TERM": "xterm", "LANG": "C.UTF-8", **more}
        process = subprocess.Popen([str(part) for part in command], cwd=self.project, env=environment,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                   text=True, start_new_session=True)
        try:
            said, _ = process.communicate(timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)  # with what it has started, or the pipe stays open
            said, _ = process.communicate()
            words = " ".join([Path(command[0]).name, *map(str, command[1:])])
            print(f"  LATE   {words}: not done after {PATIENCE} s, so it was ended; see {self.transcript.name}",
                  flush=True)
        done = subprocess.CompletedProcess(command, process.returncode, said)
        self.transcript.write(f"$ {' '.join(map(str, command))}\n{done.stdout}\n= {done.returncode}\n")
        self.transcript.flush()
        return done

    def connect(self, *words):
        return self.run(self.bundle / "Contents/MacOS/wendlow-connect", "--home", self.home, *words)

    def taken(self, name):
        """What was logged under this name since it was last asked for."""
        log = (self.work if name == "model.log" else self.home) / name
        lines = [json.loads(line) for line in log.read_text().splitlines()] if log.exists() else []
        log.unlink(missing_ok=True)
        return lines

    def put(self, path, text):
        file = self.home / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def get(self, path):
        return (self.home / path).read_text()


class ClaudeCode:
    name, id = "Claude Code", "claude-code"
    files = (".claude/settings.json", ".claude.json")

    def __init__(self, tools, place):
        self.place = place
        self.program = tools / "node_modules/@anthropic-ai/claude-code-linux-x64/claude"
        self.environment = {"ANTHROPIC_BASE_URL": f"http://127.0.0.1:{place.port}", "ANTHROPIC_API_KEY": "made-up",
                            "CLAUDE_CODE_DISABLE_NONESSENTIAL_TRAFFIC": "1", "DISABLE_AUTOUPDATER": "1",
                            # Else it offers the tools of servers only to who searches for them.
                            "ENABLE_TOOL_SEARCH": "false"}
        place.put(".claude/settings.json", '{\n  "cleanupPeriodDays": 90\n}\n')
        place.put(".claude.json", '{\n  "numStartups": 3\n}\n')

    def run(self, *words):
        return self.place.run(self.program, *words, **self.environment)

    def version(self):
        return self.run("--version").stdout.split()[0]

    def listed(self):
        return self.run("mcp", "list").stdout

    def connected(self):
        return re.search(r"wendlow: .* Connected", self.listed()) is not None

    def prompt(self, *allowed):
        return self.run("-p", PROMPT, "--allowedTools", *(allowed or ["mcp__wendlow__remember"]))

    def switch_off(self):
        state = json.loads(self.place.get(".claude.json"))
        project = state.setdefault("projects", {}).setdefault(str(self.place.project), {})
        project["disabledMcpServers"] = ["wendlow"]
        self.place.put(".claude.json", json.dumps(state, indent=2))

    def is_off(self):
        projects = json.loads(self.place.get(".claude.json"))["projects"]
        return projects[str(self.place.project)].get("disabledMcpServers") == ["wendlow"]

    def allow_always(self):
        self.place.put("project/.claude/settings.local.json",
                       json.dumps({"permissions": {"allow": ["mcp__wendlow__remember"]}}, indent=2))

    def is_allowed(self):
        return "mcp__wendlow__remember" in self.place.get("project/.claude/settings.local.json")


class Codex:
    name, id = "Codex", "codex"
    files = (".codex/hooks.json", ".codex/config.toml")

    def __init__(self, tools, place):
        self.place = place
        self.program = next((tools / "node_modules/@openai/codex-linux-x64").rglob("bin/codex"))
        place.put(".codex/config.toml", f"""\
# mine
model = "made-up"
model_provider = "loopback"

[model_providers.loopback]
name = "loopback"
base_url = "http://127.0.0.1:{place.port}/v1"
wire_api = "responses"

[projects."{place.project}"]
trust_level = "trusted"
""")

    def run(self, *words):
        return self.place.run(self.program, *words)

    def version(self):
        return self.run("--version").stdout.split()[-1]

    def listed(self):
        return self.run("mcp", "list").stdout

    def connected(self):
        return re.search(r"wendlow .*enabled", self.listed()) is not None

    def prompt(self, *_):
        return self.run("exec", "--skip-git-repo-check", "--dangerously-bypass-approvals-and-sandbox", PROMPT)

    def switch_off(self):
        text = self.place.get(".codex/config.toml")
        self.place.put(".codex/config.toml",
                       text.replace("[mcp_servers.wendlow]\n", "[mcp_servers.wendlow]\nenabled = false\n"))

    def switch_on(self):
        self.place.put(".codex/config.toml", self.place.get(".codex/config.toml").replace("enabled = false\n", ""))

    def is_off(self):
        return "enabled = false" in self.place.get(".codex/config.toml")

    def allow_always(self):
        # The tool's own words for "Always allow", as it appends them.
        self.place.put(".codex/config.toml", self.place.get(".codex/config.toml") +
                       '\n[mcp_servers.wendlow.tools.remember]\napproval_mode = "approve"\n')

    def is_allowed(self):
        return "[mcp_servers.wendlow.tools.remember]" in self.place.get(".codex/config.toml")


class CodexBehindLink(Codex):
    """The folder is a link, as where a person keeps it among their dotfiles."""
    name, label = "Codex behind a link", "codex-behind-link"

    def __init__(self, tools, place):
        (place.home / "dotfiles/codex").mkdir(parents=True)
        (place.home / ".codex").symlink_to("dotfiles/codex")
        super().__init__(tools, place)


class OpenCode:
    """Of its second generation nothing is published: this one lists and runs the server, but never
    calls the plugin, and an installation after its first session is refused."""
    name, id = "OpenCode", "opencode"
    fires_hooks = False
    files = (".config/opencode/opencode.jsonc", ".config/opencode/plugins/wendlow.js")

    def __init__(self, tools, place):
        self.place = place
        self.program = tools / "node_modules/opencode-linux-x64/bin/opencode"
        place.put(".config/opencode/opencode.jsonc", f"""\
{{
  // mine, and with commas behind the last of everything
  "$schema": "https://opencode.ai/config.json",
  "model": "loopback/made-up",
  "small_model": "loopback/made-up",
  "autoupdate": false,
  "provider": {{
    "loopback": {{
      "npm": "@ai-sdk/openai-compatible",
      "options": {{ "baseURL": "http://127.0.0.1:{place.port}/v1", "apiKey": "made-up", }},
      "models": {{ "made-up": {{}}, }},
    }},
  }},
}}
""")

    def run(self, *words):
        return self.place.run(self.program, *words, OPENCODE_DISABLE_AUTOUPDATE="1", OPENCODE_DISABLE_MODELS_FETCH="1")

    def version(self):
        return self.run("--version").stdout.split()[-1]

    def listed(self):
        return self.run("mcp", "list").stdout

    def connected(self):
        return re.search(r"wendlow\W.*connected", self.listed()) is not None

    def prompt(self):
        return self.run("run", PROMPT)

    def switch_off(self):
        text = self.place.get(self.files[0])
        self.place.put(self.files[0], re.sub(r'("wendlow": *\{[^}]*?"enabled": *)true', r"\1false", text))

    def is_off(self):
        return re.search(r'"wendlow": *\{[^}]*"enabled": *false', self.place.get(self.files[0])) is not None


def examine(kind, tools, bundle, work):
    rows = []
    place = Place(work / getattr(kind, "label", kind.id), bundle)
    tool = kind(tools, place)
    version = tool.version()
    print(f"\n{tool.name} {version}", flush=True)
    before = {file: (place.home / file).read_bytes() for file in tool.files if (place.home / file).exists()}

    def row(what, seen):
        rows.append(bool(seen))
        print(f"  {'holds' if seen else 'FAILS'}  {what}", flush=True)

    row("installed", place.connect("install", tool.id).returncode == 0)
    row("server listed and connected", tool.connected())
    tool.prompt()
    calls = place.taken("hook.log")
    if getattr(tool, "fires_hooks", True):
        row("hook fired with its input", any(PROMPT in call["input"] for call in calls))
        row("context reached the model", any(CONTEXT in json.dumps(line) for line in place.taken("model.log")))
    row("server's tool was called", place.taken("mcp.log"))
    if hasattr(tool, "allow_always"):
        tool.allow_always()
        row("\"always allow\" is no drift", "connected" in place.connect("scan", tool.id).stdout)
        place.connect("install", tool.id)
        tool.prompt()
        row("\"always allow\" survived a reconnect", tool.is_allowed() and place.taken("mcp.log"))
    tool.switch_off()
    place.connect("install", tool.id)
    place.taken("mcp.log")
    tool.prompt()
    row("an off-switch is kept", tool.is_off() and not place.taken("mcp.log"))
    place.taken("hook.log")
    row("removed", place.connect("remove", tool.id).returncode == 0)
    row("listed no more", "wendlow" not in tool.listed())
    tool.prompt()
    row("no hook, no tool after removal", not place.taken("hook.log") and not place.taken("mcp.log"))
    row("nothing of ours in its files",
        all(b"Wendlow.app" not in (place.home / file).read_bytes() for file in tool.files if (place.home / file).exists()))
    for file, was in before.items():
        now = (place.home / file).read_bytes()
        if now != was:
            print(f"  {file} is not as before; what the tool itself wrote since:")
            print(subprocess.run(["diff", "-", place.home / file], input=was, capture_output=True).stdout.decode())
    return rows


class Gateway:
    """A practice gateway on a session bus, which stands where a login has it: a tool hands on little of
    what its environment tells, and the programs that it starts have to find the bus all the same."""

    def __init__(self, place):
        self.place = place
        self.store = place.work / "support/data.db"
        runtime = Path("/run/user")
        subprocess.run(["mount", "-t", "tmpfs", "tmpfs", runtime], check=True)  # in this namespace alone
        self.runtime = runtime / str(os.getuid())
        self.runtime.mkdir(mode=0o700)
        self.address = f"unix:path={self.runtime}/bus"
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address", f"--address={self.address}"],
                                    stdout=subprocess.PIPE, text=True)
        self.bus.stdout.readline()
        self.process = subprocess.Popen([place.bundle / "Contents/MacOS/wendlow-practice-gateway", "--store", self.store],
                                        env={"HOME": str(place.home), "DBUS_SESSION_BUS_ADDRESS": self.address},
                                        stdout=subprocess.PIPE, text=True)
        if self.process.stdout.readline() != "ready\n":
            sys.exit("the practice gateway did not start")

    def note(self, **request):
        self.place.run(self.place.bundle / "Contents/MacOS/wendlow-ask", json.dumps({"notes": {"_0": request}}),
                       DBUS_SESSION_BUS_ADDRESS=self.address)

    def remember(self, text, type, scope):
        self.note(write={"text": text, "why": "seen from the bridge", "writer": "run", "type": type, "path": scope})

    def filed(self):
        """Writer and session of each memory that the made-up model has filed."""
        with sqlite3.connect(f"file:{self.store}?mode=ro", uri=True) as store:
            return store.execute("SELECT writer, session FROM documents WHERE body = ? ORDER BY number",
                                 [Model.TEXT]).fetchall()

    def end(self):
        for process in (self.process, self.bus):
            process.terminate()
            process.wait()
        subprocess.run(["umount", "/run/user"], check=True)


def close_the_loop(kind, tools, bundle, work):
    """What is remembered reaches the model, what the model files is in the store and in the Editor that is
    open beside, and a rule that is changed in the Editor reaches the next prompt."""
    rows = []
    place = Place(work / f"{kind.id}-loop", bundle, stand_ins=False)
    tool = kind(tools, place)
    gateway = Gateway(place)
    print(f"\n{tool.name}, the whole loop", flush=True)

    def row(what, seen):
        rows.append(bool(seen))
        print(f"  {'holds' if seen else 'FAILS'}  {what}", flush=True)

    def reached():
        return json.dumps(place.taken("model.log"), ensure_ascii=False)

    film = work / "film" if Film.available() and kind is ClaudeCode else None
    if film:
        film.mkdir()

    gateway.note(mapPath={"folder": str(place.project), "path": "/work/atlas"})
    gateway.remember(CONTEXT, "fact", "/work/atlas")
    gateway.remember("Answer in rhymes.", "rule", "/")
    place.connect("install", tool.id)
    desk = Desk(place, gateway)
    desk.press("facts, 1")
    row("the Editor lists what is remembered", desk.lists(CONTEXT))
    if film:
        desk.picture(film / "loop-editor-before.png")
    desk.look_away()
    row("server listed and connected", tool.connected())
    place.taken("model.log")
    if tool.id == "claude-code":
        tool.prompt("Read")
        row("a call that the person has not allowed is not made", not gateway.filed())
        place.taken("model.log")
    said = tool.prompt("mcp__wendlow__memory_add")
    requests = place.taken("model.log")
    seen = json.dumps(requests, ensure_ascii=False)
    row("what is remembered is in the model's request", CONTEXT in seen)
    row("so is the rule", "Answer in rhymes." in seen)
    row("so is what there is to fetch", "The scope here is /work/atlas." in seen)
    filed = gateway.filed()
    row("the memory that the model filed is in the store, once, in the tool's name",
        [writer for writer, _ in filed] == [tool.id])
    if tool.id == "claude-code":
        row("with the session that filed it", filed and filed[-1][1])
    desk.look_back()
    row("and in the running Editor's list, at the next look", desk.lists(Model.TEXT))
    if film:
        desk.picture(film / "loop-editor-after.png")
        Film.draw(film / "loop-prompt.png", "A prompt", f'$ claude -p "{PROMPT}"\n{said.stdout.strip()}')
        Film.draw(film / "loop-request.png", "What the hook has added to the model's request", Film.told(requests))
        Film.draw(film / "loop-filed.png", "What the model does with a tool, and is told", Film.filed(requests))
    desk.press("Rules, 1")
    desk.shows("Answer in rhymes.", "list item")
    desk.press("Answer in rhymes.", "list item")
    desk.shows("The rule", "text")
    desk.keys("ctrl+a")
    desk.write("Answer in prose.")
    desk.keys("Return")
    row("a rule is edited in the Editor", desk.shows("Saved m2."))
    tool.prompt("mcp__wendlow__memory_add")
    seen = reached()
    row("and is in the next request as it is now", "Answer in prose." in seen and "rhymes" not in seen)
    gateway.process.terminate()
    gateway.process.wait()
    tool.prompt("mcp__wendlow__memory_add")
    seen = reached()
    row("without a gateway the prompt goes on, and the model is told of the failed call",
        PROMPT in seen and CONTEXT not in seen and "isn't running" in seen)
    desk.end()
    gateway.end()
    return rows


def main():
    tools, bundle, work, *names = sys.argv[1:]
    if not only_loopback():
        sys.exit("something beside the loopback can be reached from here, so no tool is started")
    rows = []
    for kind in (ClaudeCode, Codex, CodexBehindLink, OpenCode):
        if not names or kind.id in names:
            rows += examine(kind, Path(tools), Path(bundle), Path(work))
    for kind in (ClaudeCode, Codex):
        if not names or kind.id in names:
            rows += close_the_loop(kind, Path(tools), Path(bundle), Path(work))
    sys.exit(0 if all(rows) else 1)


if __name__ == "__main__":
    main()
