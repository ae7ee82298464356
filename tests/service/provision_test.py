"""Saving, comparing and setting a whole gateway, and batches: provision_test.py BUILD."""

import json
import os
import shutil
import signal
import subprocess
import sys
import time
import tomllib
import unittest
from pathlib import Path

from simulated import BIN, BUILD, GATEWAY, LOCK, TOP, WLANCTL, OnTheGateway, json_of, make_afresh, run, start_daemon, wlanctl

sys.path += [str(TOP / "protocol"), str(BUILD / "protocol" / "python")]
import wlan_config  # noqa: E402
from generator import model  # noqa: E402

FILES = [GATEWAY / "settings" / name for name in ("ZAV75024g.dat", "ZAV750.dat")]
# Settings of another gateway: what is put back is to be as it was, but for what the import names.
OTHER = r"""set ssid zvi01 'Q"\ # ä'   # a comment
set standard zvi00 bg
set channel_bw zv00 1
set channel zv00 44
set channel zvi00 11
set extension_channel zvi00 6 0
set basic_authentication_modes zvi00 SharedAuthentication
set basic_encryption_modes zvi00 WEPEncryption
set wep_key_index zvi00 2
set wep_encryption_level zvi00 104-bit
set wep_key zvi00 2 abcdefghijklm
set wpa_authentication_modes zvi02 WPA2PSK
set wpa_encryption_modes zvi02 TKIPEncryption
set key_passphrase zvi02 1 "a \"pass\\phrase\""
set pre_shared_key zv00 1 0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef
set mac_address_control_add zvi01 AA:BB:CC:DD:EE:01 a=b
set mac_address_control_enabled zvi01 2
set enable zvi03 1
set radio_enabled zv00 0
set transmit_power zv00 12
set og_aifsn zvi00 3 9
set wps_enable zvi00 0
set wps_config_methods_enabled zv00 Keypad
set radius_server_key zv03 ';= '
set radius_server_address zv03 10.0.0.1
set air_time_bssid_weight zvi00 21
"""


def stored():
    return [path.read_bytes() for path in FILES]


