#!/usr/bin/env python3
"""A long run of the real game, steered by what the game shows.

Starts the game with `--script -`, reads every `STATE` line it prints and
answers with the next input: it flies to stars, enters their systems, flies
onto planets, sweeps them, picks a landing site near a deposit the sweep
showed, descends, drives the rover onto deposits, launches, works the cargo
window (throwing cargo out when the holds fill) and the configuration window
and the star chart, leaves and goes on. A share of the input stays random
(clicks anywhere, hot keys, menu rows) so that odd sequences still happen.

After every state it checks the holds' invariant (free = capacity - sum,
nothing negative or non-finite, the line itself valid JSON) and samples the
resident memory. The last line is the summary; the exit status is 1 when the
game failed, printed a sanitizer report, broke an invariant, grew in memory or
the run fell short of what it must reach (see REQUIRED).

    tools/soak.py --binary build/prospector --data build/data [--frames 200000] [--seed 1]
"""

import argparse
import json
import math
import os
import random
import re
import subprocess
import sys
import threading
import time

SPACE, SYSTEM, ORBIT, SURFACE = 0, 1, 2, 3
# Menus and their rows (the command window's numbering).
BRIDGE, ORBIT_MENU, SURFACE_MENU, SCIENCE, NAVIGATOR, TACTICAL = 0, 1, 2, 3, 4, 5
ENGINEERING, COMMUNICATION, LANDING = 9, 10, 11
STATION = {ORBIT_MENU: 0, SURFACE_MENU: 0, SCIENCE: 1, NAVIGATOR: 2, TACTICAL: 3, 6: 3, 7: 3, 8: 3,
           ENGINEERING: 4, COMMUNICATION: 5, LANDING: 0}
BRIDGE_ROW = {1: 4, 2: 4, 3: 4, 4: 3, 5: 3, 6: 3, 7: 3, 8: 3, 9: 3, 10: 2, 11: 2}
MENU_ROWS = {0: 6, 1: 5, 2: 5, 3: 5, 4: 4, 5: 4, 6: 4, 7: 4, 8: 4, 9: 4, 10: 3, 11: 3}
SENSORS, ANALYSIS, STATUS = 0, 1, 3
MANEUVER, STARMAP = 0, 1
LAND, LAUNCH, CARGO = 0, 0, 2
SELECT_SITE, DESCENT = 0, 1
CONFIGURATION = 2

# The command window: rows 30 pixels apart from y 260, each 20 high. The pointer
# first rests between two rows (no item), so that reaching the row is a change
# of row, the only thing that moves the current item.
PANE_X, BETWEEN_ROWS_Y = 600, 285
# The surface map's cell (0, 0) on the screen; the cargo window's pieces.
MAP_LEFT, MAP_TOP = 25, 20
CARGO_FIRST_ROW, CARGO_ROW_HEIGHT = 80, 20
SHIP_UP_ARROW_X, ROVER_UP_ARROW_X = 127, 327
SHIP_JETTISON, ROVER_JETTISON, FULL_WINDOW_CLOSE, CHART_CLOSE = (190, 550), (390, 550), (775, 20), (130, 30)

# What a run of REFERENCE_FRAMES must reach; shorter or longer runs need as
# much in proportion. Memory may not grow at all beyond its allowance.
REFERENCE_FRAMES = 200000
REQUIRED = {"planets": 40, "landings": 20, "orbit_share": 0.25, "rss_growth_mb": 2.0}
SANITIZER = re.compile(r"ERROR: (Address|Leak|Memory|Thread)Sanitizer|runtime error:|SUMMARY: \w+Sanitizer")


def row_click(row):
    return [f"mouse move {PANE_X} {BETWEEN_ROWS_Y}", f"mouse move {PANE_X} {260 + 30 * row + 10}", "mouse down",
            "mouse up"]


def click(x, y):
    return [f"mouse move {x} {y}", "mouse down", "mouse up"]


def heading_to(dx, dy, flip_y):
    """The heading (degrees) that moves by (dx, dy): the ship moves by
    (-sin h, cos h), the rover by (-sin h, -cos h)."""
    return math.degrees(math.atan2(-dx, -dy if flip_y else dy)) % 360


