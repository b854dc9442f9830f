"""A screen with Wendlow's Editor on it, as a person has it open while their tools work."""

import importlib.util
import os
import shutil
import subprocess
import time
from pathlib import Path

import dbus
import dbus.bus

_file = Path(__file__).parent.parent / "accessible-tree.py"
_spec = importlib.util.spec_from_file_location("accessible_tree", _file)
accessible_tree = importlib.util.module_from_spec(_spec)
_spec.loader.exec_module(accessible_tree)

TITLE = "Memories"
SIZE = ("900", "460")
PATIENCE = 60  # seconds; a slow machine is no fault
SHOWING = 25
ACTION = "org.a11y.atspi.Action"


def eventually(question):
    end = time.monotonic() + PATIENCE
    while not (answer := question()) and time.monotonic() < end:
        time.sleep(0.1)
    return answer


class Desk:
    """The Editor's window, seen through the accessibility bus and worked by keys. A picture of it is
    taken where ImageMagick is there."""

    def __init__(self, place, gateway):
        self.processes = []
        self.environment = {
            "HOME": str(place.home), "PATH": "/usr/bin:/bin", "LANG": "C.UTF-8",
            "XDG_RUNTIME_DIR": str(gateway.runtime), "DBUS_SESSION_BUS_ADDRESS": gateway.address,
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_QUICK_BACKEND": "software", "QT_QPA_PLATFORM": "xcb"}
        self.log = open(place.work / "desk.txt", "w")
        screen = self.start("Xvfb", "-displayfd", "1", "-screen", "0", "1400x1000x24", "-nolisten", "tcp",
                            "-noreset", stdout=subprocess.PIPE)
        self.environment["DISPLAY"] = ":" + screen.stdout.readline().strip()
        self.start("openbox")
        eventually(lambda: self.run("xdotool", "get_desktop"))
        self.start("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        session = dbus.bus.BusConnection(gateway.address)
        launcher = eventually(lambda: self.found(session, "org.a11y.Bus", "/org/a11y/bus"))
        self.bus = dbus.bus.BusConnection(str(launcher.GetAddress(dbus_interface="org.a11y.Bus")))
        self.start(place.bundle / "Contents/MacOS/wendlow-settings", "--window=editor")
        self.window = eventually(lambda: self.run("xdotool", "search", "--onlyvisible", "--name", f"^{TITLE}$"))
        self.run("xdotool", "windowsize", "--sync", self.window, *SIZE)
        self.look_back()

    @staticmethod
    def found(bus, service, path):
        try:
            return bus.get_object(service, path, introspect=False)
        except dbus.DBusException:
            return None

    def start(self, *command, **more):
        process = subprocess.Popen([str(part) for part in command], env=self.environment, text=True,
                                   stderr=self.log, **{"stdout": self.log, **more})
        self.processes.append(process)
        return process

    def run(self, *command):
        done = subprocess.run([str(part) for part in command], env=self.environment, text=True,
                              stdout=subprocess.PIPE, stderr=self.log)
        return done.stdout.strip()

    def things(self):
        """All that shows in the window."""
        root = accessible_tree.Thing(self.bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
        ahead = [window for application in root.children() if application.read("Name") in accessible_tree.NAMES
                 for window in application.children() if window.read("Name") == TITLE]
        while ahead:
            thing = ahead.pop(0)
            if SHOWING in thing.states():
                yield thing
                ahead += thing.children()

    def find(self, name, role=None):
        try:
            return next((thing for thing in self.things() if name in thing.read("Name") and
                         role in (None, str(thing.ask("GetRoleName")))), None)
        except dbus.DBusException:
            return None  # it went while it was looked at

    def shows(self, name, role=None):
        return eventually(lambda: self.find(name, role)) is not None

    def lists(self, name):
        return self.shows(name, "list item")

    def press(self, name, role=None):
        thing = eventually(lambda: self.find(name, role))
        if thing is None:
            return
        names = [str(action[0]) for action in thing.proxy.GetActions(dbus_interface=ACTION)]
        thing.proxy.DoAction(dbus.Int32(names.index("Press")), dbus_interface=ACTION)

    def keys(self, *keys):
        self.run("xdotool", "key", "--delay", "40", *keys)

    def write(self, text):
        self.run("xdotool", "type", "--delay", "40", text)

    def look_away(self):
        self.run("xdotool", "windowminimize", "--sync", self.window)

    def look_back(self):
        self.run("xdotool", "windowactivate", "--sync", self.window)

    def picture(self, file):
        if shutil.which("import"):
            time.sleep(0.5)  # what fades or turns has come to rest
            self.run("import", "-window", self.window, file)

    def end(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
