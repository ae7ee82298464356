"""What wlanctl shows of the whole gateway, on the simulated one: monitor_test.py BUILD."""

import calendar
import contextlib
import json
import os
import pty
import signal
import struct
import subprocess
import time
import unittest
from fcntl import ioctl
from pathlib import Path
from termios import TIOCSWINSZ

import simulated as on
from prometheus_client.parser import text_string_to_metric_families

CHART = """\
2.4 GHz: 3 neighbours
 -30 |
     |
 -40 |  A
     |  |
 -50 |  |
     |  |
 -60 |  |
     |  |                        B
 -70 |  |                        |
     |  |                        |
 -80 |  |                        |                        C
     |  |                        |                        |
 -90 |  |                        |                        |
     |  |                        |                        |
 dBm +-----------------------------------------------------------------
        1    2    3    4    5    6    7    8    9   10   11   12   13
                                own
  A   -40 dBm  channel   1  00:00:5E:00:53:C1  WPA2      Cafe
  B   -63 dBm  channel   6  00:00:5E:00:53:C2  WPA2      Neighbour upstairs
  C   -80 dBm  channel  11  00:00:5E:00:53:C3  WPA2      (hidden)
"""


def shown(*words):
    return json.loads(on.wlanctl("--json", *words).stdout)["value"]


CLEAR = "\x1b[H\x1b[2J"


