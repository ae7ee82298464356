"""wlanctl doctor, the completion of shells, and the schema of all JSON: doctor_test.py BUILD."""

import json
import os
import shlex
import shutil
import signal
import sys
import time
import unittest
from pathlib import Path

from simulated import BIN, GATEWAY, LOCK, SCHEMA, TOP, WLANCTL, Validator, json_of, make_afresh, run, start_daemon, wlanctl

SETTINGS, SCRIPTS = GATEWAY / "settings", Path("/tmp/sim/host")


def edit(*replacements):
    def make():
        file = SETTINGS / "ZAV750.dat"
        text = file.read_text()
        for old, new in replacements:
            text = text.replace(old, new, 1)
        file.write_text(text)
    return make


def lock(seconds):
    def make():
        LOCK.touch()
        os.utime(LOCK, (time.time() - seconds,) * 2)
    return make


# What is wrong (on a gateway that is up, or of the daemon's start), the plank that says so, its state, what it says.
WRONG_WITH_FILES = [
    (edit(("Channel=36\n", "Channel=36\nChannel=40\n"), ("TxPower=87", "TxPower 87"), ("HideSSID=0;0;0;0;0;0;0;0;0;0;", "HideSSID="),
          ("AuthMode=WPA2PSK;", "AuthMode=OPEN\nX="), ("SSID3=", "SSID33="), ("NameListPerMAC0=", "Y=")),
     "ZAV750.dat", "warn", r"no KEY=VALUE in line 39; mend .* \| more than once.*: Channel \(lines 29 and 30\); .* \| "
     r"missing: NameListPerMAC0, SSID3, TxPower; .* \| fewer fields than the 8 BSSes: AuthMode \(1\), HideSSID \(6\)"),
    (edit(("# Factory", "SSID1=x # Factory"), ("BssidNum=8", "BssidNum=many"), ("StaWeights", "Z=" + "x" * 16384 + "\nStaWeights")),
     "ZAV750.dat", "warn", r"16383 are the most.*the first line is a heading.*BssidNum does not tell"),
    (edit(("BssidNum=8\n", "BssidNum=8\r\n" + "K" * 58 + "=1\n"), ("00:A2,20;\n", "00:A2,20;")),
     "ZAV750.dat", "warn", r"too long a key in line 3; .* \| a carriage return ends line 2"),
    (lambda: (SETTINGS / "ZAV75024g.dat").unlink(), "settings folder", "broken", r"ZAV75024g.dat cannot be read and written: No such"),
    (lock(90), "lock", "broken", r"for \d\d+ s: every change is refused; rm "),
    (lock(0), "lock", "warn", r"for \d+ s: every change is refused; wait"),
    (lambda: Path("/tmp/wlandbg").touch(), "debug flag", "warn", r"can show keys; rm /tmp/wlandbg"),
    (lambda: (SCRIPTS / "zv_host.sh").chmod(0o644), "scripts", "broken", r"zv_host.sh cannot be run: .* chmod \+x"),
    (lambda: (SCRIPTS / "wscd").unlink(), "scripts", "broken", r"wscd cannot be run: No such file.*zav_install_dir"),
]
WRONG_WITH_START = [
    ([], {"zav_cfg_dir": None}, "environment", "broken", r"started without zav_cfg_dir; set"),
    ([], {"zav_install_dir": None}, "environment", "broken", r"started without zav_install_dir; set"),
    ([], {"zav_cfg_dir": "/tmp/nowhere"}, "settings folder", "broken", r"/tmp/nowhere/ZAV75024g.dat cannot be read"),
    ([], {}, "bind address", "warn", r"all addresses to everybody.*; start wlan-configd with an address"),
    ([], {"WLAN_CONFIGD_PEERS": "127.0.0.1"}, "bind address", "ok", r"only to WLAN_CONFIGD_PEERS 127.0.0.1"),
]


