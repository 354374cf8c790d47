#!/usr/bin/env python3
"""The mean of a column of a table (CSV), its error, and the autocorrelation time of its rows.

Usage: blocking.py FILE COLUMN [ROWS], which leaves out the first ROWS; FILE may be "-".
Prints the mean, its standard error, and the autocorrelation time in rows.
"""
import csv
import math
import sys
from statistics import fmean, pstdev


def error_if_independent(values):
    return pstdev(values) / math.sqrt(len(values) - 1)


def error_by_blocking(values):
    """Neighbours are averaged (Flyvbjerg and Petersen, J. Chem. Phys. 91, 461, 1989), until blocks of B out
    of n rows have B^3 > 2 n (error / first error)^4 (Lee et al., Phys. Rev. E 83, 066706, 2011)."""
    rows, first, length = len(values), error_if_independent(values), 1
    while len(values) >= 16:
        error = error_if_independent(values)
        if error == 0 or length**3 > 2 * rows * (error / first) ** 4:
            return error
        values = [(a + b) / 2 for a, b in zip(values[::2], values[1::2])]
        length *= 2
    raise ValueError(f"{rows} rows are too few for their correlations")


def autocorrelation_time(values):
    """1/2 plus the sum of correlations up to six such times (Madras and Sokal, J. Stat. Phys. 50, 109, 1988)."""
    centre, variance = fmean(values), pstdev(values) ** 2
    rest, time = [v - centre for v in values], 0.5
    for lag in range(1, len(rest) if variance > 0 else 1):
        time += fmean([a * b for a, b in zip(rest, rest[lag:])]) / variance
        if lag >= 6 * time:
            break
    return time


def column(file, name, rows_left_out=0):
    reader = csv.DictReader(file)
    if name not in (reader.fieldnames or []):
        raise ValueError(f"there is no column {name!r}")
    values = [float(row[name]) for row in reader][rows_left_out:]
    if len(values) < 16 or not all(map(math.isfinite, values)):
        raise ValueError(f"{name!r} needs 16 values or more, all finite")
    return values


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    try:
        with open(0 if sys.argv[1] == "-" else sys.argv[1], encoding="utf-8") as table:
            numbers = column(table, sys.argv[2], *map(int, sys.argv[3:]))
        error, time = error_by_blocking(numbers), autocorrelation_time(numbers)
        print(f"{fmean(numbers):.10g} {error:.6g} {time:.4g}")
    except (OSError, TypeError, ValueError) as problem:
        sys.exit(f"blocking.py: {sys.argv[1]}: {problem}")
