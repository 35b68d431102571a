#!/usr/bin/env python3
"""A long random-input run of the real game, through every mode it can reach.

Generates a script of weighted random episodes (command-window clicks, flight
with Navigator, Maneuver, the star chart, the cargo and configuration windows
opened and closed with their " X " buttons, landing, sensors, history windows,
hot keys), plays it with `--unthrottled --script` and reads the `STATE` lines as
they come. After every state line it checks the holds' invariant (free =
capacity - sum, nothing negative, nothing non-finite, the line itself valid
JSON) and samples the process's resident memory. At the end it reports every
mode, window and menu reached, the memory early and late, and exits with
status 1 when the game failed, an invariant broke or memory grew.

    tools/soak.py --binary build/prospector --data build/data [--frames 200000] [--seed 1]
"""

import argparse
import atexit
import json
import math
import os
import random
import shutil
import subprocess
import sys
import tempfile
import threading
import time
from collections import Counter

# The command window's rows start at y 260 and are 30 pixels apart; a click
# aims at the middle of a row (as the end-to-end tests do).
COMMAND_X = 600


def row_y(row):
    return 260 + 30 * row + 10


# The " X " close buttons: the star chart's inside its window at (85, 5), the
# cargo and configuration windows' at the top right of the screen.
CHART_CLOSE = (130, 30)
FULL_WINDOW_CLOSE = (775, 20)

# The menus of the command window, for the report (the game's menu numbers).
MENU_NAMES = {
    0: "Bridge", 1: "Captain (orbit)", 2: "Captain (surface)", 3: "Science", 4: "Navigator",
    5: "Tactical", 6: "Tactical, shields up", 7: "Tactical, weapons armed",
    8: "Tactical, shields up and armed", 9: "Engineering", 10: "Communication", 11: "Landing",
}
MODE_NAMES = {0: "Space", 1: "System", 2: "Orbit", 3: "Surface"}
# Flags of the state line whose being set at least once the soak reports.
FLAGS = ["maneuverOn", "scanRunning", "descentRunning", "launchRunning", "siteClicked", "showShipStatus",
         "cargoOpen", "navigationOpen", "configOpen", "upHeld", "leftHeld", "rightHeld", "showFrameRate"]


class Script:
    """Commands at absolute frames, written in frame order."""

    def __init__(self, rng):
        self.rng = rng
        self.frame = 1
        self.lines = []
        self.held = set()
        # The menu the script believes is shown: a release performs the item
        # under the pointer, so clicks move through the menus predictably. The
        # belief can drift (entering orbit, the tactical variants); the
        # episodes that need a menu walk back to the Bridge from it first.
        self.menu = 0
        self.maneuver = False

    def at(self, offset, command):
        self.lines.append(f"at {self.frame + offset} {command}")

    def wait(self, frames):
        self.frame += frames

    def click(self, x, y):
        self.at(0, f"mouse move {x} {y}")
        self.at(2, "mouse down")
        self.at(4, "mouse up")
        self.wait(6)

    def row(self, row):
        # The current item follows the pointer only when it changes rows, so
        # the pointer leaves the rows first: a second click on the same row
        # after a menu switch then hits that row, not the new menu's first item.
        self.at(0, f"mouse move {COMMAND_X} 250")
        self.wait(1)
        self.click(COMMAND_X, row_y(row))
        if self.menu == 4 and self.maneuver:
            # While Maneuver stays selected the pointer does not move the
            # current item: the click deselects Maneuver and switches it off.
            self.maneuver = False
            return
        if (self.menu, row) == (4, 0):
            self.maneuver = True
        self.menu = MENU_AFTER.get((self.menu, row), self.menu)

    def tap(self, key, modifiers=""):
        self.at(0, f"key down {key} {modifiers}".rstrip())
        self.at(1, f"key up {key}")
        self.wait(3)

    def hold(self, key, frames):
        self.at(0, f"key down {key}")
        self.at(frames, f"key up {key}")


