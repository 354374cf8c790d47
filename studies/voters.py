#!/usr/bin/env python3
"""How the share of unlike neighbours of the voter model falls with time, from the results of voters.toml.

Usage: voters.py RESULTS [CURVES.csv]

Backwards in time opinions are random walks that merge when they meet. Two neighbours differ with half of the
probability that their walks have not met. The distance of two walks makes jumps to the eight neighbours at the rate
2; with P its probability to be at its start again, the Laplace transform of the probability that it has not returned
is 1 / (2 s P(s)), and P(s) = ln(72 / s) / (3 pi) for small s. So with l = ln t + C and C = ln 72

    share = (3 pi / 4) S(l),   S(l) = integral of exp(-l y) / Gamma(1 - y) from y = 0 on,

and 1 / share grows with the slope 4 / (3 pi) for ln t. The slope and C are fitted. CURVES.csv gets the shares.
"""
import csv
import math
from statistics import fmean

from tables import bisected, density, evenly_in_logarithm, jackknife, rows, run, told

KNOWN_SLOPE, KNOWN_CONSTANT = 4 / (3 * math.pi), math.log(72)
# The coefficients of 1 / Gamma(1 - y) from y^0 up: Abramowitz and Stegun, 6.1.34.
RECIPROCAL_GAMMA = (1.0, -0.5772156649, -0.6558780715, 0.0420026350, 0.1665386114)
# Terms of the order 1 / t are left out of S.
FIRST = 20
NUMBER_OF_TIMES = 12


def fall(logarithm):
    return sum(a * math.factorial(k) / logarithm ** (k + 1) for k, a in enumerate(RECIPROCAL_GAMMA))


def expected(time):
    return fall(math.log(time) + KNOWN_CONSTANT) / KNOWN_SLOPE


def groups_of(folder):
    """One dictionary for each side of the lattice: sweep -> share of unlike pairs among the four of a site."""
    groups = {}
    for row in rows(folder, "series.csv"):
        groups.setdefault(row["imax"], {})[int(row["sweep"])] = density(row, "contacts_0_1_mean") / 4
    return list(groups.values())


def slope_for(constant, inverse, times):
    shape = [1 / fall(math.log(t) + constant) for t in times]
    return sum(s * y for s, y in zip(shape, inverse)) / sum(s * s for s in shape)


def slope_and_constant(groups, times):
    """By least squares in 1 / share."""
    inverse = [1 / fmean(g[t] for g in groups) for t in times]

    def squares(constant):
        slope = slope_for(constant, inverse, times)
        return sum((y - slope / fall(math.log(t) + constant)) ** 2 for y, t in zip(inverse, times))

    constant = bisected(lambda c: squares(c + 1e-4) - squares(c - 1e-4), KNOWN_CONSTANT - 2, KNOWN_CONSTANT + 4)
    return [slope_for(constant, inverse, times), constant, slope_for(KNOWN_CONSTANT, inverse, times)]


def main(folder, curves_file=None):
    groups = groups_of(folder)
    every_time = sorted(groups[0])
    times = evenly_in_logarithm(every_time[1:], FIRST, every_time[-1], NUMBER_OF_TIMES)
    shares, errors = jackknife(groups, lambda some: [fmean(g[t] for g in some) for t in every_time[1:]])
    for t, share, error in zip(every_time[1:], shares, errors):
        if t in times:
            told(f"share after {t}", share, error, expected(t), "exact")
    values, value_errors = jackknife(groups, lambda some: slope_and_constant(some, times))
    told("slope", values[0], value_errors[0], KNOWN_SLOPE, "exact")
    told("constant C", values[1], value_errors[1], KNOWN_CONSTANT, "exact")
    told("slope with C = ln 72", values[2], value_errors[2], KNOWN_SLOPE, "exact")

    if curves_file:
        with open(curves_file, "w", newline="", encoding="utf-8") as table:
            writer = csv.writer(table)
            drawn = evenly_in_logarithm(every_time[1:], every_time[1], every_time[-1], 25)
            for t, share, error in zip(every_time[1:], shares, errors):
                if t not in drawn:
                    continue
                writer.writerow([t, f"{1 / share:.6f}", f"{error / share**2:.6f}", f"{1 / expected(t):.6f}"])


if __name__ == "__main__":
    run(main, __doc__, 1, 2)
