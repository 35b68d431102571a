#!/usr/bin/env python3
"""Plays a first voyage through the real game and reports how long its frames work.

The voyage starts from the shipped saved game: Navigator, Maneuver; fly into the
home system; steer onto a planet (orbit); Science, Sensors (sweep); Captain,
Land, Select Site on a deposit; Descent; Navigator, Maneuver and a drive
(collect); Captain, Launch; Captain, Cargo; the configuration window (E).

Each run records --frame-times and prints the median, the 99th percentile and
the worst frame's work, and what the voyage was doing in the worst frame. It
runs with SDL's dummy driver, then, when Xvfb is installed, in a real window at
--scale 1 and 2 on its own X display.

  tools/frametimes.py --binary build/prospector --data build/data [--display 93]
"""
import argparse
import json
import math
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time

HOME = (100, 100)
SEED = 7


def f32(x):
    return struct.unpack("f", struct.pack("f", x))[0]


# The game's trig tables: whole degrees, 3.14 for pi, the fraction in single precision.
SIN = [math.sin(f32(i / 180) * 3.14) for i in range(360)]
COS = [math.cos(f32(i / 180) * 3.14) for i in range(360)]
COS[0] = 0.999999999


def cdiv(a, b):  # C's division, truncating toward zero
    q = abs(a) // abs(b)
    return q if (a >= 0) == (b > 0) else -q


def home_planets(starmap):
    """Lane -> (seed, mineral density) of the object at HOME."""
    lines = [l.rstrip("\n") for l in open(starmap) if not l.startswith("#")]
    i = 0
    while i + 5 <= len(lines):
        x, y, count = int(lines[i]), int(lines[i + 1]), int(lines[i + 4])
        i += 5
        planets = {}
        for _ in range(count):
            p = lines[i : i + 17]
            planets[int(p[0])] = (int(p[16]), int(p[7]))
            i += 17
        if (x, y) == HOME:
            return planets
    sys.exit("frametimes: no object at the home cell in " + starmap)


def first_deposit(seed, density):
    """The first deposit cell the game lays on a planet (same generator, same order)."""
    state = seed & 0xFFFFFFFF

    def rand():
        nonlocal state
        state = (state * 1103515245 + 12345) & 0xFFFFFFFF
        return (state >> 16) & 0x7FFF

    for x in range(360):
        for y in range(180):
            if rand() % 10000 > density:
                continue
            return x, y
    return None


def planet_cell(lane, angle):
    s, c = SIN[angle % 360], COS[angle % 360]
    return int((10 * lane * s + 140) + 20 * s), int((122 - 10 * lane * c) - 20 * c)


def fly(start, angles, wait, turn, turns, limit=500):
    """Frames of System flight with Up held: `wait` frames straight, then `turns`
    frames of turning (turn = +1 left, -1 right), then straight. Returns the
    number of frames to the capture, or None."""
    x, y, speed, heading = start
    cells = [(lane, planet_cell(lane, a)) for lane, a in enumerate(angles) if a >= 0]
    for f in range(1, limit):
        turning = wait < f <= wait + turns
        vx, vy = speed * SIN[heading], speed * COS[heading]
        x -= int(vx)
        y += int(vy)
        cx, cy = cdiv(x, 50), cdiv(y, 50)
        if cx > 280 or cx < 0 or cy > 245 or cy < 0:
            return None
        for lane, cell in cells:
            if cell == (cx, cy):
                return f, lane
        speed = min(speed + 5, 40)
        if turning:
            heading = (heading + 5 * turn) % 360
    return None


def click(frame, x, y):
    return f"at {frame} mouse move {x} {y}\nat {frame + 3} mouse down\nat {frame + 6} mouse up\n"


def row(frame, r):
    return click(frame, 600, 260 + 30 * r + 10)


