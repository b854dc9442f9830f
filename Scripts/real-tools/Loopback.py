"""Whether this process can reach nothing but the loopback, and a hand to bring that up."""

import fcntl
import socket
import struct

SIOCSIFFLAGS = 0x8914
UP_AND_RUNNING = 0x1 | 0x40


def only_loopback():
    """True in a network namespace that holds the loopback alone, which is up afterwards."""
    if [name for _, name in socket.if_nameindex()] != ["lo"]:
        return False
    with socket.socket() as any_socket:
        fcntl.ioctl(any_socket, SIOCSIFFLAGS, struct.pack("16sh", b"lo", UP_AND_RUNNING))
    return True
