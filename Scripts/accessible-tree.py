#!/usr/bin/python3
"""Prints what a screen reader finds in Wendlow's windows that are open in this session: a line for each
thing that shows, in the order in which it is read, with its role, its name, its description and its states.

    Scripts/accessible-tree.py [TITLE]      the windows of this title only

The application tells nothing unless somebody listens: start it with QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1, or
with a screen reader running. Needs Debian's python3-dbus.
"""

import sys

import dbus
import dbus.bus

STATES = {4: "checked", 8: None, 9: "expandable", 10: "expanded", 11: "focusable", 12: "focused",
          23: "selected", 25: None, 41: "checkable"}
ACCESSIBLE = "org.a11y.atspi.Accessible"
NAMES = ("wendlow-settings", "Wendlow")


class Thing:
    def __init__(self, bus, service, path):
        self.bus, self.proxy = bus, bus.get_object(service, path, introspect=False)

    def ask(self, method):
        return getattr(self.proxy, method)(dbus_interface=ACCESSIBLE)

    def read(self, name):
        return str(self.proxy.Get(ACCESSIBLE, name, dbus_interface="org.freedesktop.DBus.Properties"))

    def states(self):
        low, high = self.ask("GetState")
        return {bit for bit in range(64) if (low | high << 32) >> bit & 1}

    def children(self):
        return [Thing(self.bus, service, path) for service, path in self.ask("GetChildren")]


def accessibility_bus():
    session = dbus.SessionBus()
    launcher = session.get_object("org.a11y.Bus", "/org/a11y/bus", introspect=False)
    return dbus.bus.BusConnection(str(launcher.GetAddress(dbus_interface="org.a11y.Bus")))


def print_tree(thing, depth=0):
    states = thing.states()
    if 25 not in states:  # it does not show
        return
    words = [name for bit, name in STATES.items() if name and bit in states]
    if 8 not in states:
        words.append("disabled")
    line = f"{'  ' * depth}{thing.ask('GetRoleName')} “{thing.read('Name')}”"
    description = thing.read("Description")
    print(line + (f" — {description}" if description else "") + (f"  [{' '.join(words)}]" if words else ""))
    for child in thing.children():
        print_tree(child, depth + 1)


def main():
    title = sys.argv[1] if len(sys.argv) > 1 else None
    root = Thing(accessibility_bus(), "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
    found = False
    for application in root.children():
        if application.read("Name") not in NAMES:
            continue
        for window in application.children():
            if title in (None, window.read("Name")):
                found = True
                print_tree(window)
    if not found:
        sys.exit("no window of Wendlow tells anything on this session's accessibility bus")


if __name__ == "__main__":
    main()
