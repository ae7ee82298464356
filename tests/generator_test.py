"""A description that is wrong stops the build with a line that names the place."""

import re
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TOP / "protocol"))
sys.dont_write_bytecode = True
from generator import model, targets  # noqa: E402

# What is replaced in which file, the first line of the file that is named, and what is said.
MISTAKES = [
    ("channels.toml", "number = 16\n", "number = 254\n", "number = 254", r"number 254 is not assigned"),
    ("channels.toml", "number = 16\n", "number = 254\n", None, r"procedure 16 is missing"),
    ("channels.toml", "number = 16\n", "number = 9\n", "number = 9", r"a second procedure of number 9"),
    ("channels.toml", 'name = "wlan_get_channel"', 'name = "wlan_get_chanel"', None,
     r"src/rpc/channels.cpp:\d+: wlan_get_channel_1_svc serves no procedure"),
    ("channels.toml", 'name = "wlan_get_channel"', 'name = "wlan_get_chanel"', 'name = "wlan_get_chanel"',
     r"wlan_get_chanel has no function wlan_get_chanel_1_svc"),
    ("ht.toml", 'type = "bool"', 'type = "boolean"', "arguments", r"'type' is one of int, .*, not 'boolean'"),
    ("ht.toml", "result = ", "results = ", "results", r"no key is called 'results'"),
    ("ht.toml", '"index"', '"indexes"', "arguments", r"no shared argument 'indexes'"),
    ("stations.toml", "size = 236\n", "size = 240\n", "size = 240", r"'wlan_device_t' says 240 bytes, its fields make 236"),
    ("stations.toml", '"wlan_device_t", count', '"wlan_devices_t", count', "fields", r"no type 'wlan_devices_t'"),
    ("stations.toml", 'record = "wlan_device_t"', 'record = "wlan_devices_t"', "result", r"no record 'wlan_devices_t'"),
    ("protocol.toml", '"BssEnabled",', '"BssEnable",', "lists = ", r"no procedure has the key 'BssEnable'"),
    ("protocol.toml", "[argument.ac]\n", "[arguments.ac]\n", "[arguments.ac]", r"no table is called 'arguments'"),
    ("protocol.toml", 'is = "access_category"', 'is = "access"', "[argument.ac]", r"no value 'access'"),
    ("wps.toml", "[[procedure]]\n", "[value.switch]\nmeaning = 'x'\n[[procedure]]\n", "[value.switch]", r"a second value 'switch'"),
    ("modes.toml", 'answered_only = ["NOTWEP"]', 'answered_only = ["NOTWPE"]', "answered_only", r"'NOTWPE' has no name"),
    ("wps.toml", 'same_as = "wlan_set_wps_enable"', 'same_as = "wlan_set_wps"', "same_as", r"no procedure 'wlan_set_wps'"),
    ("keys.toml", 'after = ["wlan_set_wep_key_index"]', 'after = ["wlan_set_wep_key"]', None,
     r"wlan_set_enable, wlan_set_wep_encryption_level, wlan_set_wep_key, wlan_set_wep_key_passphrase wait for each other"),
    ("lifecycle.toml", 'look = "status"\n', "", 'repeat = "runs again"', r"wlan_reset: 'look' is for what runs again"),
    ("lifecycle.toml", 'repeat = "safe"\n', 'repeat = "safe"\nlook = "status"\n', "look", r"wlan_load: 'look' is for what runs again"),
    ("wps.toml", 'look = "get wps_result_status INDEX"', 'look = "get wps_result INDEX"', "look", r"no procedure 'wlan_get_wps_result'"),
    ("lifecycle.toml", 'look = "status"', 'look = "get status INDEX"', "look", r"wlan_reset has no index"),
    ("wps.toml", "number = 88\n", "number = \n", "number = \n", r"Invalid value"),
]


class Description(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp()) / "protocol"
        shutil.copytree(TOP / "protocol", self.folder)
        self.addCleanup(shutil.rmtree, self.folder.parent)

    def test_mistakes_are_named_with_file_and_line(self):
        for name, old, new, place, said in MISTAKES:
            with self.subTest(new=new, said=said):
                path = self.folder / name
                good = path.read_text()
                bad = good.replace(old, new, 1)
                self.assertNotEqual(good, bad)
                path.write_text(bad)
                with self.assertRaises(model.Faults) as caught:
                    model.load(self.folder, TOP / "src" / "rpc")
                path.write_text(good)
                lines = [line for line in caught.exception.lines if re.search(said, line)]
                self.assertTrue(lines, caught.exception)
                if place is not None:
                    number = int(re.match(rf"protocol/{name}:(\d+): ", lines[0])[1])
                    self.assertIn(place.strip(), bad.split("\n")[number - 1])

    def test_what_would_not_change_is_left_alone(self):
        protocol = model.load(self.folder)
        out = self.folder.parent / "out"
        targets.write_all(protocol, out)
        times = {name: (out / name).stat().st_mtime_ns for name in targets.TARGETS}
        (out / "wlan_config.x").write_text("")
        targets.write_all(protocol, out)
        changed = [name for name in targets.TARGETS if (out / name).stat().st_mtime_ns != times[name]]
        self.assertEqual(changed, ["wlan_config.x"])
        known = " ".join((out / "KNOWN_ISSUES.md").read_text().split())
        for point, name in ((" ".join(oddity.split()), each.name) for each in protocol.procedures for oddity in each.oddities):
            self.assertRegex(known, rf"`{name}`[^:]*: {re.escape(point)}")


if __name__ == "__main__":
    unittest.main()
