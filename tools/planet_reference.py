#!/usr/bin/env python3
"""Reference values for the terrain and deposit golden tests.

Written straight from the generation rules, independently of the game's C++:
the ISO C sample generator, the 513 x 513 diamond-square field with its nine
passes, the single-precision resampling, the in-place 7 x 7 smoothing and the
deposit draws. Run it once and copy the printed values into
tests/surface/terrain_golden_test.cpp:

    python3 tools/planet_reference.py

The terrain checksum is 32-bit FNV-1a over the 64,800 cells in storage order
(cell (x, y) is element x * 180 + y).
"""
import struct

state = 1


def srand(seed):
    global state
    state = seed & 0xFFFFFFFF


def rand():
    global state
    state = (state * 1103515245 + 12345) & 0xFFFFFFFF
    return (state // 65536) % 32768


def random_offset(m):
    r = rand() % m
    return r - m if r > m // 2 else r


def clamp(v):
    return 0 if v < 0 else (255 if v > 255 else v)


def f32(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def generate(seed):
    srand(seed)
    size = 513
    g = [[128] * size for _ in range(size)]  # g[row][column]
    for k in range(1, 10):
        n = 2 ** (k - 1)
        s = 512 // n
        h = s // 2
        m = 255 // k
        for i in range(n):
            for j in range(n):
                a = g[j * s][i * s] + g[(j + 1) * s][i * s] + g[j * s][(i + 1) * s] + g[(j + 1) * s][(i + 1) * s]
                g[j * s + h][i * s + h] = clamp(a // 4 + random_offset(m))
        for i in range(n):
            for j in range(n):
                below = h if j == n - 1 else (j + 1) * s + h
                b = g[j * s + h][i * s + h] + g[below][i * s + h] + g[(j + 1) * s][i * s] + g[(j + 1) * s][(i + 1) * s]
                value = clamp(b // 4 + random_offset(m))
                g[(j + 1) * s][i * s + h] = value
                if j == n - 1:
                    g[0][i * s + h] = value
                right = h if i == n - 1 else (i + 1) * s + h
                d = g[j * s][(i + 1) * s] + g[(j + 1) * s][(i + 1) * s] + g[j * s + h][i * s + h] + g[j * s + h][right]
                value = clamp(d // 4 + random_offset(m))
                g[j * s + h][(i + 1) * s] = value
                if i == n - 1:
                    g[j * s + h][0] = value
    corners = (g[0][0], g[0][512], g[512][0], g[512][512])
    cells = [0] * (360 * 180)
    u = 0.0
    for x in range(360):
        v = 0.0
        for y in range(180):
            cells[x * 180 + y] = g[int(u)][int(v)]
            v = f32(v + 2.85)
        u = f32(u + 1.425)
    return cells, corners


KERNEL = [
    [1, 1, 2, 2, 2, 1, 1],
    [1, 2, 2, 4, 2, 2, 1],
    [2, 2, 4, 8, 4, 2, 2],
    [2, 4, 8, 16, 8, 4, 2],
    [2, 2, 4, 8, 4, 2, 2],
    [1, 2, 2, 4, 2, 2, 1],
    [1, 1, 2, 2, 2, 1, 1],
]


def smooth(cells):
    for x in range(360):
        for y in range(180):
            total = 0
            for dy in range(-3, 4):
                yy = y + dy
                if yy < 0:
                    yy += 180
                elif yy >= 180:
                    yy -= 180
                for dx in range(-3, 4):
                    xx = x + dx
                    if xx < 0:
                        xx += 360
                    elif xx >= 360:
                        xx -= 360
                    total += KERNEL[dy + 3][dx + 3] * cells[xx * 180 + yy]
            cells[x * 180 + y] = total // 140


def fnv1a(cells):
    h = 0x811C9DC5
    for c in cells:
        h = ((h ^ c) * 0x01000193) & 0xFFFFFFFF
    return h


MINERALS = ["Lead", "Iron", "Cobalt", "Nickel", "Copper", "Zinc", "Molybdenum", "Tin", "Magnesium", "Aluminum",
            "Titanium", "Chromium", "Antimony", "Promethium", "Mercury", "Tungsten", "Silver", "Gold", "Platinum",
            "Silicon", "Rodnium", "Shyneum"]


def number(name):
    return MINERALS.index(name) if name in MINERALS else 0


def deposits(seed, density, litho):
    table = [i % 22 for i in range(66)] + [number(litho[2])] * 6 + [number(litho[1])] * 11 + [number(litho[0])] * 17
    assert len(table) == 100
    srand(seed)
    found = []
    for x in range(360):
        for y in range(180):
            if rand() % 10000 > density:
                continue
            kind = table[rand() % 100]
            amount = (rand() % 1000) / 100.0
            found.append((x, y, kind, amount))
    return found


CASES = [
    # seed, density, lithosphere
    (1, 100, ("Iron", "Titanium", "Platinum")),
    (73415, 285, ("Iron", "Titanium", "Platinum")),
    (2000000000, 5, ("Gold", "Silver", "Nothing")),
    (-424242, 0, ("Shyneum", "Lead", "Gold")),
]

if __name__ == "__main__":
    for seed, density, litho in CASES:
        cells, corners = generate(seed)
        raw = fnv1a(cells)
        raw_sample = (cells[0], cells[180 * 180 + 90], cells[359 * 180 + 179])
        smooth(cells)
        found = deposits(seed, density, litho)
        first, last = found[0], found[-1]
        print(f"seed {seed}: corners {corners}")
        print(f"  generated  fnv1a 0x{raw:08X}u cells (0,0) (180,90) (359,179) = {raw_sample}")
        print(f"  smoothed   fnv1a 0x{fnv1a(cells):08X}u cells (0,0) (180,90) (359,179) = "
              f"{(cells[0], cells[180 * 180 + 90], cells[359 * 180 + 179])}")
        print(f"  deposits density {density} {litho}: count {len(found)}")
        print(f"    first {first[0]}, {first[1]}, kind {first[2]}, amount {first[3]:.2f}")
        print(f"    last  {last[0]}, {last[1]}, kind {last[2]}, amount {last[3]:.2f}")