def on_terminal(columns, *words, screens=0, **environment):
    """What it shows; a watch is ended after so many screens."""
    terminal, of_child = pty.openpty()
    ioctl(of_child, TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
    child = subprocess.Popen([on.WLANCTL, *words], stdin=of_child, stdout=of_child, stderr=of_child,
                             env={**os.environ, **environment})
    os.close(of_child)
    text = b""
    with contextlib.suppress(OSError):  # of a terminal that was left
        while part := os.read(terminal, 4096):
            text += part
            if 0 < screens < text.count(CLEAR.encode()):
                child.send_signal(signal.SIGINT)
    child.wait()
    os.close(terminal)
    return text.decode()


@contextlib.contextmanager
def faults(**contents):
    files = {on.GATEWAY / "faults" / name.replace("__", "."): text for name, text in contents.items()}
    for file, text in files.items():
        file.write_text(text)
    yield
    for file in files:
        file.unlink()


@contextlib.contextmanager
def watching(*words):
    """Reads its next line; at the end Ctrl-C ends it."""
    with subprocess.Popen([on.WLANCTL, "--json", "watch", *words], stdout=subprocess.PIPE, text=True) as watch:
        try:
            yield lambda: on.json_of(watch.stdout.readline(), "watch")
        finally:
            watch.send_signal(signal.SIGINT)
        assert (watch.wait(5), watch.stdout.read()) == (130, "")


class Monitor(unittest.TestCase):
    def setUp(self):
        on.make_afresh()
        self.daemon = on.start_daemon("127.0.0.1")
        self.addCleanup(self.end_daemon)

    def end_daemon(self):
        self.daemon.kill()
        self.daemon.wait()

    def samples(self):
        ran = on.wlanctl("metrics")
        families = list(text_string_to_metric_families(ran.stdout))
        self.assertEqual(len({each.name for each in families}), len(families))
        return ran.returncode, {(each.name, each.labels.get("interface", each.labels.get("radio", "")),
                                 each.labels.get("station", "")): each
                                for family in families for each in family.samples}

    def test_status(self):
        down = shown("status")
        self.assertEqual([(each["up"], each["channel"], each["stored_channel"]) for each in down["radios"]],
                         [(False, None, 6), (False, None, 36)])
        self.assertEqual((down["daemon"]["version"], down["daemon"]["process"]), (on.run(on.BIN / "wlan-configd", "--version").stdout.split()[-1], self.daemon.pid))
        began = calendar.timegm(time.strptime(down["daemon"]["started"], "%Y-%m-%dT%H:%M:%SZ"))
        self.assertLess(abs(time.time() - began), 30)
        on.wlanctl("up")
        with faults(show__zvi00__Channel__fail="5", stations__zvi00__fail="5", show__zvi00__WscInfo__fail="5"):
            value = shown("status")
        self.assertEqual([(each["up"], each["channel"], each["bandwidth"], each["wps"]["window"])
                          for each in value["radios"]], [(True, None, "20 MHz", None), (True, 36, "40 MHz", "closed")])
        self.assertEqual([(each["security"], each["stations"], each["enabled"], each["up"])
                          for each in (value["bsses"][0], value["bsses"][3], value["bsses"][8])],
                         [("WPA2PSK AES", None, True, True), ("SHARED WEP", 0, False, False), ("WPA2PSK AES", 1, True, True)])
        on.wlanctl("call", "set_wps_pushbutton", "1")
        self.assertEqual(shown("status")["radios"][0]["wps"]["window"], "open")

    def test_metrics(self):
        Path("/tmp/name").write_bytes(b'a"b\\c\xff\x1b{}, ')
        on.wlanctl("set", "ssid", "2", "@/tmp/name")
        status, down = self.samples()
        self.assertEqual((status, down["wlan_up", "", ""].value, down["wlan_radio_up", "5 GHz", ""].value), (0, 1, 0))
        self.assertNotIn(("wlan_bss_transmit_bytes_total", "zvi00", ""), down)
        self.assertEqual(down["wlan_bss_info", "zvi01", ""].labels["ssid"], 'a"b\\\\c\\xff\\x1b{}, ')
        on.wlanctl("up")
        rows = {("wlan_radio_transmit_packets_total", "5 GHz", ""): 5000000005,
                ("wlan_radio_noise_floor_dbm", "5 GHz", ""): -92, ("wlan_bss_air_time_ratio", "zv00", ""): 0.6,
                ("wlan_station_signal_dbm", "zv02", "00:00:5E:00:53:B2"): -63,
                ("wlan_radio_noise_floor_dbm", "2.4 GHz", ""): -92, ("wlan_bss_air_time_ratio", "zvi01", ""): 0.3,
                ("wlan_bss_air_time_total", "zvi02", ""): 1100, ("wlan_bss_transmit_bytes_total", "zvi01", ""): 120001,
                ("wlan_bss_transmit_errors_total", "zvi00", ""): 24005,
                ("wlan_station_signal_dbm", "zvi00", "00:00:5E:00:53:A1"): -47}
        _, up = self.samples()
        self.assertEqual({key: up[key].value for key in rows if key in up}, rows)
        with faults(priv__zvi00__fail="5", show__atm24g__fail="5", stations__zvi00__fail="5"):
            _, half = self.samples()
        self.assertEqual([key for key in rows if key not in half],
                         [key for key in rows if ("noise" in key[0] and "2.4 GHz" in key) or key[2].endswith("A1")
                          or ("air_time" in key[0] and key[1].startswith("zvi"))])
        self.end_daemon()
        self.assertEqual([(status, len(all), all["wlan_up", "", ""].value) for status, all in [self.samples()]], [(4, 1, 0)])

    def test_the_chart(self):
        on.wlanctl("up")
        self.assertEqual(on.wlanctl("scan", "zvi00", "--chart").stdout, CHART)
        with open(on.GATEWAY / "5g/neighbours", "w") as file:
            for i, channel in enumerate([*range(36, 65, 4), *range(100, 145, 4), 149, 153, *[36] * 50]):
                print(f"0/mac=00:00:5E:00:53:01 6/str={'W' * 32} 80/1={channel} 120/1={-i - 20}", file=file)
        for columns, pictures in (80, 2), (120, 1):
            plain = on_terminal(columns, "scan", "zv00", "--chart", NO_COLOR="1").split("\r\n")
            self.assertLessEqual(max(len(line) for line in plain), columns)
            self.assertEqual(len([line for line in plain if line.startswith(" dBm")]), pictures)
            self.assertEqual([line.split() for line in plain if "own" in line], [["own"]])
            self.assertNotIn("\x1b[1m", "".join(plain[:40]))
            self.assertIn("\x1b[1m", on_terminal(columns, "scan", "zv00", "--chart"))

    def test_people_see_screens_of_80_columns_and_24_lines(self):
        on.wlanctl("up")
        self.assertEqual(on.wlanctl("status", "--columns", "country,up").stdout.split("\n")[1:6],
                         ["COUNTRY\tUP", "US\tyes", "US\tyes", "", "UP"])
        for name, record in ("stations", "0/1=0 1/mac=00:00:5E:00:53:01 13/1=-50 92/str=some"), ("neighbours", f"6/str={'W' * 32} 80/1=6 120/1=-40"):
            (on.GATEWAY / "24g" / name).write_text(f"{record}\n" * 40)
        self.assertRegex(on_terminal(80, "status", NO_COLOR="1"), r"^wlan-configd \S+ on 127.0.0.1, since \S+Z\r\nRADIO +UP +CHANNEL .*\r\n"
                         r"2.4 GHz +yes +6 +.*\r\n5 GHz .*\r\n\r\nINDEX .* SSID *\r\n1 +zvi00 +yes +yes +40 +WPA2PSK AES +Gateway-2.4G")
        on.wlanctl("scan", "zvi00")
        for words, last in [(["stations"], "... 14 more"), (["scan", "--chart"], "  C "), (["scan"], "... ")]:
            with watching(words[0]) as line:
                self.assertEqual(line()["watch"], words[0])
            for screen in on_terminal(80, "watch", *words, "--interval", "0.25", screens=2, NO_COLOR="1").split(CLEAR)[1:3]:
                lines = screen.split("\r\n")
                self.assertTrue(lines[0].startswith(f"wlanctl watch {words[0]}, every 0.25 s, 20") and lines[-2].startswith(last), lines)
                self.assertEqual((len(lines), max(map(len, lines)) <= 80), (24, True), lines)

    def test_a_watch_outlives_the_daemon(self):
        on.wlanctl("up")
        with watching("status", "--interval", "0.25") as line:
            self.assertEqual(line()["value"]["radios"][0]["channel"], 6)
            self.end_daemon()
            self.assertEqual(line()["error"]["kind"], "unreachable")
            self.daemon = on.start_daemon("127.0.0.1")
            self.assertIsNone(line()["value"]["radios"][0]["channel"])

    def test_rates(self):
        on.wlanctl("up")
        counters = on.GATEWAY / "24g/stat"
        before = counters.read_text()

        def count(sent):
            counters.with_suffix(".new").write_text(before.replace("Byte Sent = 120000", f"Byte Sent = {sent}"))
            counters.with_suffix(".new").rename(counters)

        count(2**32 - 500)
        with watching("stats", "zvi00", "--interval", "0.5") as line:
            def rate():
                return line()["value"][0]["bytes_sent_per_second"]

            self.assertEqual((rate(), rate()), (None, 0))
            count(500)  # over the end of 32 bits
            self.assertTrue(100 < rate() < 3000)
            self.assertEqual(rate(), 0)
            count(3)  # set back
            self.assertEqual((rate(), rate()), (None, 0))


if __name__ == "__main__":
    unittest.main(verbosity=1)
