#!/usr/bin/python3
"""Knows docs/gateway.md and nothing else of the product: plays a gateway that wendlow-ask
understands, and asks the practice gateway, on a bus of its own.

Usage: gateway_from_the_page.py PAGE WENDLOW_ASK WENDLOW_PRACTICE_GATEWAY
"""

import json
import os
import re
import signal
import subprocess
import sys
import tempfile
import unittest

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

PAGE, ASK, PRACTICE = sys.argv[1:4]

NAME = "works.fenmoor.wendlow.gateway"
OBJECT = "/works/fenmoor/wendlow/gateway"
INTERFACE = "works.fenmoor.wendlow.Gateway"
VERSION = 1
PATIENCE = 20  # seconds

BUS_CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path={socket}</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/>
</policy></busconfig>"""

HEALTH = {"read": {"_0": {"health": {}}}}


def as_bytes(document):
    text = json.dumps(document, ensure_ascii=False, separators=(",", ":"))
    return dbus.ByteArray(text.encode())


def from_bytes(value):
    return json.loads(bytes(value).decode())


class PageGateway(dbus.service.Object):
    """A gateway as the page tells it. It gives `answer` to every request."""

    def __init__(self, bus):
        super().__init__(bus, OBJECT)
        bus.request_name(NAME)
        self.messages = []
        self.version = VERSION
        self.answer = {"text": {"_0": "healthy"}}

    @dbus.service.method(INTERFACE, in_signature="a{sv}", out_signature="a{sv}", byte_arrays=True)
    def Exchange(self, message):
        self.messages.append(message)
        if "payload" not in message:  # a knock
            return {"wire": dbus.UInt64(self.version)}
        return {
            "payload": as_bytes(self.answer),
            "wire": dbus.UInt64(self.version),
            "served_ms": dbus.UInt64(7),
        }


class OnABus(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(prefix="wendlow-test-")
        self.addCleanup(self.folder.cleanup)
        config = os.path.join(self.folder.name, "bus.conf")
        with open(config, "w") as file:
            file.write(BUS_CONFIG.format(socket=os.path.join(self.folder.name, "socket")))
        daemon = subprocess.Popen(
            ["dbus-daemon", f"--config-file={config}", "--nofork", "--nosyslog", "--print-address=1"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(self.end, daemon)
        self.address = daemon.stdout.readline().strip()
        self.environment = dict(os.environ, DBUS_SESSION_BUS_ADDRESS=self.address,
                                HOME=self.folder.name)
        self.loop = GLib.MainLoop()
        self.bus = dbus.bus.BusConnection(self.address)
        self.addCleanup(self.bus.close)

    def end(self, process):
        process.send_signal(signal.SIGTERM)
        process.wait(PATIENCE)
        process.stdout.close()

    def run_program(self, *words):
        """Runs a program to its end while our own gateway goes on answering."""
        program = subprocess.Popen(words, env=self.environment, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True)
        GLib.child_watch_add(GLib.PRIORITY_DEFAULT, program.pid, self.ended)
        limit = GLib.timeout_add_seconds(PATIENCE, program.kill)
        self.loop.run()
        GLib.source_remove(limit)
        out, error = program.communicate()
        return os.waitstatus_to_exitcode(self.status), out, error

    def ended(self, _process, status):
        self.status = status
        self.loop.quit()

    def practice(self, *options):
        gateway = subprocess.Popen([PRACTICE, *options], env=self.environment,
                                   stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end, gateway)
        self.assertEqual(gateway.stdout.readline(), "ready\n")
        return self.bus.get_object(NAME, OBJECT, introspect=False)

    def exchange(self, gateway, message):
        return gateway.Exchange(dbus.Dictionary(message, signature="sv"), signature="a{sv}",
                                dbus_interface=INTERFACE, byte_arrays=True)

    def ask(self, gateway, request):
        """What the gateway answers, once its reply was found to be as the page says."""
        reply = self.exchange(gateway, {"payload": as_bytes(request), "wire": dbus.UInt64(VERSION)})
        self.assertIsInstance(reply["wire"], dbus.UInt64)
        self.assertEqual(reply["wire"], VERSION)
        self.assertIsInstance(reply["served_ms"], dbus.UInt64)
        return from_bytes(reply["payload"])


class APageGateway(OnABus):
    """The product's client understands a gateway that was written from the page."""

    def test_is_understood(self):
        gateway = PageGateway(self.bus)
        for answer, status in [
            ({"text": {"_0": "healthy"}}, 0),
            ({"frontState": {"_0": "titleOnly"}}, 0),
            ({"thing": {"_0": {"kind": "memory", "id": "n-7", "why": "said", "later": [1]}}}, 0),
            ({"failure": {"message": "not today — sorry"}}, 1),
            ({"unimplemented": {"verb": "health"}}, 1),
        ]:
            gateway.answer = answer
            code, out, error = self.run_program(ASK, json.dumps(HEALTH))
            document = json.loads(out)
            known = json.loads(json.dumps(answer))
            if "thing" in known:
                del known["thing"]["_0"]["later"]  # a key that the reader drops
            self.assertEqual((document, code, error), ({"response": known, "served_ms": 7}, status, ""))
        for message in gateway.messages:
            self.assertEqual(set(message), {"payload", "wire"})
            self.assertEqual(from_bytes(message["payload"]), HEALTH)
            self.assertEqual(message["wire"], VERSION)

    def test_of_another_version_is_told_apart(self):
        PageGateway(self.bus).version = 2
        code, out, _ = self.run_program(ASK, json.dumps(HEALTH))
        document = json.loads(out)
        self.assertEqual((code, document["fault"]), (1, "skew"))
        self.assertIn("restart the session", document["response"]["failure"]["message"])


