"""A soak: soak.py SOURCES BUILD MINUTES, at least four. Four clients keep a daemon's workers and its store busy. A line a
minute tells its memory and descriptors; it fails when they grow, a sanitizer reports, a call goes unanswered, or a client
does nothing that succeeds."""

import contextlib
import os
import random
import re
import subprocess
import sys
import threading
import time

SOURCES, BUILD, GATEWAY = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]), "/tmp/gateway"
sys.path.insert(0, f"{BUILD}/protocol/python")
import wlan_config  # noqa: E402  (made by the build)

PROGRAM = f"{BUILD}/bin/wlan-configd"
with open(PROGRAM, "rb") as file:
    SANITIZED = b"Sanitizer" in file.read()

GETS = [row.name[5:] for row in wlan_config.PROCEDURES.values()
        if row.name.startswith("wlan_get_") and row.arguments == ("int",) and "air_time_management" not in row.name]
asked, failed, unanswered = [0] * 4, [0] * 4, []
enough = threading.Event()


class Asker:
    """One of the clients. A call that fails is counted and no more: many must, now that the driver comes and goes."""

    def __init__(self, number):
        self.number, self.client = number, wlan_config.Client(port=4000, timeout=60)

    def __getattr__(self, name):
        def call(*values):
            if enough.is_set():  # else each of a turn would wait for a daemon that has ended
                return None
            asked[self.number] += 1
            try:
                return getattr(self.client, name)(*values)
            except wlan_config.Failed:
                failed[self.number] += 1
            except wlan_config.WlanError as error:
                unanswered.append(str(error))
            return None

        return call


def lifecycle(gateway, turn):
    gateway.load(245)
    while gateway.init() == wlan_config.Code.IN_PROGRESS and turn % 4:  # else the reset overtakes it
        time.sleep(0.01)
    time.sleep(random.random() * 2)
    gateway.reset()


def restarts_and_scans(gateway, turn):
    gateway.restart(turn % 18) if turn % 5 else gateway.restart_all()
    gateway.ap_scan(random.choice((1, 9)))
    gateway.get_ap_scan_result(random.choice((1, 9)))
    time.sleep(0.05)


def gets(gateway, _):
    getattr(gateway, random.choice(GETS))(random.randint(0, 17))


def sets(gateway, turn):
    index = turn % 16 + 1
    gateway.set_ssid(index, "n" * random.randint(1, 32))
    gateway.set_channel(index, random.choice((1, 6, 11, 36, 44)))
    gateway.set_mac_address_control_add(index, f"02:00:00:00:00:{turn % 40:02X}", "name")
    gateway.set_wps_uuid(index, f"{turn:032x}")
    gateway.get_basic_stats(index)


def run(number, work):
    try:
        gateway, turn = Asker(number), 0
        while not enough.is_set():
            work(gateway, turn := turn + 1)
    except Exception as error:  # it would end with the thread
        unanswered.append(f"{work.__name__}: {error!r}")


def start_daemon():
    os.makedirs("/tmp/run")
    subprocess.run([f"{SOURCES}/sim/setup", GATEWAY], check=True)
    variables = {**os.environ, "WLAN_CONFIGD_PORT": "4000", "RUNTIME_DIRECTORY": "/tmp/run", "STATE_DIRECTORY": "/tmp/run"}
    command = f". {GATEWAY}/env && LD_PRELOAD='{BUILD}/lib/libzav_sim.so' exec '{PROGRAM}' 127.0.0.1"
    with open("/tmp/out", "ab") as out, open("/tmp/err", "ab") as err:
        return subprocess.Popen(["sh", "-c", command], env=variables, stdout=out, stderr=err)


def await_answer():
    for _ in range(200):
        with contextlib.suppress(wlan_config.WlanError), wlan_config.Client(port=4000, timeout=0.1) as gateway:
            return gateway.get_number_of_entries()
        time.sleep(0.05)
    sys.exit("soak: the daemon does not answer")


def look(daemon):
    """Memory in kB and descriptors, the least of a moment: requests and workers have some of their own."""
    found = []
    for _ in range(50):
        with open(f"/proc/{daemon.pid}/status", encoding="ascii") as status:
            memory = int(re.search(r"VmRSS:\s+(\d+)", status.read())[1])
        found.append((memory, len(os.listdir(f"/proc/{daemon.pid}/fd"))))
        time.sleep(0.01)
    return tuple(map(min, zip(*found)))


def reports(errors):
    """What has come to standard error since the last look and is no error line of the daemon."""
    return "".join(line for line in errors if not line.startswith("[ZAV-API]"))


def empty_logs(minute):
    """With debug lines in every second minute."""
    for name in ("/tmp/out", f"{GATEWAY}/log"):
        os.truncate(name, 0)
    (lambda: open("/tmp/wlandbg", "w").close() if minute % 2 else os.remove("/tmp/wlandbg"))()


def soak(daemon, minutes, errors):
    """What is wrong."""
    looks, reported = [], ""
    clients = [threading.Thread(target=run, args=each) for each in enumerate((lifecycle, restarts_and_scans, gets, sets))]
    for client in clients:
        client.start()
    try:
        for minute in range(1, minutes + 1):
            time.sleep(60)
            reported += reports(errors)
            empty_logs(minute)
            if daemon.poll() is not None:
                break
            looks.append(look(daemon))
            print(f"{minute} min: {looks[-1][0]} kB, {looks[-1][1]} descriptors, calls {asked}, failed {failed}", flush=True)
    finally:
        enough.set()
    for client in clients:
        client.join()
    if daemon.poll() is not None:
        return [f"the daemon has ended: {daemon.returncode}", reported, reports(errors)]
    daemon.terminate()
    daemon.wait(30)
    reported += reports(errors)
    _, is_reported, report = reported.partition("Sanitizer")
    wrong = [*unanswered[:9], *([is_reported + report[:8000]] if is_reported else [])]
    wrong += [f"client {number} has done nothing" for number in range(4) if asked[number] == failed[number]]
    (memory, descriptors), last = looks[minutes // 4], looks[-1]
    most = memory // 4 if SANITIZED else 256  # a sanitizer's own memory grows slowly
    if last[0] > memory + most or last[1] > descriptors + 1:
        wrong.append(f"grown from {memory} kB and {descriptors} descriptors")
    return wrong


def main():
    minutes = int(sys.argv[3])
    if minutes < 4:
        sys.exit("soak: it takes at least four minutes to see what grows")
    daemon = start_daemon()
    try:
        await_answer()
        with open("/tmp/err", encoding="utf-8", errors="replace") as errors:
            wrong = soak(daemon, minutes, errors)
    finally:
        daemon.kill()
    sys.exit("\n".join(wrong) or 0)


main()