# (menu, row clicked) -> the menu shown after the release; the rows that
# switch menus. Captain leads to the orbit menu (the surface one has the same
# Bridge row), Tactical to its first variant.
MENU_AFTER = {(0, 0): 1, (0, 1): 3, (0, 2): 4, (0, 3): 5, (0, 4): 9, (0, 5): 10, (1, 0): 11, (1, 4): 0, (2, 4): 0,
              (3, 4): 0, (4, 3): 0, (5, 3): 0, (6, 3): 0, (7, 3): 0, (8, 3): 0, (9, 3): 0, (10, 2): 0, (11, 2): 1}
BRIDGE_ROW = {1: 4, 2: 4, 3: 4, 4: 3, 5: 3, 6: 3, 7: 3, 8: 3, 9: 3, 10: 2, 11: 2}
# Rows that open an overlay window; a random walk leaves them to the episodes
# that also close the window.
WINDOW_ROWS = {(4, 1), (9, 2), (1, 2), (2, 2)}


# Episodes: each appends its commands and advances the frame.
def to_bridge(s):
    for _ in range(4):
        if s.menu == 0:
            return
        s.row(BRIDGE_ROW.get(s.menu, 4))
    s.menu = 0  # give up on the belief; the next walk corrects it


def menu_walk(s):
    for _ in range(s.rng.randint(1, 4)):
        row = s.rng.choices(range(6), weights=[5, 5, 5, 5, 5, 1])[0]
        if (s.menu, row) not in WINDOW_ROWS:
            s.row(row)


def fly(s):
    close_windows(s)
    to_bridge(s)
    s.row(2)  # Navigator
    if not s.maneuver or s.rng.random() < 0.1:
        s.row(0)  # Maneuver
    length = s.rng.randint(100, 900)
    s.at(0, "key down up")
    t = 5
    while t < length:
        turn = s.rng.choice(["left", "right", None, None])
        span = s.rng.randint(1, 30)
        if turn and t + span < length:
            s.at(t, f"key down {turn}")
            s.at(t + span, f"key up {turn}")
        t += span + s.rng.randint(10, 120)
    s.at(length, "key up up")
    s.wait(length + 1 + s.rng.randint(0, 60))


def star_chart(s):
    to_bridge(s)
    s.row(2)  # Navigator
    s.row(1)  # Starmap
    for _ in range(s.rng.randint(0, 6)):
        s.tap(s.rng.choice(["up", "down", "left", "right"]))
    if s.rng.random() < 0.6:
        s.click(s.rng.randint(90, 700), s.rng.randint(10, 590))
    s.wait(s.rng.randint(5, 60))
    if s.rng.random() < 0.7:
        s.click(*CHART_CLOSE)
    else:
        s.row(1)  # Starmap again closes it too


def configuration(s):
    if s.rng.random() < 0.5:
        s.tap("e")
    else:
        to_bridge(s)
        s.row(4)  # Engineering
        s.row(2)  # Configuration
    for _ in range(s.rng.randint(0, 5)):
        s.click(s.rng.randint(0, 799), s.rng.randint(0, 599))
    s.wait(s.rng.randint(5, 60))
    # Closed with E, which works whatever the clicks inside did; its " X " is
    # the cargo window's button, which the cargo episode presses.
    s.tap("e")


def cargo(s):
    to_bridge(s)
    s.row(0)  # Captain
    s.row(2)  # Cargo
    for _ in range(s.rng.randint(0, 8)):
        s.click(s.rng.randint(0, 799), s.rng.randint(0, 599))
    s.wait(s.rng.randint(5, 60))
    s.click(*FULL_WINDOW_CLOSE)


def close_windows(s):
    # The cargo and configuration windows share the " X " at the top right; a
    # click there with neither open lands on the planet readings and does nothing.
    s.click(*FULL_WINDOW_CLOSE)


