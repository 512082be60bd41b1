"""What a browser is to its host: the process that starts it. Run by a copy of the interpreter with a browser's name; does
what comes as JSON on the socket whose number is its argument, with descriptors for the host beside it."""

import json
import os
import signal
import socket
import subprocess
import sys

control = socket.socket(fileno=int(sys.argv[1]))
children = {}
while True:
    message, descriptors, _, _ = socket.recv_fds(control, 65536, 3)
    if not message:
        break
    request = json.loads(message)
    if request["do"] == "start":
        given, taken, errors = descriptors
        child = subprocess.Popen(request["command"], stdin=given, stdout=taken, stderr=errors, env=request["environment"])
        for descriptor in descriptors:
            socket.close(descriptor)
    elif request["do"] == "part":
        # One of the processes that browsers have beside the main one.
        child = subprocess.Popen([sys.executable, "-c", "import time; time.sleep(1000)", *request["arguments"]])
    else:
        status = children.pop(request["process"]).wait()
        control.send(json.dumps(status).encode())
        continue
    children[child.pid] = child
    control.send(json.dumps(child.pid).encode())
# The test has ended in whatever way: nothing is left of this session.
os.killpg(0, signal.SIGKILL)