class Provisioning(OnTheGateway):
    def setUp(self):
        make_afresh()
        self.factory = stored()
        Path("/tmp/factory.toml").write_text(wlanctl("--show-secrets", "export").stdout)

    def write(self, text):
        Path("/tmp/some.toml").write_text(text)
        return "/tmp/some.toml"

    def changes(self, *words, status):
        ran = wlanctl("--json", "--show-secrets", "import", *words)
        self.assertEqual(ran.returncode, status, ran.stdout + ran.stderr)
        told = json.loads(ran.stdout)
        return told, {(each["interface"], each["setting"]): each["result"] for each in told["changes"]}

    def test_an_export_holds_every_setting_and_changes_nothing(self):
        file = tomllib.loads(Path("/tmp/factory.toml").read_text())
        self.assertEqual([(scope, len(places)) for scope, places in file.items()], [("radio", 2), ("bss", 16)])
        pairs = {each.name.removeprefix("wlan_get_") for each in model.load(TOP / "protocol").procedures
                 if each.scope == "BSS" and each.result.kind != "record"
                 and wlan_config.PROCEDURES.get(each.name.replace("_get_", "_set_", 1)) and "_get_" in each.name}
        left_out = {"basic_authentication_modes", "basic_encryption_modes", "wep_key_passphrase", "beacon_type", "pre_shared_key",
                    "air_time_sta_weight"}
        self.assertEqual(set(file["bss"]["zvi00"]) - {"encryption_level", "mac_address_control_list"}, pairs - left_out)
        for words, value in [("channel zv00", file["radio"]["zv00"]["channel"]), ("wep_key zvi01 3", file["bss"]["zvi01"]["wep_key"]["3"]),
                             ("key_passphrase zv07 1", file["bss"]["zv07"]["key_passphrase"])]:
            self.assertEqual(json.loads(wlanctl("--json", "--show-secrets", "get", *words.split()).stdout)["value"], value)
        masked = wlanctl("export").stdout
        self.assertNotIn("ExamplePassphrase", masked)
        for text in (Path("/tmp/factory.toml").read_text(), masked, wlanctl("export", "zv03").stdout):
            ran = wlanctl("import", self.write(text))
            self.assertEqual((ran.stdout, ran.stderr, ran.returncode), ("unchanged\n", "", 0))
        self.assertEqual(wlanctl("diff", "/tmp/factory.toml").stdout, "")
        self.assertEqual(run("sh", "-c", f"{WLANCTL} export >/dev/full").returncode, 5)
        self.assertEqual(stored(), self.factory)

    def test_a_changed_gateway_becomes_that_of_the_file(self):
        Path("/tmp/commands").write_text(OTHER)
        self.assertEqual(wlanctl("batch", "/tmp/commands").returncode, 0)
        other, other_file = stored(), wlanctl("--show-secrets", "export").stdout
        differs = wlanctl("--json", "diff", "/tmp/factory.toml")
        found = json.loads(differs.stdout)["differences"]
        self.assertIn({"interface": "zvi00", "setting": "og_aifsn", "index": 1, "key": 3, "gateway": 9, "file": 2}, found)
        self.assertIn({"interface": "zvi02", "setting": "key_passphrase", "index": 3, "key": 1, "masked": True,
                       "gateway": None, "file": None}, found)
        self.assertEqual((differs.returncode, wlanctl("diff", "/tmp/factory.toml").stdout.count("\n")), (1, len(found) + 1))
        shown = wlanctl("import", "--dry-run", "/tmp/factory.toml").stdout
        self.assertEqual(stored(), other)
        places = [shown.index(f"wlan_set_{call} ") for call in ("channel_bw", "channel", "side_band")]
        self.assertEqual(places, sorted(places))
        told, results = self.changes("/tmp/factory.toml", status=1)
        # The level of a key that is not in use cannot be set back with the index of another.
        self.assertEqual([place for place, result in results.items() if result != "set"], [("zvi00", "wep_key")], results)
        kept = [line for line in self.factory[0].split(b"\n") if not line.startswith((b"Key2EncLevel=", b"Key2Str1="))]
        self.assertEqual([line for line in stored()[0].split(b"\n") if not line.startswith((b"Key2EncLevel=", b"Key2Str1="))], kept)
        self.assertEqual(stored()[1], self.factory[1])
        self.changes(self.write(other_file), status=0)
        self.assertEqual(stored(), other)

    def test_what_is_not_taken_is_named_and_put_back(self):
        refused = '[bss.zvi01]\nssid = "x"\nwep_key = { 1 = "seven77" }\n[radio.zvi00]\nwmm_apsd = 0\n'
        strange = '[bss.zvi01]\nssid = "x"\nssidd = "x"\nmax_station_num = "x"\n[bss.zvi99]\nssid = "x"\n'
        for text, words, status, result, all_as_before in [
                (refused, ["--all-or-nothing"], 1, "put back", True), (refused, [], 1, "set", False),
                (strange, ["--all-or-nothing"], 1, "not sent", True), (strange, [], 1, "set", False)]:
            make_afresh()
            told, results = self.changes(*words, self.write(text), status=status)
            self.assertEqual(results["zvi01", "ssid"], result)
            self.assertEqual(len(told["skipped"]), 3 if text == strange else 0, told)
            if text == refused:
                self.assertIn("perhaps the key has not 5 or 13 characters", results["zvi01", "wep_key"])
                error = next(each["error"] for each in told["changes"] if each["setting"] == "wep_key")
                self.assertEqual((error["kind"], error["procedure"], error["code"]), ("failed", "wlan_set_wep_key", -1))
                self.assertIn("not 5 or 13 characters", error["causes"][0]["cause"])
                self.assertIn("it changes also the same of the radio's other BSSes", results["zvi00", "wmm_apsd"])
            self.assertEqual(wlanctl("diff", "/tmp/factory.toml").returncode == 0, all_as_before)
        make_afresh()
        ran = wlanctl("import", "--columns", "setting,typo", self.write(refused))
        self.assertEqual((ran.returncode, ran.stdout, stored()), (2, "", self.factory))
        LOCK.touch()
        self.addCleanup(LOCK.unlink)
        self.assertIn("locked", self.changes(self.write('[bss.2]\nssid = "x"\n'), status=1)[1]["zvi01", "ssid"])

    def test_only_what_was_sent_and_put_back_is_called_so(self):
        wlanctl("down")  # another test may have left it up
        wlanctl("up")
        self.addCleanup(wlanctl, "down")
        file = self.write('[bss.zvi01]\nssid = "x"\n[radio.zvi00]\nwps_enable = 0\n')
        for fault, words, status, result, put_back in [
                # It is stored before the driver refuses it, forth and back.
                ("set.zvi00.WscConfMode.fail", [], 1, "set, and perhaps not put back", False),
                ("show.zvi00.WscInfo.delay", ["--timeout", "1"], 3, "not sent", None)]:  # the snapshot is late
            path = GATEWAY / "faults" / fault
            path.write_text("1500")
            told, results = self.changes("--all-or-nothing", *words, file, status=status)
            path.unlink()
            self.assertEqual((results["zvi01", "ssid"], told.get("put_back")), (result, put_back), told)

    def test_bandwidth_before_channel_before_side_and_one_restart(self):
        self.assertEqual(wlanctl("set", "channel", "zv00", "165").returncode, 1)
        wlanctl("up")
        told, results = self.changes("--restart", self.write("[radio.zv00]\nchannel = 165\nchannel_bw = 0\n"), status=0)
        self.assertEqual((results["zv00", "channel"], told["acts"]), ("set", "restarted"))
        self.assertEqual(wlanctl("-r", "get", "current_channel", "zv00").stdout, "165\n")
        wlanctl("down")
        self.changes(self.write("[radio.zvi00]\nchannel = 11\nside_band = 1\n"), status=0)  # the channel changes the side
        self.assertEqual(wlanctl("-r", "get", "side_band", "zvi00").stdout, "1\n")

    def test_texts_are_any_bytes(self):
        for text in ('q"\\ \'', "\udcff\x01", "ä\r\t\u202e\x7f", "\x01#=\\u0041"):
            wlanctl("set", "ssid", "zvi01", "--", text)
            wlanctl("set", "radius_server_key", "zvi01", "--", text)
            odd, file = stored(), self.write(wlanctl("--show-secrets", "export", "zvi01").stdout)
            self.assertIn(os.fsencode(f"SSID2={text}\n"), odd[0])
            self.changes("/tmp/factory.toml", status=0)
            self.assertEqual(stored(), self.factory)
            self.changes(file, status=0)
            self.assertEqual(stored(), odd)
        bad = wlanctl("import", self.write('[bss.zvi01]\nssid = { hex = "0g" }\nwep_key_index = 1\n'))
        self.assertIn("line 2: it is to be a text", bad.stderr)

    def test_batches(self):
        lines = 'set ssid 2 "a b" \nget ssid "2\n--host x get ssid 2\n\n get ssid 2\nset ssid 2 -\nget ssid 2 # end\n'
        for words, answers, status in [([], ["done", "usage"], 2),
                                       (["--keep-going"], ["done", "usage", "usage", "a b", "usage", "a b"], 2),
                                       (["--dry-run", "--keep-going"], ["not sent", "usage", "usage", "Gateway-2.4G-2", "usage",
                                                                        "Gateway-2.4G-2"], 2)]:
            make_afresh()
            ran = wlanctl("batch", *words, input=lines)
            told = [json_of(line) for line in ran.stdout.splitlines()]
            self.assertEqual([each["error"]["kind"] if "error" in each else each.get("value", each["status"]) for each in told], answers)
            self.assertEqual((ran.returncode, "line 2 failed" in ran.stderr), (status, True))
        renumbered = wlanctl("batch", input="down\nup\nget ssid zv00\ndown\nup 5\nget ssid zv00\ndown\nup\nget ssid zv00\n").stdout.splitlines()
        self.assertEqual([json.loads(line)["index"] for line in renumbered if "value" in line], [9, 1, 9])