def read_stars(path):
    """(column, row) of every object of a star map file."""
    lines = [line.rstrip("\n") for line in open(path, errors="replace") if not line.startswith("#")]
    stars, i = [], 0
    try:
        while i + 5 <= len(lines):
            x, y, count = int(lines[i] or 0), int(lines[i + 1] or 0), max(0, int(lines[i + 4] or 0))
            stars.append((x, y))
            i += 5 + 17 * count
    except ValueError:
        pass
    return stars


class Pilot:
    """Turns each state into the next input: a task (a generator that yields
    (commands, frames to wait) and receives the next state) per goal."""

    def __init__(self, rng, stars, random_share):
        self.rng = rng
        self.stars = stars
        self.random_share = random_share
        self.task = None
        self.task_mode = None
        self.in_window = False
        self.mode_seen, self.mode_since, self.stalls = None, 0, 0
        self.visited_systems = set()
        self.orbited = set()

    def step(self, st):
        if st["mode"] != self.mode_seen:
            self.mode_seen, self.mode_since = st["mode"], st["frame"]
        if st["frame"] - self.mode_since > 8000:
            # Nothing has moved on for long: start the goal afresh after a
            # burst of random input, whatever held it up.
            self.mode_since = st["frame"]
            self.task = None
            self.stalls += 1
            print(f"soak: no progress in mode {st['mode']} by frame {st['frame']} (menu {st['currentMenu']}, item "
                  f"{st['currentItem']}, selected {st['itemSelected']}, maneuver {st['maneuverOn']}, scan "
                  f"{st['scanRunning']}, descent {st['descentRunning']}, launch {st['launchRunning']}, windows "
                  f"{st['cargoOpen']}{st['configOpen']}{st['navigationOpen']}{st['showShipStatus']}); shaking it",
                  flush=True)
            self.in_window = False
            shake = sum((self.random_input(st)[0] for _ in range(6)), [])
            shake += ["key up up", "key up left", "key up right", "key up down"] + click(*CHART_CLOSE)
            shake += (["key down e", "key up e"] if st["configOpen"] else []) + click(*FULL_WINDOW_CLOSE)
            return shake + row_click(0), 10
        if self.rng.random() < self.random_share:
            return self.random_input(st)
        cleanup = self.close_stray_windows(st)
        if cleanup:
            return cleanup
        if self.task is None or self.task_mode != st["mode"]:
            self.task_mode = st["mode"]
            self.in_window = False
            self.task = {SPACE: self.fly_to_star, SYSTEM: self.fly_in_system, ORBIT: self.work_planet,
                         SURFACE: self.drive_and_launch}[st["mode"]](st)
            try:
                return next(self.task)
            except StopIteration:
                self.task = None
                return [], 5
        try:
            return self.task.send(st)
        except StopIteration:
            self.task = None
            return [], 3

    # --- helpers -----------------------------------------------------------

    def close_stray_windows(self, st):
        if self.in_window:
            return None
        if st["cargoOpen"]:
            return click(*FULL_WINDOW_CLOSE), 4
        if st["configOpen"]:
            return ["key down e", "key up e"], 3
        if st["navigationOpen"]:
            return click(*CHART_CLOSE), 4
        if st["showShipStatus"] and st["currentMenu"] == SCIENCE and not st["itemSelected"]:
            return row_click(STATUS), 5
        if st["ship"]["engineClass"] < 10:
            return ["key down p", "key up p"], 3
        return None

    def choose(self, st, menu, item):
        """Clicks through the menus until (menu, item) has been clicked; returns the state after."""
        for _ in range(10):
            if st["maneuverOn"] and (menu, item) != (NAVIGATOR, MANEUVER):
                # The pointer cannot move the item while Maneuver is on: a click
                # in the pane takes Maneuver's selection back and switches it off.
                st = yield row_click(0), 5
                continue
            current = st["currentMenu"]
            if current == menu:
                st = yield row_click(item), 6
                return st
            if current == BRIDGE:
                st = yield row_click(STATION[menu]), 6
            elif menu == LANDING and current == ORBIT_MENU:
                st = yield row_click(LAND), 6
            else:
                st = yield row_click(BRIDGE_ROW.get(current, 0)), 6
        return st

    def maneuver_on(self, st):
        if not st["maneuverOn"]:
            st = yield from self.choose(st, NAVIGATOR, MANEUVER)
        return st

    def steer(self, st, heading, up):
        """Key events that turn toward `heading` and hold Up or not."""
        commands = []
        diff = (heading - st["heading"] + 540) % 360 - 180
        turns = int(round(abs(diff) / 5))
        if st["leftHeld"]:
            commands.append("key up left")
        if st["rightHeld"]:
            commands.append("key up right")
        if turns:
            key = "left" if diff > 0 else "right"
            commands += [f"key down {key}"] + ["-"] * (turns - 1) + [f"key up {key}"]
        if up and not st["upHeld"]:
            commands.insert(0, "key down up")
        elif not up and st["upHeld"]:
            commands.insert(0, "key up up")
        return commands

    def fly_to(self, st, target, done, cell_size, top_speed, step, timeout, flip_y=False, near=0):
        """Steers until done(st) or the timeout; target in position units."""
        start = st["frame"]
        while not done(st) and st["frame"] - start < timeout:
            if not st["maneuverOn"]:
                st = yield from self.maneuver_on(st)  # random input switched it off
                continue
            x, y = (st["rover"][0], st["rover"][1]) if flip_y else (
                (st["posX"], st["posY"]) if st["mode"] == SPACE else (st["sysX"], st["sysY"]))
            dx, dy = target[0] - x, target[1] - y
            distance = math.hypot(dx, dy)
            want = heading_to(dx, dy, flip_y)
            off = abs((want - st["heading"] + 540) % 360 - 180)
            speed = st["speed"]
            stopping = speed * (speed / step + 1) / 2 + 3 * speed
            up = off < 30 and (distance > stopping + near or speed == 0) and speed < top_speed + 1
            commands = self.steer(st, want, up)
            st = yield commands, max(2, len(commands) + 1)
        if st["upHeld"] or st["leftHeld"] or st["rightHeld"]:
            st = yield ["key up up", "key up left", "key up right"], 4
        return st

    # --- the goals, one per mode ------------------------------------------

    def fly_to_star(self, st):
        st = yield from self.maneuver_on(st)
        here = (st["sectorX"], st["sectorY"])
        choices = sorted((s for s in self.stars if s not in self.visited_systems and s != here),
                         key=lambda s: (s[0] - here[0]) ** 2 + (s[1] - here[1]) ** 2)[:3]
        if not choices:
            return
        target = self.rng.choice(choices)
        centre = (target[0] * 50 + 325, target[1] * 50 + 325)
        st = yield from self.fly_to(st, centre, lambda s: s["mode"] != SPACE, 50, 20, 2, 4000)
        if st["mode"] == SPACE:
            self.visited_systems.add(target)  # not reached: try another

    def fly_in_system(self, st):
        obj = st["currentObject"]
        if not obj:
            return
        self.visited_systems.add((obj["x"], obj["y"]))
        st = yield from self.maneuver_on(st)
        if self.rng.random() < 0.15:
            st = yield from self.star_chart(st)
            st = yield from self.maneuver_on(st)
        cells = [(lane, c) for lane, c in enumerate(obj.get("PlanetCells", [])) if c]
        fresh = [(lane, c) for lane, c in cells if (obj["x"], obj["y"], lane) not in self.orbited]
        me = (st["sysX"] / 50, st["sysY"] / 50)
        if fresh:
            lane, cell = min(fresh, key=lambda lc: math.hypot(lc[1][0] - me[0], lc[1][1] - me[1]))
            target = (cell[0] * 50 + 25, cell[1] * 50 + 25)
            st = yield from self.fly_to(st, target, lambda s: s["mode"] != SYSTEM, 50, 40, 5, 3000)
            if st["mode"] == SYSTEM:
                self.orbited.add((obj["x"], obj["y"], lane))  # not reached: leave it be
            return
        # Every planet seen: out by the nearest edge.
        edges = [(-150, st["sysY"]), (281 * 50 + 150, st["sysY"]), (st["sysX"], -150), (st["sysX"], 246 * 50 + 150)]
        target = min(edges, key=lambda e: math.hypot(e[0] - st["sysX"], e[1] - st["sysY"]))
        yield from self.fly_to(st, target, lambda s: s["mode"] != SYSTEM, 50, 40, 5, 3000)

    def work_planet(self, st):
        obj = st["currentObject"]
        key = (obj["x"], obj["y"], st["currentPlanet"]) if obj else None
        first_visit = key not in self.orbited
        self.orbited.add(key)
        if first_visit:
            if not st["scansTaken"]:
                st = yield from self.choose(st, SCIENCE, SENSORS)
                start = st["frame"]
                while (st["scanRunning"] or not st["scansTaken"]) and st["frame"] - start < 3000 and st["mode"] == ORBIT:
                    st = yield [], 20
            if self.rng.random() < 0.3:
                st = yield from self.choose(st, SCIENCE, ANALYSIS)
            if self.rng.random() < 0.1:
                st = yield from self.choose(st, SCIENCE, STATUS)
                st = yield [], self.rng.randint(10, 100)
                st = yield from self.choose(st, SCIENCE, STATUS)
            ship = st["ship"]
            if ship["shipHoldFree"] < 60 or ship["roverHoldFree"] < 25 or self.rng.random() < 0.2:
                st = yield from self.cargo(st)
            if self.rng.random() < 0.2:
                st = yield from self.configuration(st)
            if st["nearestDeposit"] and st["mode"] == ORBIT:
                st = yield from self.land(st)
                if st["mode"] == SURFACE:
                    return
        # Leave orbit: Maneuver takes the ship back into the system.
        st = yield from self.choose(st, NAVIGATOR, MANEUVER)
        yield [], 5

    def land(self, st):
        d = st["nearestDeposit"]
        site = (min(359, max(0, d[0] + self.rng.randint(-6, 6))), min(179, max(0, d[1] + self.rng.randint(-6, 6))))
        st = yield from self.choose(st, LANDING, SELECT_SITE)
        st = yield click(MAP_LEFT + site[0], MAP_TOP + site[1]), 4
        # Select Site holds the pane while chosen: a click there lets go of it.
        st = yield row_click(SELECT_SITE), 5
        st = yield from self.choose(st, LANDING, DESCENT)
        start = st["frame"]
        while st["mode"] == ORBIT and st["descentRunning"] and st["frame"] - start < 600:
            st = yield [], 10
        return st

    def drive_and_launch(self, st):
        start = st["frame"]
        st = yield from self.maneuver_on(st)
        wanted = self.rng.randint(1, 3)
        collected = 0
        while collected < wanted and st["nearestDeposit"] and st["frame"] - start < 2500:
            d = st["nearestDeposit"]
            before = sum(a or 0 for a in st["ship"]["roverHold"])
            target = (d[0] * 10 + 5, d[1] * 10 + 5)
            # The rover collects what lies in its cell: drive until it stands on the deposit.
            st = yield from self.fly_to(st, target, lambda s, d=d: s["site"] == d[:2] or s["mode"] != SURFACE,
                                        10, 4, 4, 800, flip_y=True)
            if sum(a or 0 for a in st["ship"]["roverHold"]) <= before:
                break  # the hold is full or the rover missed: go back up
            collected += 1
        if self.rng.random() < 0.3:
            st = yield from self.cargo(st)
        st = yield from self.choose(st, SURFACE_MENU, LAUNCH)
        start = st["frame"]
        while st["mode"] == SURFACE and st["frame"] - start < 600:
            st = yield [], 10

    # --- side trips: the windows -------------------------------------------

    def cargo(self, st):
        self.in_window = True  # before the click: the window must not be closed as a stray
        st = yield from self.choose(st, ORBIT_MENU if st["mode"] != SURFACE else SURFACE_MENU, CARGO)
        if not st["cargoOpen"]:
            self.in_window = False
            return st
        ship = st["ship"]
        for hold, capacity, arrow_x, button in (("shipHold", ship["shipHoldCapacity"], SHIP_UP_ARROW_X, SHIP_JETTISON),
                                                ("roverHold", 50.0, ROVER_UP_ARROW_X, ROVER_JETTISON)):
            amounts = [a or 0 for a in ship[hold]]
            full = sum(amounts) > capacity * 0.5
            if not full and self.rng.random() < 0.5:
                continue
            # Select the largest amounts until half the hold would be free
            # (a held arrow adds 1 CU a frame after a 15-frame pause), then
            # throw the selection out with one click.
            freed = 0.0
            for mineral in sorted(range(len(amounts)), key=lambda m: -amounts[m])[:8]:
                if amounts[mineral] <= 0 or (full and sum(amounts) - freed < capacity * 0.5):
                    break
                frames = min(100, int(amounts[mineral]) + 17) if full else self.rng.randint(1, 20)
                y = CARGO_FIRST_ROW + CARGO_ROW_HEIGHT * mineral
                st = yield [f"mouse move {arrow_x} {y}", "mouse down"], frames + 2
                st = yield ["mouse up"], 3
                freed += max(0, frames - 16)
                if not full:
                    break
            st = yield click(*button), 4
        for _ in range(self.rng.randint(0, 3)):
            st = yield click(self.rng.randint(0, 799), self.rng.randint(40, 599)), 4
        st = yield click(*FULL_WINDOW_CLOSE), 4
        self.in_window = False
        return st

    def configuration(self, st):
        self.in_window = True
        if self.rng.random() < 0.5:
            st = yield ["key down e", "key up e"], 4
        else:
            st = yield from self.choose(st, ENGINEERING, CONFIGURATION)
        for _ in range(self.rng.randint(1, 5)):
            st = yield click(self.rng.randint(0, 799), self.rng.randint(0, 599)), 4
        if st["configOpen"]:
            st = yield ["key down e", "key up e"], 4
        self.in_window = False
        return st

    def star_chart(self, st):
        self.in_window = True
        st = yield from self.choose(st, NAVIGATOR, STARMAP)
        for _ in range(self.rng.randint(0, 6)):
            key = self.rng.choice(["up", "down", "left", "right"])
            st = yield [f"key down {key}", f"key up {key}"], 3
        if self.rng.random() < 0.6:
            st = yield click(self.rng.randint(90, 700), self.rng.randint(40, 590)), 5
        if st["navigationOpen"]:
            st = yield click(*CHART_CLOSE), 5
        self.in_window = False
        return st

    # --- the random share --------------------------------------------------

    def random_input(self, st):
        r = self.rng.random()
        if r < 0.35:
            x, y = self.rng.randint(0, 799), self.rng.randint(0, 599)
            return [f"mouse move {x} {y}"] + (["mouse down", "mouse up"] if self.rng.random() < 0.5 else []), 4
        if r < 0.5:
            row = self.rng.randrange(MENU_ROWS.get(st["currentMenu"], 6))
            if st["mode"] in (ORBIT, SURFACE) and (st["currentMenu"], row) == (NAVIGATOR, STARMAP):
                row = MANEUVER  # the chart opened in orbit or on the surface cannot be closed again
            return row_click(row), 6
        if r < 0.7:
            key = self.rng.choice(["up", "down", "left", "right"])
            return [f"key down {key}"] + ["-"] * self.rng.randint(0, 20) + [f"key up {key}"], 4
        if r < 0.85:
            key = self.rng.choice(["d", "z", "r"])
            scroll = [self.rng.choice(["key down up", "key up up", "key down down", "key up down"])
                      for _ in range(self.rng.randint(0, 6))]
            return [f"key down {key} ctrl", f"key up {key}"] + scroll + [f"key down {key} ctrl", f"key up {key}",
                                                                            "key up up", "key up down"], 4
        if r < 0.93:
            first, second = self.rng.sample(["o", "p"], 2)
            return [f"key down {first}", f"key up {first}", f"key down {second}", f"key up {second}"], 4
        if r < 0.97:
            return ["key down e", "key up e"] + ["-"] * self.rng.randint(0, 30) + ["key down e", "key up e"], 4
        return ["key down f ctrl", "key up f"] + ["-"] * self.rng.randint(0, 20) + ["key down f ctrl", "key up f"], 4