def planet_work(s):
    """Sensors, analysis, site selection, descent, a drive and the launch."""
    close_windows(s)
    to_bridge(s)
    choice = s.rng.random()
    if choice < 0.3:
        s.row(1)  # Science
        s.row(s.rng.choice([0, 0, 1, 3]))  # Sensors, Analysis, Status
        s.wait(s.rng.randint(20, 300))
        return
    s.row(0)  # Captain
    s.row(0)  # Land (orbit) or Launch (surface)
    s.row(0)  # Select Site
    s.click(s.rng.randint(5, 505), s.rng.randint(5, 505))
    # Select Site holds the command window while it is chosen: click it off first.
    s.row(0)
    s.row(1)  # Descent
    s.wait(s.rng.randint(50, 90))
    # On the surface: the rover drives with Maneuver's arrows, then launches.
    s.hold("up", s.rng.randint(20, 200))
    s.at(s.rng.randint(0, 100), "key down left")
    s.at(110, "key up left")
    s.wait(220)
    to_bridge(s)
    s.row(0)  # Captain
    s.row(0)  # Launch
    s.wait(s.rng.randint(55, 120))


def history_keys(s):
    key = s.rng.choice(["d", "z", "r"])
    s.tap(key, "ctrl")
    for _ in range(s.rng.randint(0, 10)):
        s.tap(s.rng.choice(["up", "down"]))
    s.tap(key, "ctrl")


def engine_keys(s):
    # Lower and raise the engine class by the same amount, so flight keeps working.
    n = s.rng.randint(1, 3)
    first, second = s.rng.sample(["o", "p"], 2)
    for _ in range(n):
        s.tap(first)
    s.wait(s.rng.randint(0, 30))
    for _ in range(n):
        s.tap(second)


def full_screen(s):
    s.tap("f", "ctrl")
    s.wait(s.rng.randint(5, 40))
    s.tap("f", "ctrl")


def random_mouse(s):
    for _ in range(s.rng.randint(1, 6)):
        x, y = s.rng.randint(0, 799), s.rng.randint(0, 599)
        s.at(0, f"mouse move {x} {y}")
        if s.rng.random() < 0.5:
            s.at(1, "mouse down")
            s.at(2, "mouse up")
        s.wait(3)


def idle(s):
    s.wait(s.rng.randint(5, 200))


EPISODES = [(fly, 30), (menu_walk, 15), (star_chart, 8), (configuration, 6), (cargo, 6), (planet_work, 12),
            (history_keys, 4), (engine_keys, 2), (full_screen, 1), (random_mouse, 8), (idle, 8)]




def make_script(frames, seed, state_every):
    rng = random.Random(seed)
    s = Script(rng)
    while s.frame < frames - 1000:
        rng.choices([e for e, _ in EPISODES], [w for _, w in EPISODES])[0](s)
    lines = [line for line in s.lines if int(line.split()[1]) < frames]
    lines += [f"at {f} state" for f in range(0, frames + 1, state_every)]
    lines.sort(key=lambda line: int(line.split()[1]))  # stable: keeps each frame's order
    return "\n".join(lines) + "\n"


def memory_kb(pid):
    """VmRSS and VmHWM of a process in kB, or None when it is gone."""
    try:
        with open(f"/proc/{pid}/status") as f:
            values = {}
            for line in f:
                key, _, rest = line.partition(":")
                if key in ("VmRSS", "VmHWM"):
                    values[key] = int(rest.split()[0])
            return values.get("VmRSS"), values.get("VmHWM")
    except (OSError, ValueError):
        return None


def reject_constant(name):
    raise ValueError(f"non-finite number {name}")