class Restarts(OnTheGateway):
    SCRIPT = GATEWAY / "faults" / "script.zv_host.sh.restart_interfaces"

    def setUp(self):
        make_afresh()
        self.play([("down", 0, "done\n", ""), ("up", 0, "done\n", "")])

    def play(self, rows):
        for words, status, out, err in rows:
            ran = wlanctl(*words.split())
            self.assertEqual((ran.returncode, ran.stdout), (status, out), words + ran.stderr)
            self.assertIn(err, ran.stderr, words)

    def begin(self, words):
        """Lets it wait in a restart of the 5 GHz radio whose script is held."""
        Path(f"{self.SCRIPT}.hold").touch()
        waiting = subprocess.Popen([WLANCTL, *words.split()], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        while "restart_interfaces 5g" not in (GATEWAY / "log").read_text():
            time.sleep(0.05)
        return waiting

    def begin_daemon(self, **options):
        self.tearDownClass()
        type(self).daemon = start_daemon("127.0.0.1", **options)
        self.setUp()

    def test_it_takes_until_the_script_is_done(self):
        restarted, asked = "stored, and the radio restarted\n", "stored, and the restart asked for; its end was not seen\n"
        elsewhere = shutil.copy(BIN / "wlan-configd", "/tmp/elsewhere")  # no daemon of the name runs here
        self.addCleanup(self.begin_daemon)
        for words, told, least in [  # the second is stored already; the third is for both radios
                ("ssid zv00 x", restarted, 4), ("ssid zv00 x", restarted, 4), ("fcc_14_30_enable 1", restarted, 8),
                ("ssid zv00 y", asked, 2), ("ssid zv00 z", "stored; acts when the driver comes up (wlanctl up)\n", 0)]:
            if told == asked:
                self.begin_daemon(program=elsewhere)
            elif least == 0:
                wlanctl("down")
            Path(f"{self.SCRIPT}.delay").write_text("4000")
            begun = time.monotonic()
            self.play([(f"set {words} --restart", 0, told, "")])
            self.assertGreaterEqual(time.monotonic() - begun, least, words)

    def test_what_restarts_and_what_is_shown(self):
        self.play([("set ssid zv00 x --restart --dry-run", 0, "wlan_set_ssid index=9 value='x'\nwlan_restart index=9\n", "")])
        FILES[0].write_text(FILES[0].read_text().replace("BssidNum=8", "BssidNum=4"))
        self.play([("down", 0, "done\n", ""), ("up", 0, "done\n", ""), ("restart zv00", 2, "", "would restart the 2.4 GHz radio; wlanctl restart all"),
                   ("restart 5 --force", 0, "restart of the 2.4 GHz radio asked for\n", ""),
                   ("restart zv04", 0, "restart of the 5 GHz radio asked for\n", ""),
                   ("set ssid zv00 x", 0, "stored; acts at the next restart (wlanctl restart all)\n", ""),
                   ("set ssid zv00 x --restart", 0, "stored, and the radio restarted\n", "")])
        Path("/tmp/some.toml").write_text('[bss.zv00]\nssid = "y"\n')
        self.play([("import /tmp/some.toml --restart --dry-run", 0, "wlan_set_ssid index=5 value='y'\nwlan_restart_all\n", "")])
        self.play([("down", 0, "done\n", "")] + [(f"set {words}", 0, "stored; acts when the driver comes up (wlanctl up)\n", "")
                                                 for words in ("enable zv02 0", "transmit_power zvi00 30")])

    def test_ctrl_c_and_a_daemon_that_ends(self):
        Path("/tmp/some.toml").write_text('[bss.zv00]\nssid = "y"\n')
        for words, kind in [("set ssid zv00 a", "interrupted"), ("import /tmp/some.toml --all-or-nothing", "interrupted"),
                            ("set ssid zv00 b", "unreachable")]:
            waiting = self.begin(f"--json {words} --restart")
            (self.daemon.kill if kind == "unreachable" else lambda: waiting.send_signal(signal.SIGINT))()
            out, err = waiting.communicate(timeout=20)
            told = json.loads(out)
            self.assertEqual((told["status"], told["error"]["kind"], told["acts"]), ("failed", kind, "restart asked for, its end not seen"))
            if kind == "interrupted":
                self.assertEqual((waiting.returncode, err), (130, "wlanctl: no longer waiting; the restart goes on\n"))
            self.assertNotIn("put_back", told)
            self.begin_daemon()

    def test_an_import_puts_back_what_a_restart_has_undone(self):
        Path("/tmp/some.toml").write_text('[bss.zv00]\nssid = "y"\n[bss.zv01]\nssid = "y"\n')
        waiting = self.begin("--json import /tmp/some.toml --all-or-nothing --restart")
        FILES[1].write_text(FILES[1].read_text().replace("SSID1=y\n", "SSID1=other\n"))
        Path(f"{self.SCRIPT}.hold").unlink()  # the script has set one back
        told = json.loads(waiting.communicate(timeout=20)[0])
        self.assertEqual((told["status"], told["put_back"], told["acts"]), ("failed", True, "restarted"), told)
        self.assertEqual([each["result"] for each in told["changes"]], ["it reads back as other", "put back"])
        self.assertEqual([wlanctl("-r", "get", "ssid", each).stdout for each in ("zv00", "zv01")], ["Gateway-5G\n", "Gateway-5G-2\n"])
        self.assertEqual((GATEWAY / "log").read_text().count("restart_interfaces 5g\n"), 2)


if __name__ == "__main__":
    unittest.main(verbosity=1)
