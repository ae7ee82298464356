"""The real programs on the simulated gateway, for tests in Python that are called with the build directory."""

import json
import shutil
import subprocess
import sys
import time
import unittest
from pathlib import Path

try:
    from jsonschema import Draft202012Validator as Validator
except ImportError:
    Validator = None

TOP = Path(__file__).resolve().parents[2]
SCHEMA = json.loads((TOP / "client" / "wlanctl.schema.json").read_text())
BUILD = Path(sys.argv.pop(1)).resolve()
BIN = BUILD / "bin"
WLANCTL = BIN / "wlanctl"
GATEWAY = Path("/tmp/gateway")
FRESH = Path("/tmp/fresh_gateway")
LOCK = Path("/tmp/nvram_set_lock")


def run(*command, **options):
    return subprocess.run([str(each) for each in command], capture_output=True, text=True, timeout=60, **options)


def wlanctl(*words, **options):
    return run(WLANCTL, *words, **options)


def json_of(line, part=None):
    """The object of the line; where there is a validator, it fits the schema, and the part of it."""
    told = json.loads(line)
    for wanted in [SCHEMA, {"$ref": f"#/$defs/{part}", "$defs": SCHEMA["$defs"]}][:2 if part else 1]:
        if Validator:
            Validator(wanted).validate(told)
    return told


def make_afresh():
    """As the simulation's script made it: by copies, since its processes take longer than a test."""
    if not FRESH.exists():
        for place in FRESH, GATEWAY:
            subprocess.run([TOP / "sim" / "setup", place], check=True)
    for made in FRESH.iterdir():
        place = GATEWAY / made.name
        if made.is_dir():
            shutil.rmtree(place, ignore_errors=True)  # a test may have taken it away
            shutil.copytree(made, place)
        elif made.name != "env":  # it names its own directory
            shutil.copy(made, place)
    shutil.copy(TOP / "sim" / "factory" / "ZAV750vlan.dat", "/tmp/ZAV750vlan.dat")


def start_daemon(*arguments, program=BIN / "wlan-configd", **environment):
    """Runs it until the caller ends it. Of the environment, None leaves a variable out."""
    given = run("sh", "-c", f". {GATEWAY}/env && env").stdout.split("\n")
    environment = dict(line.split("=", 1) for line in given if "=" in line) | environment
    environment["LD_PRELOAD"] = str(BUILD / "lib" / "libzav_sim.so")
    daemon = subprocess.Popen([program, *arguments], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              env={name: value for name, value in environment.items() if value is not None})
    for _ in range(100):
        if wlanctl("get", "number_of_entries").returncode == 0:
            return daemon
        time.sleep(0.05)
    daemon.kill()
    daemon.wait()
    raise RuntimeError("the daemon does not answer")


class OnTheGateway(unittest.TestCase):
    """A daemon for all of its tests."""

    @classmethod
    def setUpClass(cls):
        make_afresh()
        cls.daemon = start_daemon("127.0.0.1")

    @classmethod
    def tearDownClass(cls):
        cls.daemon.kill()
        cls.daemon.wait()
