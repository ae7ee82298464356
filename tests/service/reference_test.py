"""What is made from the description, against the real daemon on the simulated gateway: reference_test.py BUILD."""

import contextlib
import importlib.util
import json
import shlex
import shutil
import socket
import struct
import sys
import time
import unittest

from simulated import BIN, BUILD, GATEWAY, TOP, OnTheGateway, make_afresh, run, wlanctl

MADE = BUILD / "protocol"
sys.path.insert(0, str(TOP / "protocol"))
from generator import model  # noqa: E402

sys.path.insert(0, str(MADE / "python"))
import wlan_config  # noqa: E402


# What has to be otherwise before an action, so that it changes something.
BEFORE = {"wlan_set_restore_defaults": "set ssid 1 x", "wlan_restart": "set channel 1 11", "wlan_restart_all": "set channel 1 11",
          "wlan_set_wps_cancel": "set wps_pushbutton 1"}


class Reference(OnTheGateway):
    def test_every_example_prints_what_it_says(self):
        wlanctl("down")
        for each in model.load(TOP / "protocol").procedures:
            with self.subTest(each.name):
                make_afresh()
                if each.example.get("running"):
                    self.assertEqual(wlanctl("up").stderr, "")
                ran = wlanctl(*shlex.split(each.example["call"]))
                if each.effect == "at once" or each.example.get("running"):
                    wlanctl("down")
                self.assertEqual((ran.stdout.rstrip("\n"), ran.returncode),
                                 (each.example["prints"], each.example.get("status", 0)), ran.stderr)

    def test_the_look_of_every_action_shows_it(self):
        for each in (each for each in model.load(TOP / "protocol").procedures if each.runs_again and each.look != "none"):
            with self.subTest(each.name):
                make_afresh()
                for command in ("down", "up", BEFORE.get(each.name, "status")):
                    self.assertEqual(wlanctl(*command.split()).stderr, "")
                (GATEWAY / "faults" / "survey.delay").write_text("500")  # the status of one before stays
                example = shlex.split(each.example["call"])
                look = each.look.replace("INDEX", example[2] if len(example) > 2 else "").split()
                before = wlanctl(*look)
                self.assertEqual((before.returncode, wlanctl(*example).stderr), (0, ""))
                # The simulated driver stays on its channel where it is to choose one.
                differs = each.name == "wlan_ap_auto_channel_select"
                for _ in range(100):
                    differs = differs or wlanctl(*look).stdout != before.stdout
                self.assertTrue(differs)

    def test_a_session_of_the_python_client(self):
        make_afresh()
        with wlan_config.Client() as gateway:
            self.assertEqual(gateway.set_ssid(2, "My näme"), wlan_config.Code.SUCCESS)
            self.assertEqual(gateway.set_ssid(2, "My näme"), wlan_config.Code.UNCHANGED)
            self.assertEqual(gateway.get_ssid(2), "My näme")
            with self.assertRaises(wlan_config.Failed) as failed:
                gateway.get_ssid(99)
            self.assertIn("the index names no BSS", str(failed.exception))
            gateway.load(245)
            while gateway.init() == wlan_config.Code.IN_PROGRESS:
                time.sleep(0.05)
            self.assertEqual([device.rssi for device in gateway.get_assoc_devices_table(9).devices], [-48, -66])
            self.assertEqual(gateway.get_radio_tx_packets(1).packets, 5000000024)
            gateway.reset()
        with wlan_config.Client(port=1, timeout=0.1) as nobody, self.assertRaises(wlan_config.WlanError):
            nobody.get_ssid(1)

    def test_the_example_in_c(self):
        make_afresh()
        wlanctl("up")
        for words, answer in [(["get-ssid", "2"], "0 Gateway-2.4G-2\n"), (["set-ssid", "2", "x"], "0\n"),
                              (["get-ssid", "2"], "0 x\n"), (["stations", "9"], "00:00:5E:00:53:B1 -48 dBm\n"),
                              (["scan", "1"], "Cafe channel 1, -40 dBm\n")]:
            self.assertIn(answer, run(BIN / "example_client", "127.0.0.1", *words).stdout, words)
        wlanctl("down")

    @unittest.skipUnless(shutil.which("tshark"), "no tshark")
    def test_the_dissector(self):
        make_afresh()
        loopback = socket.socket(socket.AF_PACKET, socket.SOCK_RAW, socket.htons(3))
        loopback.bind(("lo", 0))
        loopback.setblocking(False)
        for words in ("get ssid 2", "set key_passphrase 1 1 secretsecret", "get key_passphrase 1 1 -r", "get ssid 99"):
            wlanctl(*words.split())
        with loopback, open("/tmp/capture", "wb") as file, contextlib.suppress(BlockingIOError):
            file.write(struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 65535, 1))
            while True:
                frame, (_, _, direction, *_) = loopback.recvfrom(65535)
                if direction != socket.PACKET_OUTGOING:
                    file.write(struct.pack("<IIII", 0, 0, len(frame), len(frame)) + frame)
        shown = run("tshark", "-r", "/tmp/capture", "-X", f"lua_script:{MADE}/wireshark/wlan-config.lua", "-V").stdout
        for line in ('Argument: index=2', 'Text: "Gateway-2.4G-2"', "value=(12 bytes, hidden)", "Text: (12 bytes, hidden)",
                     "Code: failed (-1)"):
            self.assertIn(line, shown)
        self.assertNotIn("Argument: value=\"secretsecret", shown)


class Vectors(unittest.TestCase):
    vectors = json.loads((MADE / "vectors.json").read_text())

    def test_the_python_client_codes_every_vector(self):
        for call in (call for case in self.vectors["cases"] for call in case["calls"]):
            procedure = wlan_config.PROCEDURES[call["procedure"]]
            values = [bytes.fromhex(each["bytes"]) if "bytes" in each else each["value"] for each in call["arguments"]]
            request = bytes.fromhex(call["request"])
            xid = struct.unpack_from(">I", request)[0]
            self.assertEqual(wlan_config.call_message(xid, procedure.number, procedure.encode(values)), request)
            if call["reply"] is None:
                continue
            body = wlan_config.reply_body(bytes.fromhex(call["reply"]), xid)
            if call["code"] < 0:
                with self.assertRaises(wlan_config.Failed):
                    procedure.decode(body)
            else:
                procedure.decode(body)
        for each in self.vectors["refusals"]:
            with self.assertRaises(wlan_config.Garbled):
                wlan_config.reply_body(bytes.fromhex(each["reply"]), struct.unpack(">I", bytes.fromhex(each["request"])[:4])[0])

    def test_the_example_proves_itself_with_them(self):
        ran = run(sys.executable, TOP / "examples" / "check_vectors.py", MADE / "vectors.json")
        self.assertRegex(ran.stdout, r"^\d+ calls of 252 procedures are right$")

    @unittest.skipUnless(importlib.util.find_spec("jsonschema"), "no jsonschema")
    def test_they_fit_their_schema(self):
        import jsonschema
        jsonschema.validate(self.vectors, json.loads((TOP / "protocol" / "vectors.schema.json").read_text()))


if __name__ == "__main__":
    unittest.main(verbosity=1)