def run_game(args, script, frames, extra_env=None, frame_times=None, scale=1, throttled=True):
    with tempfile.TemporaryDirectory() as tmp:
        path = os.path.join(tmp, "voyage.txt")
        with open(path, "w") as f:
            f.write(script)
        cmd = [args.binary, "--data", args.data, "--seed", str(SEED), "--script", path, "--frames", str(frames)]
        cmd += ["--scale", str(scale)] + ([] if throttled else ["--unthrottled"])
        if frame_times:
            cmd += ["--frame-times", frame_times]
        env = dict(os.environ, **(extra_env or {}))
        r = subprocess.run(cmd, env=env, capture_output=True, text=True)
        if r.returncode != 0:
            sys.exit(f"frametimes: the game failed ({r.returncode}):\n{r.stderr}")
        return [json.loads(l[6:]) for l in r.stdout.splitlines() if l.startswith("STATE ")]


def plan_voyage(args):
    planets = home_planets(os.path.join(args.data, "Starmap.txt"))
    approach = row(5, 2) + row(14, 0) + "at 25 key down up\n"  # Navigator, Maneuver; Up held
    probe = approach + "".join(f"at {f} state\n" for f in range(25, 400))
    states = run_game(args, probe, 400, {"SDL_VIDEODRIVER": "dummy"}, throttled=False)
    entered = next((i for i, s in enumerate(states) if s["mode"] == 1), None)
    if entered is None:
        sys.exit("frametimes: the ship never reached the home system")
    s = states[entered]
    entry = 25 + entered
    angles = s["currentObject"]["OrbitAngles"]
    start = (s["sysX"], s["sysY"], s["speed"], s["heading"])
    best = None
    for wait in range(0, 60):
        for turn in (1, -1):
            for turns in range(0, 72):
                hit = fly(start, angles, wait, turn, turns)
                if hit and (best is None or hit[0] < best[0][0]):
                    best = (hit, wait, turn, turns)
    if best is None:
        sys.exit("frametimes: found no way onto a planet of the home system")
    (frames, lane), wait, turn, turns = best
    key = "left" if turn > 0 else "right"
    script = approach
    if turns:
        script += f"at {entry + 1 + wait} key down {key}\nat {entry + 1 + wait + turns} key up {key}\n"
    orbit = entry + frames
    seed, density = planets[lane]
    site = first_deposit(seed, density) or (100, 60)
    f = orbit + 1
    script += f"at {f} key up up\nat {f} state\n"
    phases = [(1, "space"), (entry, "system entry"), (entry + 1, "system"), (orbit, "orbit entry"), (f, "orbit")]
    f += 2
    script += row(f, 3) + row(f + 9, 1) + row(f + 18, 0)  # Bridge, Science, Sensors
    phases.append((f + 24, "sweep"))
    f += 60
    script += f"at {f - 1} state\n" + row(f, 4) + row(f + 9, 0) + row(f + 18, 0) + row(f + 27, 0)  # Captain, Land, Site
    script += click(f + 36, 25 + site[0], 20 + site[1]) + click(f + 45, 600, 270) + row(f + 54, 1)  # site, Descent
    phases.append((f + 60, "descent"))
    f += 120
    phases.append((f - 5, "surface"))
    script += f"at {f - 1} state\n" + row(f, 4) + row(f + 9, 2) + row(f + 18, 0)  # Bridge, Navigator, Maneuver
    script += f"at {f + 30} key down up\nat {f + 60} key up up\nat {f + 62} state\n"  # drive
    script += f"at {f + 64} mouse down\nat {f + 67} mouse up\n" + row(f + 70, 3) + row(f + 79, 0) + row(f + 88, 0)
    phases.append((f + 94, "launch"))
    f += 160
    script += f"at {f - 1} state\n" + row(f, 2) + f"at {f + 20} state\n"  # Captain, Cargo
    phases.append((f + 6, "cargo window"))
    f += 45
    script += f"at {f} key down e\nat {f + 1} key up e\nat {f + 20} state\nat {f + 30} key down e\nat {f + 31} key up e\n"
    phases.append((f, "configuration window"))
    f += 40
    phases.append((f - 8, "bridge"))
    return script, f, phases, lane