class Doctor(unittest.TestCase):
    def setUp(self):
        make_afresh()
        shutil.copytree(TOP / "sim", SCRIPTS.parent, dirs_exist_ok=True)
        self.daemons = []
        self.addCleanup(self.clean_up)

    def clean_up(self):
        for daemon in self.daemons:
            daemon.kill()
            daemon.wait()
        run("rpcinfo", "-d", "538054928", "1")
        for left in (LOCK, Path("/tmp/wlandbg")):
            left.unlink(missing_ok=True)

    def start(self, *arguments, **options):
        self.daemons.append(start_daemon(*arguments, **({"zav_install_dir": str(SCRIPTS)} | options)))
        return self.daemons[-1]

    def look(self, *words, before=()):
        """The status, and of each plank its state and all it says."""
        ran = run(*before, WLANCTL, "--json", *words, "doctor")
        self.assertNotRegex(ran.stdout, "ExamplePass|ExampleRadius|Gateway-", "a ticket shows no settings")
        planks = {}
        for each in json.loads(ran.stdout)["planks"]:
            state, text = planks.get(each["plank"], ("ok", []))
            planks[each["plank"]] = (each["state"], [*text, each["text"] + (f"; {each['cure']}" if each["cure"] else "")])
        return ran.returncode, planks

    def expect(self, found, plank, state, text):
        status, planks = found
        self.assertEqual((planks[plank][0], status), (state, 1 if state == "broken" else 0), planks)
        self.assertRegex(" | ".join(planks[plank][1]), text)
        if state == "broken":
            self.assertEqual(list(planks)[-1], plank, "the walk ends there")
        self.assertEqual([name for name, (found, _) in planks.items() if found == "broken" and name != plank], [])

    def test_all_is_well(self):
        self.start("127.0.0.1")
        self.assertEqual(self.look()[1]["driver"], ("warn", ["not initialised; wlanctl up"]))
        wlanctl("up")
        status, planks = self.look()
        self.assertEqual((status, {state for state, _ in planks.values()}, len(planks)), (0, {"ok"}, 16), planks)
        self.assertRegex(wlanctl("doctor").stdout, r"^ok +host +127.0.0.1 is .*\n(ok .*\n){14}ok +driver +initialised\n$")

    def test_what_is_wrong_while_it_runs(self):
        for wrong, *expected in WRONG_WITH_FILES:
            with self.subTest(expected):
                self.doCleanups()
                self.setUp()
                self.start("127.0.0.1")
                wrong()
                self.expect(self.look(), *expected)

    def test_what_is_wrong_with_its_start(self):
        for arguments, environment, *expected in WRONG_WITH_START:
            with self.subTest(expected):
                self.doCleanups()
                self.setUp()
                self.start(*arguments, **environment)
                self.expect(self.look(), *expected)
                if environment.get("zav_cfg_dir", "") is None:
                    self.assertIn("started without zav_cfg_dir", wlanctl("get", "ssid", "1").stderr)
                    self.assertIn("started without zav_cfg_dir", wlanctl("get", "ssid", "1", "--force").stderr)

    def test_daemons(self):
        program = Path(shutil.copy(BIN / "wlan-configd", "/tmp/wlan-configd"))
        first = self.start("127.0.0.1", program=program)
        program.unlink()
        self.expect(self.look(), "version", "warn", "replaced while it runs; restart")
        first.send_signal(signal.SIGSTOP)
        self.expect(self.look("--timeout", "1"), "null call", "broken", r"no reply .*; .*hangs")
        run("rpcinfo", "-d", "538054928", "1")
        self.expect(self.look(), "registration", "broken", rf"runs \(process {first.pid}\), but the portmapper does not know it")
        second = self.start("127.0.0.1")  # before the first can register again: of two that do so at once, one ends
        first.send_signal(signal.SIGCONT)
        self.expect(self.look(), "processes", "broken", rf"\(processes {first.pid}, {second.pid}\)")
        for daemon in self.daemons:
            daemon.kill()
            daemon.wait()
        self.expect(self.look(), "null call", "broken", r"refused; wlan-configd has ended and its registration has stayed")
        run("rpcinfo", "-d", "538054928", "1")
        self.expect(self.look(), "registration", "broken", "knows no wlan-configd; start wlan-configd: it is not running")

    def test_the_way_there(self):
        alone = ("unshare", "--net", "sh", "-c", 'ip link set lo up; exec "$@"', "sh")
        silent = (*alone, sys.executable, "-c", "import socket, subprocess, sys; port = socket.socket(2, 2); port.bind(('', 111));"
                  "sys.exit(subprocess.run(sys.argv[1:]).returncode)")
        self.expect(self.look("--host", "no.invalid"), "host", "broken", r"cannot find the host 'no.invalid': .*; check the name")
        self.expect(self.look(before=alone), "portmapper", "broken", r"portmapper of 127.0.0.1 at port 111: .*; start rpcbind there")
        self.expect(self.look("--timeout", "0.2", before=silent), "portmapper", "broken",
                    r"no reply from the portmapper of 127.0.0.1 in time \(0.2 s\); see whether it is up and no firewall")