class Checker:
    """What the run reached, and the invariants of every state."""

    def __init__(self, frames):
        self.frames = frames
        self.states = 0
        self.last_frame = 0
        self.failures = []
        self.modes = [0, 0, 0, 0]
        self.planets = set()
        self.landings = 0
        self.collections = 0
        self.complete_landings = 0
        self.landing = None  # collections of the landing under way
        self.previous = None
        self.rss = []  # (frame, kB)

    def fail(self, frame, what):
        if len(self.failures) < 20:
            self.failures.append(f"frame {frame}: {what}")

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

    def check(self, text):
        try:
            st = json.loads(text, parse_constant=lambda name: (_ for _ in ()).throw(ValueError(name)))
        except ValueError as e:
            self.fail(self.last_frame, f"state line is not JSON: {e}: {text[:200]}")
            return None
        self.states += 1
        frame = st["frame"]
        self.last_frame = frame
        mode = st["mode"]
        if mode in (0, 1, 2, 3):
            self.modes[mode] += 1
        obj = st.get("currentObject")
        if obj and mode in (ORBIT, SURFACE):
            self.planets.add((obj["x"], obj["y"], st["currentPlanet"]))
        ship = st["ship"]
        self.check_hold(frame, "ship's hold", ship["shipHold"], ship["shipHoldCapacity"], ship["shipHoldFree"])
        self.check_hold(frame, "rover's hold", ship["roverHold"], 50.0, ship["roverHoldFree"])
        for name in ("velX", "velY"):
            if not isinstance(st.get(name), (int, float)) or not math.isfinite(st[name]):
                self.fail(frame, f"{name} is {st.get(name)}")
        prev = self.previous
        if prev:
            if prev["mode"] == ORBIT and mode == SURFACE:
                self.landings += 1
                self.landing = 0
            if mode == SURFACE and prev["mode"] == SURFACE and self.landing is not None:
                rover = sum(a or 0 for a in ship["roverHold"])
                if rover > sum(a or 0 for a in prev["ship"]["roverHold"]) + 0.001:
                    self.collections += 1
                    self.landing += 1
            if prev["mode"] == SURFACE and mode == ORBIT:
                if self.landing:
                    self.complete_landings += 1
                self.landing = None
        self.previous = st
        return st

    def rss_window(self, first):
        lo, hi = (0, self.frames * 0.1) if first else (self.frames * 0.9, self.frames + 1)
        values = sorted(kb for f, kb in self.rss if lo <= f < hi)
        # The median: the allocator's level, not one passing peak.
        return values[len(values) // 2] / 1024 if values else float("nan")


def memory_kb(pid):
    try:
        with open(f"/proc/{pid}/status") as f:
            for line in f:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1])
    except (OSError, ValueError):
        return None
    return None


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--binary", default="build/prospector")
    parser.add_argument("--data", default="build/data")
    parser.add_argument("--frames", type=int, default=200000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--random-share", type=float, default=0.04, help="share of steps given random input")
    parser.add_argument("--trace", help="write each state's gist and the answer to this file")
    args = parser.parse_args()

    data = os.path.abspath(args.data)
    rng = random.Random(args.seed)
    pilot = Pilot(rng, read_stars(os.path.join(data, "Starmap.txt")), args.random_share)
    checker = Checker(args.frames)
    env = dict(os.environ, SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
    command = [os.path.abspath(args.binary), "--data", data, "--unthrottled", "--seed", str(args.seed), "--frames",
               str(args.frames), "--script", "-"]
    started = time.monotonic()
    game = subprocess.Popen(command, cwd=data, env=env, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE, text=True, bufsize=1)
    errors = []
    reader = threading.Thread(target=lambda: errors.extend(game.stderr.readlines()), daemon=True)
    reader.start()

    def send(lines):
        try:
            game.stdin.write("".join(line + "\n" for line in lines))
            game.stdin.flush()
            return True
        except (BrokenPipeError, OSError):
            return False

    trace = open(args.trace, "w") if args.trace else None
    alive = send(["at 1 state", f"at {args.frames} state"])
    while True:
        line = game.stdout.readline()
        if not line:
            break
        if not line.startswith("STATE "):
            continue
        st = checker.check(line[6:])
        if st is None:
            continue
        if checker.states % 5 == 1:
            kb = memory_kb(game.pid)
            if kb:
                checker.rss.append((st["frame"], kb))
        if checker.states % 5000 == 0:
            print(f"soak: frame {st['frame']}, {len(checker.planets)} planets, {checker.landings} landings",
                  flush=True)
        if not alive or st["frame"] >= args.frames:
            continue
        commands, wait = pilot.step(st)
        frame = st["frame"] + 1
        lines = []
        for c in commands:
            if c != "-":  # "-" only spends a frame
                lines.append(f"at {frame} {c}")
            frame += 1
        lines.append(f"at {max(frame, st['frame'] + wait)} state")
        if trace:
            gist = {k: st[k] for k in ("frame", "mode", "currentMenu", "currentItem", "itemSelected", "maneuverOn",
                                       "scansTaken", "scanRunning", "descentRunning", "launchRunning", "cargoOpen", "configOpen", "navigationOpen", "showShipStatus", "speed", "heading", "sysX", "sysY", "posX", "posY", "site",
                                       "rover", "nearestDeposit")}
            gist["holds"] = (st["ship"]["shipHoldFree"], st["ship"]["roverHoldFree"], st["cargoOpen"])
            trace.write(f"{json.dumps(gist)}\n    {lines}\n")
        alive = send(lines)
    status = game.wait()
    reader.join(timeout=5)
    elapsed = time.monotonic() - started

    ok = True
    sanitizer = [e for e in errors if SANITIZER.search(e)]
    if status != 0 or sanitizer:
        print(f"soak: FAILED: game exit status {status}")
        print("".join((sanitizer or errors)[-30:]))
        ok = False
    if checker.failures:
        print("soak: FAILED: invariants broken:\n  " + "\n  ".join(checker.failures))
        ok = False
    first, last = checker.rss_window(True), checker.rss_window(False)
    if not last <= first + REQUIRED["rss_growth_mb"]:
        # In a short run the first tenth is start-up, still filling its caches
        # and heap: only a run of half the reference length or more is judged.
        if args.frames >= REFERENCE_FRAMES // 2:
            print(f"soak: FAILED: resident memory {first:.1f} MB early, {last:.1f} MB late")
            ok = False
        else:
            print(f"soak: note: resident memory {first:.1f} MB early, {last:.1f} MB late (not judged in a short run)")
    if checker.last_frame < args.frames:
        print(f"soak: FAILED: the run stopped at frame {checker.last_frame}")
        ok = False
    space, system, orbit, surface = checker.modes
    scale = args.frames / REFERENCE_FRAMES
    share = (orbit + surface) / max(1, checker.states)
    for what, value, need in (("planets orbited", len(checker.planets), math.ceil(REQUIRED["planets"] * scale)),
                              ("landings with a collection and a launch", checker.complete_landings,
                               math.ceil(REQUIRED["landings"] * scale)),
                              ("share of states in Orbit or Surface", share, REQUIRED["orbit_share"])):
        if value < need:
            print(f"soak: FAILED: {what}: {value:.2f}, needs {need}")
            ok = False
    print(f"soak: {checker.states} states in {elapsed:.0f} s; {checker.complete_landings} landings collected and "
          f"launched; {'passed' if ok else 'failed'}")
    print(f"soak: frames={checker.last_frame} space={space} system={system} orbit={orbit} surface={surface} "
          f"planets={len(checker.planets)} landings={checker.landings} collections={checker.collections} "
          f"rss_first_mb={first:.1f} rss_last_mb={last:.1f}")
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main())