class Checker:
    def __init__(self):
        self.states = 0
        self.failures = []
        self.modes = Counter()
        self.flags = Counter()
        self.menus = Counter()
        self.systems = set()
        self.planets = set()

    def fail(self, frame, what):
        if len(self.failures) < 20:
            self.failures.append(f"state {self.states} (frame ~{frame}): {what}")

    def check_hold(self, frame, name, hold, capacity, free):
        if capacity is None or free is None or any(a is None for a in hold):
            self.fail(frame, f"{name}: a non-finite amount reached the state (null)")
            return
        if any(a < -0.005 for a in hold) or free < -0.01:
            self.fail(frame, f"{name}: negative amount or free space {hold} free {free}")
        total = sum(hold)
        # The state prints hold amounts with two decimals: allow their rounding.
        if abs(capacity - total - free) > 0.01 + 0.005 * len(hold) + capacity * 1e-5:
            self.fail(frame, f"{name}: free {free} is not capacity {capacity} - sum {total:.4f}")

    def check(self, frame, text):
        self.states += 1
        try:
            state = json.loads(text, parse_constant=reject_constant)
        except ValueError as e:
            self.fail(frame, f"state line is not JSON: {e}: {text[:200]}")
            return
        self.modes[MODE_NAMES.get(state.get("mode"), str(state.get("mode")))] += 1
        for flag in FLAGS:
            if state.get(flag):
                self.flags[flag] += 1
        self.menus[MENU_NAMES.get(state.get("currentMenu"), str(state.get("currentMenu")))] += 1
        obj = state.get("currentObject")
        if obj and state.get("mode") in (1, 2, 3):
            self.systems.add((obj["x"], obj["y"]))
            if state.get("mode") in (2, 3):
                self.planets.add((obj["x"], obj["y"], state.get("currentPlanet")))
        ship = state.get("ship", {})
        self.check_hold(frame, "ship's hold", ship.get("shipHold", []), ship.get("shipHoldCapacity"),
                        ship.get("shipHoldFree"))
        self.check_hold(frame, "rover's hold", ship.get("roverHold", []), 50.0, ship.get("roverHoldFree"))
        for name in ("velX", "velY"):
            if not isinstance(state.get(name), (int, float)) or not math.isfinite(state[name]):
                self.fail(frame, f"{name} is {state.get(name)}")


def home_planet_lanes(starmap, x, y):
    """The lanes of the planets of the object at (x, y), richest first."""
    lines = [line.rstrip("\n") for line in open(starmap, errors="replace") if not line.startswith("#")]
    i = 0
    while i + 5 <= len(lines):
        ox, oy, count = int(lines[i] or 0), int(lines[i + 1] or 0), max(0, int(lines[i + 4] or 0))
        i += 5
        planets = [(int(lines[i + 17 * p + 7] or 0), int(lines[i + 17 * p] or 0)) for p in range(count)]
        i += 17 * count
        if (ox, oy) == (x, y):
            return [lane for _, lane in sorted(planets, reverse=True)]
    return []


