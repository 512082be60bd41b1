#!/usr/bin/env python3
"""The native-messaging host between a played browser and its clients.

Usage: host_test.py FOLDER_OF_PROGRAMS [FOLDER_OF_THE_EXTENSION]
"""

import json
import os
import shutil
import signal
import socket
import struct
import subprocess
import sys
import time
import unittest
from pathlib import Path

from playing import CHROMIUM_ORIGIN, World, eventually, frame, read_all

PROGRAMS = None


class HostTest(unittest.TestCase):
    def setUp(self):
        self.world = World(PROGRAMS)
        self.addCleanup(self.world.close)
        self.browser = self.world.browser("vivaldi-bin")

    def start(self, **more):
        return self.browser.start_host(**more).ready()

    # --- Life ---------------------------------------------------------------------------------------------------

    def test_its_socket_is_for_its_user_alone_and_gone_when_the_browser_leaves(self):
        host = self.start()
        self.assertEqual(self.world.sockets.stat().st_mode & 0o777, 0o700)
        self.assertEqual([path.name for path in self.world.sockets.iterdir()], [host.socket_path.name])
        host.leave()
        self.assertEqual(host.end(), (0, ""))
        self.assertEqual(list(self.world.sockets.iterdir()), [])

    def test_a_signal_ends_it_cleanly(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            host = self.start()
            host.kill(number)
            self.assertEqual(host.end(), (0, ""))
            self.assertEqual(list(self.world.sockets.iterdir()), [])

    def test_what_killed_hosts_left_is_removed_by_the_next(self):
        killed = self.start()
        killed.kill()
        self.assertEqual(killed.end()[0], -signal.SIGKILL)
        self.assertTrue(killed.socket_path.exists())
        host = self.start()
        self.assertFalse(killed.socket_path.exists())
        self.assertTrue(host.socket_path.exists())

    def test_several_hosts_of_one_browser_stand_side_by_side(self):
        first = self.start().shows("http://a.example/")
        second = self.start().shows("http://b.example/")
        self.assertIn(b"a.example", first.ask(b"list\n"))
        self.assertIn(b"b.example", second.ask(b"list\n"))

    def test_it_serves_no_other_extension(self):
        for origin in ("chrome-extension://aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa/", ""):
            host = self.browser.start_host(command=[self.world.host, origin])
            status, said = host.end()
            self.assertEqual(status, 1)
            self.assertIn("--help", said)
        self.assertFalse(self.world.sockets.exists())

    def test_it_serves_no_program_that_is_no_browser(self):
        done = subprocess.run(
            [self.world.host, CHROMIUM_ORIGIN], env=self.world.environment, capture_output=True, text=True, input=""
        )
        self.assertEqual(done.returncode, 1)
        self.assertIn("not started by a browser", done.stderr)

    def test_it_does_not_use_a_folder_that_lets_others_in(self):
        self.world.sockets.mkdir(parents=True, mode=0o700)
        self.world.sockets.chmod(0o755)
        status, said = self.browser.start_host().end()
        self.assertEqual(status, 1)
        self.assertIn("other users have access", said)
        self.assertEqual(list(self.world.sockets.iterdir()), [])

    def test_firefox_starts_it_with_the_manifest_and_the_extension(self):
        host = self.start(command=[self.world.host, "/x/manifest.json", "velmorin@kestrava.com"])
        self.assertEqual(host.ask(b"list\n"), b"end\n")

    # --- Questions and answers ------------------------------------------------------------------------------------

    def test_the_list_comes_line_by_line(self):
        host = self.start().shows("http://a.example/", "", "http://b.example/|||x y")
        self.assertEqual(
            host.ask(b"list\n"), b"tab 1 0 http://a.example/\ntab 2 0 \ntab 3 0 http://b.example/|||x y\nend\n"
        )
        self.assertEqual(host.requests, [{"id": 1, "do": "list"}])

    def test_blanking_is_handed_on(self):
        host = self.start()
        self.assertEqual(host.ask(b"blank 9007199254740991 1\n"), b"end\n")
        self.assertEqual(host.requests, [{"id": 1, "do": "blank", "window": 9007199254740991, "place": 1}])

    def test_an_error_of_the_extension_is_told(self):
        host = self.start()
        host.answers = False
        with host.connect() as client:
            client.sendall(b"list\n")
            eventually(lambda: host.requests)
            host.send(frame({"id": 1, "error": "no\nend"}))
            self.assertEqual(read_all(client), b"error no%0Aend\n")

    def test_no_address_makes_a_second_line(self):
        hostile = "http://a.example/%0a\n\r\u2028\u2029\u0085\v\f\0tab 9 0 x"
        answer = self.start().shows(hostile).ask(b"list\n").decode()
        self.assertEqual(
            answer,
            "tab 1 0 http://a.example/%0a%0A%0D%E2%80%A8%E2%80%A9%C2%85%0B%0C%00tab 9 0 x\nend\n",
        )

    def test_answers_find_their_client_in_whatever_order(self):
        host = self.start()
        host.answers = False
        clients = []
        for number in range(10):
            clients.append(host.connect())
            clients[-1].sendall(b"list\n")
            eventually(lambda: len(host.requests) == number + 1)
        for request in reversed(host.requests):
            url = f"http://{request['id']}.example/"
            host.send(frame({"id": request["id"], "tabs": [{"window": 1, "place": 0, "url": url}]}))
        for number, client in enumerate(clients):
            self.assertEqual(read_all(client), f"tab 1 0 http://{number + 1}.example/\nend\n".encode())
            client.close()

    def test_a_client_that_closes_its_side_still_gets_its_answer(self):
        host = self.start().shows("http://a.example/")
        with host.connect() as client:
            client.sendall(b"list\n")
            client.shutdown(socket.SHUT_WR)
            self.assertEqual(read_all(client), b"tab 1 0 http://a.example/\nend\n")

    def test_a_request_may_come_byte_by_byte(self):
        host = self.start()
        with host.connect() as client:
            for byte in b"list\n":
                client.sendall(bytes([byte]))
                time.sleep(0.01)
            self.assertEqual(read_all(client), b"end\n")

    def test_a_client_that_has_left_is_forgotten(self):
        host = self.start()
        host.answers = False
        with host.connect() as client:
            client.sendall(b"list\n")
            eventually(lambda: host.requests)
        host.send(frame({"id": 1, "tabs": []}) + frame({"id": 77, "tabs": []}))
        host.answers = True
        self.assertEqual(host.ask(b"list\n"), b"end\n")

    def test_nonsense_ends_the_connection_and_nothing_else(self):
        host = self.start()
        for line in (b"\n", b"lists\n", b"list \n", b"x" * 64, b"\0" * 63 + b"\n", b"blank 1\n", b"\xff\xfe\n"):
            self.assertEqual(host.ask(line), b"", line)
        self.assertEqual(host.requests, [])
        self.assertEqual(host.ask(b"list\n"), b"end\n")

    # --- Those who mean no good -----------------------------------------------------------------------------------

    def test_another_user_is_not_served(self):
        if os.geteuid() != 0 or not shutil.which("setpriv"):
            self.skipTest("only root can be another user")
        host = self.start()
        # The folder alone would keep others out, so it is opened for this.
        for folder in (self.world.folder, self.world.runtime, self.world.sockets.parent, self.world.sockets):
            folder.chmod(0o755)
        host.socket_path.chmod(0o777)
        code = (
            "import socket, sys; s = socket.socket(socket.AF_UNIX); s.settimeout(20); s.connect(sys.argv[1])\n"
            "try:\n    s.sendall(b'list\\n'); print(s.recv(100))\nexcept OSError as error:\n    print(error)"
        )
        command = [sys.executable, "-c", code, str(host.socket_path)]
        done = subprocess.run(
            ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", *command], capture_output=True, text=True
        )
        self.assertRegex(done.stdout, r"^b''|reset|Broken pipe", done.stderr)
        self.assertEqual(host.requests, [])
        done = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual(done.stdout, "b'end\\n'\n", "its own user is")

    def test_a_flood_of_connections_takes_nobodys_answer_away(self):
        host = self.start()
        idle = [host.connect() for _ in range(300)]
        self.assertEqual(host.ask(b"list\n"), b"end\n")
        self.assertLess(len(os.listdir(f"/proc/{host.pid}/fd")), 80)
        for client in idle:
            client.close()

    def test_a_flood_of_bytes_is_not_read(self):
        host = self.start()
        host.answers = False
        before = host.private_kilobytes()
        with host.connect() as client:
            client.sendall(b"list\n")
            client.settimeout(0.3)
            with self.assertRaises(OSError):
                for _ in range(1000):
                    client.sendall(b"x" * 65536)
            self.assertLess(host.private_kilobytes(), before + host.growth_allowed(1024))
            host.answers = True
            self.assertEqual(host.ask(b"list\n"), b"end\n")

    def test_a_client_that_never_reads_stops_nobody_and_has_to_go(self):
        host = self.start().shows(*["http://a.example/" + "x" * 4000] * 1000)
        descriptors = lambda: len(os.listdir(f"/proc/{host.pid}/fd"))
        before = descriptors()
        silent = host.connect()
        silent.sendall(b"list\n")
        eventually(lambda: host.requests)
        for _ in range(5):
            self.assertEqual(host.ask(b"list\n").count(b"\n"), 1001)
        self.assertEqual(descriptors(), before + 1)
        eventually(lambda: descriptors() == before, "the end of its patience")
        silent.close()

    def test_a_client_that_never_asks_has_to_go(self):
        host = self.start()
        with host.connect() as client:
            start = time.monotonic()
            self.assertEqual(read_all(client), b"")
            self.assertGreater(time.monotonic() - start, 3)

    def test_a_browser_that_hangs_neither_blocks_it_nor_makes_it_grow(self):
        host = self.start()
        host.answers = False
        lock = host.lock
        with lock:  # the extension takes nothing any more
            host.answers = True
            before = None
            for round_ in range(3000):
                with host.connect() as client:
                    client.sendall(b"list\n")
                if round_ == 200:
                    before = host.private_kilobytes()
            self.assertLess(host.private_kilobytes(), before + host.growth_allowed(512))
            waiting = host.connect()
            waiting.sendall(b"list\n")
        self.assertEqual(read_all(waiting), b"end\n")
        waiting.close()

    # --- A browser's side that is none ------------------------------------------------------------------------------

    def assert_ends(self, data, status=1):
        host = self.start()
        host.send(data)
        ended = host.end()
        self.assertEqual(ended[0], status, data[:40])
        self.assertEqual(status == 0, ended[1] == "")
        self.assertFalse(host.socket_path.exists())

    def test_what_is_malformed_ends_it_cleanly(self):
        for message in (b"", b"x", b"null", b"[]", b"{}", b'{"id":"1"}', b'{"id":1', b'{"id":1,"tabs":7}', b"\xff\xfe"):
            self.assert_ends(frame(message))
        self.assert_ends(frame(b'{"id":1,"x":' + b"[" * 200000))
        self.assert_ends(frame({"id": 1, "done": True}) + frame(b"x"))

    def test_impossible_lengths_end_it_at_once(self):
        for length in ((64 << 20) + 1, 0x7FFFFFFF, 0xFFFFFFFF):
            self.assert_ends(struct.pack("=I", length))

    def test_a_message_that_is_never_completed_ends_with_the_browser(self):
        host = self.start()
        host.send(struct.pack("=I", 100) + b"x")
        time.sleep(0.1)
        self.assertTrue(host.is_alive())
        host.leave()
        self.assertEqual(host.end(), (0, ""))

    def test_a_browser_with_too_much_to_say_has_failed_and_goes_on(self):
        host = self.start()
        host.answers = False
        with host.connect() as client:
            client.sendall(b"list\n")
            eventually(lambda: host.requests)
            tabs = [{"window": 1, "place": 0, "url": "x" * 1000000}] * 20
            host.send(frame({"id": 1, "tabs": tabs}))
            self.assertEqual(read_all(client), b"error the browser shows too much\n")
        host.answers = True
        self.assertEqual(host.ask(b"list\n"), b"end\n")

    def test_the_longest_message_is_taken(self):
        host = self.start()
        message = json.dumps({"id": 1, "x": ""}).encode()
        host.send(frame(message[:-2] + b"y" * ((64 << 20) - len(message)) + message[-2:]))
        self.assertEqual(host.ask(b"list\n"), b"end\n")


if __name__ == "__main__":
    PROGRAMS = Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