class ThePracticeGateway(OnABus):
    """Somebody who knows the page alone asks the practice gateway."""

    def test_answers_what_is_asked(self):
        gateway = self.practice()
        written = self.ask(gateway, {"notes": {"_0": {"write": {
            "text": "Naïve — and 日本.", "why": "said", "writer": "page", "type": "decision",
            "path": "/work"}}}})
        found = self.ask(gateway, {"read": {"_0": {"grab": {"id": written["noteID"]["_0"]}}}})
        self.assertEqual(found["thing"]["_0"]["snippet"], "Naïve — and 日本.")
        refused = self.ask(gateway, {"read": {"_0": {"nonsense": {}}}})
        self.assertEqual(refused, {"failure": {"message": "Wendlow could not read this request"}})

    def test_answers_a_knock_with_its_version(self):
        reply = self.exchange(self.practice(), {"wire": dbus.UInt64(VERSION)})
        self.assertEqual(dict(reply), {"wire": VERSION})

    def test_sends_events_to_the_subscriber_alone(self):
        gateway = self.practice("--flood", "3")
        arrived, overheard = [], []
        stranger = dbus.bus.BusConnection(self.address)
        self.addCleanup(stranger.close)
        for bus, events in [(self.bus, arrived), (stranger, overheard)]:
            bus.add_signal_receiver(events.append, "Event", INTERFACE, path=OBJECT, byte_arrays=True)
        call = dbus.lowlevel.MethodCallMessage(NAME, OBJECT, INTERFACE, "Exchange")
        call.append({"subscribe": dbus.Boolean(True)}, signature="a{sv}")
        call.set_no_reply(True)
        self.bus.send_message(call)
        GLib.timeout_add_seconds(PATIENCE, self.loop.quit)
        GLib.timeout_add(20, lambda: self.loop.quit() if len(arrived) == 6 else True)
        self.loop.run()
        stranger.list_names()  # behind whatever was sent to it before
        while GLib.MainContext.default().iteration(False):
            pass
        events = [from_bytes(event["event"]) for event in arrived[3:]]  # three are no events
        self.assertEqual([list(event) for event in events], [["frontState"]] * 3)
        self.assertEqual(overheard, [])

    def test_answers_the_page_s_own_call(self):
        self.practice()
        with open(PAGE) as page:
            call = re.search(r"^```sh\n(.*?)^```", page.read(), re.M | re.S)[1]
        code, out, error = self.run_program("bash", "-c", call)
        self.assertEqual((code, error), (0, ""))
        payload = re.search(r'"payload" ay (\d+) ([\d ]+)', out)
        self.assertEqual(int(payload[1]), len(payload[2].split()))
        self.assertIn('"wire" t 1', out)
        answer = json.loads(bytes(int(byte) for byte in payload[2].split()))
        self.assertEqual(len(answer), 1)


dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
unittest.main(argv=sys.argv[:1])
