#!/usr/bin/env python3
"""The threshold of the contact process and its decay exponent, from the results of contact-process.toml.

Usage: decay.py RESULTS FIRST [CURVES.csv], where FIRST is the sweep from which on the share follows its power law

Fits a parabola to the logarithm of the share of active sites over the logarithm of time, for each death rate. At the
threshold the parabola is a line, and its slope is the exponent. Does so from FIRST / 2, FIRST and 2 FIRST on.
CURVES.csv gets the shares for a plot.
"""
import csv
import math
from statistics import fmean

from tables import bisected, density, evenly_in_logarithm, jackknife, polynomial, rows, run, told, value_at

KNOWN_EXPONENT = 0.4505  # directed percolation in 2 + 1 dimensions: Voigt and Ziff, Phys. Rev. E 56, R6241, 1997


def groups_of(folder):
    """One dictionary for each side of the lattice: (death rate, sweep) -> share of active sites."""
    groups = {}
    for row in rows(folder, "series.csv"):
        point = (float(row["rule Death parameter"]), int(row["sweep"]))
        groups.setdefault(row["imax"], {})[point] = density(row, "count_1_mean")
    return list(groups.values())


def threshold_and_exponent(groups, first):
    rates = sorted({rate for rate, _ in groups[0]})
    every_time = sorted({sweep for _, sweep in groups[0] if sweep > 0})
    times = evenly_in_logarithm(every_time, first, every_time[-1], 16)
    middle, centre = math.sqrt(times[0] * times[-1]), fmean(rates)
    slopes, bends = [], []
    for rate in rates:
        logarithms = [math.log(fmean(g[rate, t] for g in groups)) for t in times]
        _, slope, bend = polynomial([math.log(t / middle) for t in times], logarithms, 2)
        slopes.append(slope)
        bends.append(bend)
    offsets = [rate - centre for rate in rates]
    bend_of, slope_of = (polynomial(offsets, ys, 1) for ys in (bends, slopes))
    zero = bisected(lambda x: value_at(bend_of, x), 3 * offsets[0], 3 * offsets[-1])
    return [centre + zero, -value_at(slope_of, zero)]


def main(folder, first_sweep, curves_file=None):
    groups, chosen = groups_of(folder), int(first_sweep)
    for first in (chosen // 2, chosen, 2 * chosen):
        values, errors = jackknife(groups, lambda some: threshold_and_exponent(some, first))
        mark = "" if first == chosen else f" (from sweep {first})"
        told("threshold" + mark, values[0], errors[0])
        told("exponent" + mark, values[1], errors[1], KNOWN_EXPONENT, "published")

    if curves_file:
        every_time = sorted({sweep for _, sweep in groups[0] if sweep > 0})
        times = evenly_in_logarithm(every_time, every_time[0], every_time[-1], 30)
        keys = sorted(k for k in groups[0] if k[1] in times)
        values, errors = jackknife(groups, lambda some: [fmean(g[k] for g in some) for k in keys])
        with open(curves_file, "w", newline="", encoding="utf-8") as table:
            writer = csv.writer(table)
            for k, ((rate, sweep), value, error) in enumerate(zip(keys, values, errors)):
                if k > 0 and rate != keys[k - 1][0]:
                    table.write("\n\n")
                writer.writerow([f"{rate:.6g}", sweep, f"{value:.6f}", f"{error:.6f}"])


if __name__ == "__main__":
    run(main, __doc__, 2, 3)
