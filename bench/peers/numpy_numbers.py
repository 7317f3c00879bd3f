#!/usr/bin/env python3
"""numpy_numbers.py FOLDER: the rows of numbers by numpy, prints "ROW/500/numpy MILLISECONDS".

The scans are those that make_data has written into FOLDER. What the arrays hold in the end is what the program has.
"""

import os
import pathlib
import sys
import tempfile
import time

import numpy as np

MENISCUS = np.float32(5.95)
HEADER_LINES = 2


def milliseconds(work):
    start = time.perf_counter()
    result = work()
    return (time.perf_counter() - start) * 1000.0, result


def report(row, way, work):
    taken, result = milliseconds(work)
    print(f"{row}/500/{way} {taken:.3f}", flush=True)
    return result


def load(paths):
    return np.stack([np.loadtxt(path, skiprows=HEADER_LINES, dtype=np.float32) for path in paths])


def omega2t_of(path):
    with open(path, encoding="ascii") as file:
        file.readline()
        return float(file.readline()[22:32])


def step_of_s(most):
    for power in range(-4, 6):
        for step in (1.0, 1.5, 2.0, 3.0, 4.0, 5.0):
            if most <= 10.0**power * step * 2000.0 * 1e-13:
                return np.float32(10.0**power * step)
    raise ValueError(most)


def rates(radius, signal, omega2t, time_of):
    """dc/dt of all pairs on a grid of s*, and its mean: the steps are done for all radii at once, pair by pair only the
    interpolation is."""
    inside = (radius >= MENISCUS) & (radius <= 7.2)
    pairs = len(signal) // 2
    logarithm = np.log(radius[inside].astype(np.float64) / MENISCUS)
    between = time_of[pairs : 2 * pairs] - time_of[:pairs]
    sed_time = 2.0 / (1.0 / time_of[pairs : 2 * pairs] + 1.0 / time_of[:pairs])
    omega2 = np.float32((50000 * 0.104719755) ** 2)
    rate = (signal[:pairs, inside] - signal[pairs : 2 * pairs, inside]) / between[:, None]
    s_star = (logarithm[None, :] / sed_time[:, None] / omega2).astype(np.float32)
    step = step_of_s(np.log(7.2 / radius[inside][0]) / omega2t[0])
    grid = (1e-13 * step * np.arange(1, 2001)).astype(np.float32)
    points = np.searchsorted(grid, s_star[-1, -1], side="right")
    out = np.empty((pairs, points), dtype=np.float32)
    for pair in range(pairs):
        out[pair] = np.interp(grid[:points], s_star[pair], rate[pair])
    return grid[:points], out, out.mean(axis=0)


def wide(radius, signal, omega2t):
    """g(s*) at eleven radii, in double: numpy would take five times as long with extended precision."""
    curves = []
    for wanted in np.arange(6.0, 7.05, 0.1):
        at = np.searchsorted(radius, np.float32(wanted))
        level = signal[::-1, at - 6 : at + 5].mean(axis=1, dtype=np.float64)
        s = np.log(float(radius[at]) / MENISCUS) / omega2t[::-1]
        g = np.diff(level) / np.diff(s)
        s_mid = (s[1:] + s[:-1]) / 2.0
        w = omega2t[::-1][1:]
        g_first = g
        for _ in range(3):
            part = np.empty_like(g)
            part[0] = s_mid[0] * s_mid[0] * g[0]  # the placeholder before it has an s* of 0
            part[1:-1] = np.diff(s_mid)[:-1] * s_mid[1:-1] * g[1:-1]
            part[-1] = s_mid[-1] * 0.5 * g[-1] * (s_mid[-1] - s_mid[-2])
            g = g_first - w / s_mid * 2.0 * np.cumsum(part)
        curves.append((s_mid, g))
    return curves


def save_table(path, radius, signal):
    columns = np.empty((radius.shape[1], 2 * len(radius)), dtype=np.float32)
    columns[:, 0::2] = radius.T
    columns[:, 1::2] = signal.T
    np.savetxt(path, columns, fmt="  %.4f  % .4E" * len(radius), newline="\r\n")


def save_plot(path, x, y, codes):
    columns = np.column_stack([x, y, np.zeros_like(x), codes])
    np.savetxt(path, columns, fmt="     % .4E   % .4E    %.4E   %d", newline="\r\n")


def main():
    folder = pathlib.Path(sys.argv[1]) / "full"
    wanted = sys.argv[2:] or ["load", "dc/dt", "wide", "table", "plot file"]
    paths = [folder / name for name in (folder / "every1.LST").read_text(encoding="ascii").split()]
    data = report("load", "numpy.loadtxt", lambda: load(paths)) if "load" in wanted else load(paths)
    radius, signal = data[:, :, 0].copy(), data[:, :, 1].copy()
    omega2t = np.array([omega2t_of(path) for path in paths])
    time_of = omega2t / (50000 * 0.1047196) ** 2
    for _ in range(3):
        if "dc/dt" in wanted:
            report("dc/dt", "numpy", lambda: rates(radius[0], signal, omega2t, time_of))
        if "wide" in wanted:
            report("wide", "numpy", lambda: wide(radius[0], signal, omega2t))
    with tempfile.TemporaryDirectory() as scratch:
        path = os.path.join(scratch, "table.txt")
        if "table" in wanted:
            report("table", "numpy.savetxt", lambda: save_table(path, radius, signal))
        if "plot file" in wanted:
            x, y = np.tile(radius.ravel(), 2), np.tile(signal.ravel(), 2)
            codes = np.repeat(np.concatenate([np.arange(1, 501), -57 - 64 * np.arange(1, 501)]), radius.shape[1])
            report("plot file", "numpy.savetxt", lambda: save_plot(path, x, y, codes))


main()
