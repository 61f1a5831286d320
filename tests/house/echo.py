#!/usr/bin/env python3
"""echo.py SERVER: 1,000 clients at once get back every byte they send, from two workers; a client that goes
away harms nobody, and the server ends while connections are open."""
import os
import resource
import selectors
import socket
import struct
import subprocess
import sys

CLIENTS, ROUNDS, WORKERS = 1000, 5, 2
hard = resource.getrlimit(resource.RLIMIT_NOFILE)[1]
resource.setrlimit(resource.RLIMIT_NOFILE, (min(hard, 4096) if hard > 0 else 4096, hard))


def message(client, turn):
    """What a client sends in a turn: 1 to 6,000 bytes that nobody else sends."""
    seed = struct.pack("<II", client, turn)
    return (seed * 750)[:1 + (client * 37 + turn * 1009) % 6000]


def echo_all(port):
    """Every client in step with its own echo only."""
    clients = [socket.create_connection(("127.0.0.1", port)) for _ in range(CLIENTS)]
    with selectors.DefaultSelector() as ready:
        todo = CLIENTS
        for number, client in enumerate(clients):
            client.setblocking(False)
            client.send(message(number, 0))
            ready.register(client, selectors.EVENT_READ, [number, 0, b""])
        while todo:
            events = ready.select(20)
            assert events, f"{todo} clients wait for their bytes"
            for key, _ in events:
                number, turn, got = key.data
                got += key.fileobj.recv(65536)
                if len(got) < len(message(number, turn)):
                    key.data[2] = got
                    continue
                assert got == message(number, turn), f"client {number}, turn {turn}"
                key.data[1:] = [turn + 1, b""]
                if turn + 1 < ROUNDS:
                    key.fileobj.send(message(number, turn + 1))
                else:
                    ready.unregister(key.fileobj)
                    todo -= 1
    return clients


def large(port):
    """More than the buffers between hold, taken late."""
    data = os.urandom(1 << 20)
    client = socket.create_connection(("127.0.0.1", port))
    got = bytearray()
    client.setblocking(False)
    sent = 0
    with selectors.DefaultSelector() as ready:
        ready.register(client, selectors.EVENT_READ | selectors.EVENT_WRITE)
        while len(got) < len(data):
            for key, what in ready.select(20):
                if what & selectors.EVENT_WRITE and sent < len(data):
                    sent += client.send(data[sent:sent + 262144])
                elif what & selectors.EVENT_READ:
                    got += client.recv(65536)
    assert got == data
    client.close()


def go_away(client):
    """A reset with bytes under way."""
    client.setblocking(True)
    client.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    client.send(b"x" * 5000)
    client.close()


def main():
    server = subprocess.Popen([sys.argv[1], "0", str(WORKERS)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              text=True)
    try:
        port = int(server.stdout.readline().rsplit(":", 1)[1])
        clients = echo_all(port)
        threads = len(os.listdir(f"/proc/{server.pid}/task"))
        assert threads <= WORKERS + 4, f"{threads} threads"  # main, accept, polling, and a sanitizer's
        for client in clients[:100]:
            go_away(client)
        large(port)
        server.stdin.close()
        said = server.stdout.read()
        assert server.wait(20) == 0
        assert int(said.split()[0]) >= CLIENTS, said  # one more while those that went away are not yet forgotten
        assert all(client.recv(1) == b"" for client in clients[100:]), "not closed"
    finally:
        server.kill()
        server.wait()


main()