# The words of the line, of which the last is begun; the first and the last candidate, or those that are all.
LINES = [
    ("", ["list", ..., "batch"]), ("re", ["restart", "restore-defaults"]), ("comp", []), ("--no", ["--no-header"]),
    ("get ss", ["ssid", "ssid_advertisement_enabled"]), ("get wlan_get_ssid_adv", ["wlan_get_ssid_advertisement_enabled"]),
    ("set --re", ["--restart"]), ("set ssid zv0", ["zv00", ..., "zv07"]), ("restart ", ["zvi00", ..., "all"]),
    ("up ", ["dual", "24", "5"]), ("--json --host 127.0.0.1 --timeout 3 get ssid zvi07", ["zvi07"]), ("--timeout ", []),
    ("--host = no.invalid scan zv07", []), ("--port 9 scan zv", []), ("set basic_encryption_modes 1 WEP", ["WEPEncryption"]),
    ("set ssid 1 -- --", []), ("nonsense zv", []), ("watch --interval ", []), ("watch --interval 5 sta", ["status", "stations", "stats"]),
    ("watch status ", []), ("watch --interval = 5 scan zv07", ["zv07"]),
]


class Completion(unittest.TestCase):
    def test_lines(self):
        make_afresh()
        daemon = start_daemon("127.0.0.1")
        self.addCleanup(daemon.wait)
        self.addCleanup(daemon.kill)
        bash = f'. {TOP}/client/completion/wlanctl.bash; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _wlanctl "$1"; printf "%s\\n" "${{COMPREPLY[@]}}"'
        zsh = (f'_describe() {{ print -l -- ${{(P)2}} }}; _files() {{ }}; words=("$@"); CURRENT=$#; PREFIX=$words[-1];'
               f'. {TOP}/client/completion/_wlanctl')
        shells = {"bash": ("bash", "--norc", "-c", bash, "bash")}
        if shutil.which("zsh"):
            shells["zsh"] = ("zsh", "-f", "-c", zsh, "zsh")
        for shell in shells:
            for line, expected in LINES:
                words = line.split(" ")
                found = [each.partition(":")[0] for each in run(*shells[shell], WLANCTL, *words).stdout.split("\n") if each]
                if ... in expected:
                    self.assertGreater(len(found), 7, line)
                    found = [found[0], ..., found[-1]]
                self.assertEqual(found, expected, (shell, line))


# The commands whose JSON is held against which part of the schema; each subcommand is among them.
PRINTED = {
    "answer": ["up", "call get_number_of_entries", "get ssid 1", "get key_passphrase 1 1", "set ssid 1 x", "scan 1", "stations 9",
               "get radio_tx_packets 1", "restart zv00", "restore-defaults 1", "wps-oob 1", "down"],
    "call": ["set key_passphrase 1 1 secretsecret --dry-run", "set ssid 1 '\udcff' --dry-run"], None: ["import /tmp/other.toml --dry-run", "batch /tmp/lines --keep-going"], "records": ["stats 1"], "procedures": ["list", "describe country"],
    "description": ["describe ssid", "describe get_ap_scan_result", "describe set_wps_oob"], "doctor": ["doctor"],
    "status": ["status"], "export": ["export"], "diff": ["diff /tmp/all.toml", "diff /tmp/other.toml"], "import": ["import /tmp/all.toml", "import /tmp/other.toml"],
    "error": ["get ssid 77", "get ssid 77 --force", "nonsense", "--host no.invalid get ssid 1", "set ssid 1 ''"],
}


@unittest.skipUnless(Validator, "no jsonschema")
class Schema(unittest.TestCase):
    def test_everything_printed_fits_it(self):
        Validator.check_schema(SCHEMA)
        make_afresh()
        daemon = start_daemon("127.0.0.1")
        self.addCleanup(daemon.wait)
        self.addCleanup(daemon.kill)
        Path("/tmp/all.toml").write_text(wlanctl("export").stdout)
        Path("/tmp/other.toml").write_text('[bss.zvi01]\nssid = { hex = "ff00aa" }\nnone = 1\n[bss.zvi02]\nwep_key = { 1 = "x" }\n')
        Path("/tmp/lines").write_text("get ssid 1\nget ssid 77\nset ssid 1 x --dry-run\nstatus\nlist ssid\n")
        commands = [(part, command) for part, commands in PRINTED.items() for command in commands]
        commands.sort(key=lambda each: each[1].split()[0] == "down")  # at the end
        for part, command in commands:
            lines = wlanctl("--json", *shlex.split(command), stdin=0).stdout.splitlines()
            self.assertTrue(lines, command)
            for line in lines:
                with self.subTest(command):
                    json_of(line, part)
        shown = wlanctl("--help").stdout.partition("Subcommands:\n")[2].partition("\n\n")[0]
        elsewhere = {"watch", "metrics"}  # the lines of a watch are read where it is tested; metrics have a format of their own
        self.assertEqual({line.split()[0] for line in shown.split("\n")} - {command.split()[0] for _, command in commands}, elsewhere)


if __name__ == "__main__":
    unittest.main(verbosity=1)
