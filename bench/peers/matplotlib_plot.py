#!/usr/bin/env python3
"""matplotlib_plot.py FOLDER: the full plot by matplotlib, a line with round markers for each scan."""

import pathlib
import sys
import time

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import numpy as np  # noqa: E402

PIXELS_OF_INCH = 100
COLOURS = ("black", "red", "blue", "green", "purple", "teal", "olive", "magenta", "maroon", "navy")


def main():
    folder = pathlib.Path(sys.argv[1])
    x = np.fromfile(folder / "plot.x", dtype=np.float32).reshape(500, 2048)
    y = np.fromfile(folder / "plot.y", dtype=np.float32).reshape(500, 2048)
    figure, axes = plt.subplots(dpi=PIXELS_OF_INCH)
    for scan in range(500):
        axes.plot(x[scan], y[scan], "-o", markersize=2, linewidth=0.72, antialiased=False,
                  color=COLOURS[(scan + 1) % 10])
    axes.set_xlabel("Radius (cm)")
    axes.set_ylabel("Fringes")
    axes.set_ylim(-0.06, 3.06)
    for row, low, high in (("repaint", 5.95, 7.2), ("zoom", 6.575 - 0.15625, 6.575 + 0.15625)):
        for width, height in ((665, 500), (1250, 700)):
            figure.set_size_inches(width / PIXELS_OF_INCH, height / PIXELS_OF_INCH)
            axes.set_xlim(low, high)
            start = time.perf_counter()
            figure.canvas.draw()
            print(f"{row} {width}x{height}/500/matplotlib {(time.perf_counter() - start) * 1000.0:.3f}", flush=True)


main()
