#!/usr/bin/env python3
"""pandas_scans.py FOLDER: reads the scans that make_data has written into FOLDER with pandas, by the columns of the fields."""

import pathlib
import sys
import time

import pandas as pd


def main():
    folder = pathlib.Path(sys.argv[1]) / "full"
    paths = [folder / name for name in (folder / "every1.LST").read_text(encoding="ascii").split()]
    start = time.perf_counter()
    scans = [pd.read_fwf(path, colspecs=[(3, 10), (10, 25)], skiprows=2, header=None) for path in paths]
    print(f"load/500/pandas.read_fwf {(time.perf_counter() - start) * 1000.0:.3f}")
    if any(scan.shape != (2048, 2) for scan in scans):
        sys.exit("the scans have not been read")


main()