def check_voyage(states):
    """The milestones the voyage must reach, in the order of its `state` lines."""
    want = [
        ("orbit", lambda s: s["mode"] == 2),
        ("sweep", lambda s: s["scansTaken"] >= 1),
        ("landing", lambda s: s["mode"] == 3),
        ("collecting", lambda s: s["mode"] == 3 and s["ship"]["roverHoldFree"] < 50),
        ("launch", lambda s: s["mode"] == 2),
        ("cargo window", lambda s: s["cargoOpen"] == 1),
        ("configuration window", lambda s: s["configOpen"] == 1),
    ]
    missed = [name for (name, ok), s in zip(want, states) if not ok(s)]
    if len(states) != len(want):
        missed.append(f"{len(states)} state lines, not {len(want)}")
    return missed


def phase_of(frame, phases):
    name = phases[0][1]
    for start, n in phases:
        if frame >= start:
            name = n
    return name


def report(label, path, phases):
    times = [tuple(map(int, l.split())) for l in open(path) if l.strip()]
    work = sorted(us for _, us in times)
    worst_frame, worst = max(times, key=lambda t: t[1])
    p99 = work[max(0, math.ceil(0.99 * len(work)) - 1)]
    median = work[len(work) // 2] if len(work) % 2 else (work[len(work) // 2 - 1] + work[len(work) // 2]) / 2
    entry = next(start for start, n in phases if n == "system entry")
    orbit = next(start for start, n in phases if n == "orbit entry")
    at = dict(times)
    print(
        f"{label:<16} frames {len(work):4d}  median {median / 1000:6.2f} ms  p99 {p99 / 1000:6.2f} ms  "
        f"worst {worst / 1000:6.2f} ms at frame {worst_frame} ({phase_of(worst_frame, phases)})  "
        f"system entry {at.get(entry, 0) / 1000:.2f} ms  orbit entry {at.get(orbit, 0) / 1000:.2f} ms"
    )
    return worst


def start_xvfb(display):
    if not shutil.which("Xvfb"):
        return None
    proc = subprocess.Popen(
        ["Xvfb", f":{display}", "-screen", "0", "1920x1280x24", "-nolisten", "tcp"],
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )
    for _ in range(50):
        if os.path.exists(f"/tmp/.X11-unix/X{display}"):
            return proc
        if proc.poll() is not None:
            break
        time.sleep(0.1)
    print(f"frametimes: Xvfb :{display} did not start; the window runs are left out", file=sys.stderr)
    proc.kill()
    return None


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--binary", default="build/prospector")
    parser.add_argument("--data", default="build/data")
    parser.add_argument("--display", type=int, default=93, help="the X display number for Xvfb")
    parser.add_argument("--unthrottled", action="store_true", help="no frame-rate wait (not how a player sees it)")
    parser.add_argument("--dummy-only", action="store_true")
    args = parser.parse_args()
    args.binary, args.data = os.path.abspath(args.binary), os.path.abspath(args.data)

    script, frames, phases, lane = plan_voyage(args)
    print(f"voyage: {frames} frames, orbit at lane {lane} of the home system from frame {phases[3][0]}")
    runs = [("dummy", {"SDL_VIDEODRIVER": "dummy"}, 1)]
    xvfb = None if args.dummy_only else start_xvfb(args.display)
    if xvfb:
        x11 = {"SDL_VIDEODRIVER": "x11", "DISPLAY": f":{args.display}"}
        runs += [("xvfb scale 1", x11, 1), ("xvfb scale 2", x11, 2)]
    failed = False
    try:
        with tempfile.TemporaryDirectory() as tmp:
            for label, env, scale in runs:
                path = os.path.join(tmp, "times.txt")
                states = run_game(args, script, frames, env, path, scale, not args.unthrottled)
                missed = check_voyage(states)
                if missed:
                    print(f"frametimes: {label}: the voyage went wrong: {', '.join(missed)}", file=sys.stderr)
                    failed = True
                report(label, path, phases)
        # Other work on the machine shows up as longer frames: say how busy it was.
        print("load average over the last minute, 5 and 15 minutes: %.1f %.1f %.1f" % os.getloadavg())
    finally:
        if xvfb:
            xvfb.terminate()
            xvfb.wait()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