def data_in_orbit(data, workdir):
    """A copy of the data directory whose saved game starts in orbit around the
    richest planet of the home system, so the planet work begins at once; the
    run leaves orbit and explores from there."""
    lanes = home_planet_lanes(os.path.join(data, "Starmap.txt"), 100, 100)
    if not lanes:
        return data
    copy = os.path.join(workdir, "data")
    shutil.copytree(data, copy)
    values = {3: "100", 4: "100", 5: "140", 6: "122", 7: str(lanes[0]), 8: "2"}
    out, k = [], 0
    with open(os.path.join(data, "NewGame.sav")) as f:
        for line in f:
            if not line.startswith("#"):
                k += 1
                line = values.get(k, line.rstrip("\n")) + "\n" if k in values else line
            out.append(line)
    with open(os.path.join(copy, "NewGame.sav"), "w") as f:
        f.writelines(out)
    return copy


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--binary", default="build/prospector")
    parser.add_argument("--data", default="build/data")
    parser.add_argument("--frames", type=int, default=200000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--state-every", type=int, default=10, help="frames between state lines")
    parser.add_argument("--max-growth-mb", type=float, default=16.0,
                        help="resident memory the run may gain between the early and the late sample")
    parser.add_argument("--keep-script", help="also write the generated script to this file")
    parser.add_argument("--start", choices=["new", "orbit"], default="orbit",
                        help="start from the shipped new game or in orbit at the home system")
    args = parser.parse_args()

    binary = os.path.abspath(args.binary)
    workdir = tempfile.mkdtemp(prefix="prospector-soak-")
    atexit.register(shutil.rmtree, workdir, ignore_errors=True)
    data = os.path.abspath(args.data)
    if args.start == "orbit":
        data = data_in_orbit(data, workdir)
    script = make_script(args.frames, args.seed, args.state_every)
    script_path = os.path.abspath(args.keep_script or f"/tmp/prospector-soak-{os.getpid()}.txt")
    with open(script_path, "w") as f:
        f.write(script)
    print(f"soak: {args.frames} frames, seed {args.seed}, {script.count(chr(10))} script lines", flush=True)

    env = dict(os.environ, SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
    command = [binary, "--data", data, "--unthrottled", "--seed", str(args.seed), "--frames", str(args.frames),
               "--script", script_path]
    started = time.monotonic()
    game = subprocess.Popen(command, cwd=data, env=env, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                            bufsize=1)
    errors = []
    reader = threading.Thread(target=lambda: errors.extend(game.stderr.readlines()), daemon=True)
    reader.start()

    checker = Checker()
    early = late = None
    early_frame = max(1000, args.frames // 20)
    frame = 0
    for line in game.stdout:
        if not line.startswith("STATE "):
            continue
        frame = checker.states * args.state_every
        checker.check(frame, line[6:])
        sample = memory_kb(game.pid)
        if sample and sample[0]:
            if early is None and frame >= early_frame:
                early = (frame, *sample)
            late = (frame, *sample)
        if checker.states % 2000 == 0:
            rss = f", VmRSS {sample[0] / 1024:.1f} MB" if sample and sample[0] else ""
            print(f"soak: frame {frame}{rss}", flush=True)
    status = game.wait()
    reader.join(timeout=5)
    if args.keep_script is None:
        os.unlink(script_path)
    elapsed = time.monotonic() - started

    print(f"\nsoak: {checker.states} states in {elapsed:.0f} s, game exit status {status}")
    print("modes reached:   " + ", ".join(f"{m} ({n})" for m, n in sorted(checker.modes.items())))
    for mode in MODE_NAMES.values():
        if mode not in checker.modes:
            print(f"  not reached:   {mode}")
    print("flags set:       " + ", ".join(f"{f} ({checker.flags[f]})" for f in FLAGS if checker.flags[f]))
    unset = [f for f in FLAGS if not checker.flags[f]]
    if unset:
        print("  never set:     " + ", ".join(unset))
    print("menus shown:     " + ", ".join(f"{m} ({n})" for m, n in sorted(checker.menus.items())))
    print(f"systems entered: {len(checker.systems)}; planets orbited or landed on: {len(checker.planets)}")
    ok = True
    if early and late:
        growth = (late[1] - early[1]) / 1024
        print(f"memory: frame {early[0]}: VmRSS {early[1] / 1024:.1f} MB, VmHWM {early[2] / 1024:.1f} MB; "
              f"frame {late[0]}: VmRSS {late[1] / 1024:.1f} MB, VmHWM {late[2] / 1024:.1f} MB "
              f"(growth {growth:+.1f} MB)")
        if growth > args.max_growth_mb:
            print(f"soak: FAILED: resident memory grew by {growth:.1f} MB (limit {args.max_growth_mb} MB)")
            ok = False
    else:
        print("memory: not sampled (the run ended too early)")
    expected_states = args.frames // args.state_every + 1
    if status != 0 or checker.states != expected_states:
        print(f"soak: FAILED: exit status {status}, {checker.states} of {expected_states} state lines")
        print("".join(errors[-20:]))
        ok = False
    if checker.failures:
        print("soak: FAILED: invariants broken:")
        for failure in checker.failures:
            print("  " + failure)
        ok = False
    print("soak: passed" if ok else "soak: failed")
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main())
