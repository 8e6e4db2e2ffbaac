#!/usr/bin/python3
"""Runs a test that is a program for Windows, and for it commands of this machine's shell: outside.py PROGRAM ARGUMENT...

The test finds the port to ask at in LUMARIN_OUTSIDE_PORT; support/windows/Command.cpp says how it asks. Paths with a drive
letter become this machine's.
"""
import contextlib
import os
import re
import signal
import socket
import subprocess
import sys
import threading

DRIVES = os.path.join(os.environ["WINEPREFIX"], "dosdevices")


def path_of(match):
    drive, rest = match.group(1), match.group(2)
    return os.path.realpath(os.path.join(DRIVES, drive.lower() + ":")).rstrip("/") + rest.replace("\\", "/")


def serve(connection):
    line = b""
    while not line.endswith(b"\0"):
        part = connection.recv(65536)
        if not part:
            return  # the test ended before it had asked
        line += part
    line = re.sub(r"\b([A-Za-z]):([\\/][^'\" ]*)", path_of, line[:-1].decode())
    command = subprocess.Popen(["/bin/bash", "-c", line], stdout=subprocess.PIPE, start_new_session=True)

    def answer():
        try:
            while output := command.stdout.read1(65536):
                connection.sendall(output)
            connection.sendall(b"\0%d" % command.wait())
            connection.shutdown(socket.SHUT_WR)
        except OSError:
            pass  # the test has given the command up

    threading.Thread(target=answer, daemon=True).start()
    with contextlib.suppress(ConnectionError):
        while connection.recv(1):  # nothing comes; the end means that the command is given up
            pass
    if command.poll() is None:
        os.killpg(command.pid, signal.SIGKILL)


listener = socket.create_server(("127.0.0.1", 0))
os.environ["LUMARIN_OUTSIDE_PORT"] = str(listener.getsockname()[1])


def listen():
    while True:
        threading.Thread(target=serve, args=(listener.accept()[0],), daemon=True).start()


threading.Thread(target=listen, daemon=True).start()
sys.exit(subprocess.run(sys.argv[1:]).returncode)
