"""Times of wendlow-hook and wendlow-mcp beside bare exchanges with the same gateway.

    measure.py PROGRAMS [ROUNDS]       needs Debian's own Python, with python3-dbus

Everything is measured in turns, so that whatever else the machine does meets all of it alike. A program's
time is from before it is started until it has been waited for, by the same few lines for each."""

import json
import os
import statistics
import subprocess
import sys
import time

import dbus

NAME, PATH, INTERFACE = "works.fenmoor.wendlow.gateway", "/works/fenmoor/wendlow/gateway", "works.fenmoor.wendlow.Gateway"
PROMPT = "How did we settle the backup of the harbour survey, and who reviews the storage of it?"
FOLDER = "/"
CALLS = 10_000


def spent(act):
    start = time.perf_counter()
    act()
    return (time.perf_counter() - start) * 1000


def median(times):
    return statistics.median(times)


class Program:
    """Run from start to exit, with this on its standard input."""

    def __init__(self, *words):
        self.words = words
        self.empty = os.open(os.devnull, os.O_RDWR)

    def run(self, text=b""):
        file = os.memfd_create("input")
        os.write(file, text)
        os.lseek(file, 0, os.SEEK_SET)
        actions = [(os.POSIX_SPAWN_DUP2, file, 0), (os.POSIX_SPAWN_DUP2, self.empty, 1)]
        process = os.posix_spawn(self.words[0], self.words, os.environ, file_actions=actions)
        status = os.waitpid(process, 0)[1]
        os.close(file)
        assert status == 0, self.words


class Gateway:
    """Asked over one connection that stays; `ask` gives how long the exchange took."""

    def __init__(self):
        proxy = dbus.SessionBus().get_object(NAME, PATH, introspect=False)
        self.exchange = proxy.get_dbus_method("Exchange", INTERFACE)
        self.peer = dbus.Interface(proxy, "org.freedesktop.DBus.Peer")

    def ask(self, request):
        message = {"payload": dbus.ByteArray(json.dumps(request).encode()), "wire": dbus.UInt64(1)}
        replies = []
        took = spent(lambda: replies.append(self.exchange(dbus.Dictionary(message, signature="sv"), byte_arrays=True)))
        answer = json.loads(bytes(replies[0]["payload"]))
        assert not {"failure", "unimplemented"} & answer.keys(), answer
        return took


class Server:
    """wendlow-mcp with its client, line by line."""

    def __init__(self, program):
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def say(self, method, **params):
        line = {"jsonrpc": "2.0", "id": 1, "method": method, "params": params}
        self.process.stdin.write(json.dumps(line).encode() + b"\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())["result"]

    def initialize(self):
        self.say("initialize", protocolVersion="2025-06-18", capabilities={}, clientInfo={"name": "x", "version": "1"})

    def megabytes(self):
        with open(f"/proc/{self.process.pid}/status") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmHWM")) / 1024

    def end(self):
        self.process.stdin.close()
        self.process.wait()


def event(session):
    return {"session_id": session, "cwd": FOLDER, "hook_event_name": "UserPromptSubmit", "prompt": PROMPT}


def questions(slot, session, scope):
    """What the hook asks for a slot."""
    rules = {"read": {"_0": {"standingRules": {"cwd": FOLDER, "writer": "claude-code", "session": session, "card": True}}}}
    walk = {"read": {"_0": {"standingRules": {"cwd": FOLDER, "writer": "claude-code", "session": session, "card": False}}}}
    types = {"read": {"_0": {"listTypes": {"scope": scope}}}}
    primed = {"read": {"_0": {"primed": {"prompt": PROMPT, "cwd": FOLDER, "writer": "claude-code", "session": session,
                                         "countsPrompt": True}}}}
    return {"rules": [rules], "index": [rules, walk, types], "recall": [primed],
            "prompt": [rules, walk, primed, types]}[slot]


def initialized(program):
    server = Server(program)
    server.initialize()
    server.say("tools/list")
    return server


def within(seen, most, unit):
    return f"{seen:8.2f} {unit}, at most {most:.2f}: {'within' if seen <= most else 'BEYOND'}"


def main():
    programs = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 100
    gateway = Gateway()
    hooks = {"rules": ["claude-code", "--slot", "rules"], "index": ["claude-code", "--slot", "index"],
             "recall": ["claude-code", "--slot", "recall"], "prompt": ["codex"]}
    hooks = {slot: Program(f"{programs}/wendlow-hook", "--harness", *words) for slot, words in hooks.items()}
    bare = Program("/usr/bin/dbus-send", "--session", "--print-reply", f"--dest={NAME}", PATH,
                   "org.freedesktop.DBus.Peer.Ping")
    idle = Program(f"{programs}/wendlow-hook", "--harness", "codex")
    server = initialized(f"{programs}/wendlow-mcp")
    grab = {"name": "grab", "arguments": {"id": "m1"}}
    asked = {"read": {"_0": {"grab": {"id": "m1", "full": False}}}}

    times = {name: [] for name in ("bare", "idle", "ping", "call", "exchange", "list")}
    whole = {slot: [] for slot in hooks}
    served = {slot: [] for slot in hooks}
    for number in range(-5, rounds):  # the first few warm up what can be warm
        seen = {"bare": spent(bare.run), "idle": spent(idle.run), "ping": spent(gateway.peer.Ping),
                "call": spent(lambda: server.say("tools/call", **grab)), "exchange": gateway.ask(asked)}
        start = time.perf_counter()
        other = initialized(f"{programs}/wendlow-mcp")
        seen["list"] = (time.perf_counter() - start) * 1000
        other.end()
        for slot, hook in hooks.items():
            # Of its own session: what was told in one is not told again there.
            text = json.dumps(event(f"h{number}-{slot}")).encode()
            time_of_hook = spent(lambda: hook.run(text))
            time_of_questions = [gateway.ask(each) for each in questions(slot, f"b{number}-{slot}", FOLDER)]
            if number >= 0:
                whole[slot].append(time_of_hook)
                served[slot].append(sum(time_of_questions) - len(time_of_questions) * seen["ping"])
        if number >= 0:
            for name, value in seen.items():
                times[name].append(value)

    bare_send = median(times["bare"])
    print(f"{rounds} rounds, medians; a bare dbus-send, from start to exit: {bare_send:.2f} ms")
    for slot in hooks:
        own = max(median(served[slot]), 0)
        print(f"wendlow-hook, {slot}: served {own:.2f} ms; from start to exit "
              f"{within(median(whole[slot]), 1.5 * own + 2 * bare_send, 'ms')}")
    print(f"wendlow-hook, its start: {within(median(times['idle']), 15, 'ms')}")
    exchange = median(times["exchange"])
    print(f"wendlow-mcp, a call beside a bare exchange of {exchange:.2f} ms: "
          f"{within(median(times['call']), max(exchange + 1, 1.3 * exchange), 'ms')}")
    print(f"wendlow-mcp, from its start to tools/list: {within(median(times['list']), 30, 'ms')}")
    for _ in range(CALLS):
        server.say("tools/call", **grab)
    print(f"wendlow-mcp, held at most in {CALLS} calls: {within(server.megabytes(), 64, 'MB')}")
    server.end()


if __name__ == "__main__":
    main()
