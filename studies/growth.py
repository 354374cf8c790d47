#!/usr/bin/env python3
"""The exponent of the growth of domains, from the results of growth-flips.toml or growth-swaps.toml.

Usage: growth.py RESULTS KNOWN [CURVES.csv], where KNOWN is the exponent to compare with, as 1/2 or 1/3

Prints for each quench the exponents between times, the exponent of all these times together, and an extrapolation:
if length = A t^n + B, the exponent between two times is n (1 - B / length), a line in 1 / length. CURVES.csv gets the
lengths and the exponents between times for a plot.
"""
import csv
import math
from fractions import Fraction
from statistics import fmean

from tables import evenly_in_logarithm, jackknife, polynomial, rows, run, told

# From domains that have forgotten the start, to a lattice with some sixteen of them.
FIRST, SHORTEST, LONGEST_OF_SIDE = 8, 9.0, 0.25
EXPONENTS = 4


def length(row):
    """The column `length` as it would be with the wave vectors around 0, which are in no shell: L sum S / sum k S.
    If domains do not conserve their type, S is largest there, and without them the length would be too short by
    some ten per cent of length / L. S is continued as a parabola from the first two shells."""
    shells, k = [], 1
    while row.get(f"s_1_{k}_mean"):
        shells.append(float(row[f"s_1_{k}_mean"]))
        k += 1
    centre = max(0.0, shells[0] + (shells[0] - shells[1]) / 3)
    area = centre / 2 - (centre - shells[0]) / 24
    moment = centre / 8 - (centre - shells[0]) / 64
    return (int(row["imax"]) * (math.fsum(shells) + area) /
            (math.fsum(k * s for k, s in enumerate(shells, start=1)) + moment))


def quenches_of(folder):
    """parameter -> one dictionary for each side of the lattice: sweep -> length; and the smallest side."""
    quenches, sides = {}, set()
    for row in rows(folder, "series.csv"):
        sides.add(int(row["imax"]))
        parameter = next((row[name] for name in row if name.endswith(" parameter")), "")
        groups = quenches.setdefault(parameter, {})
        groups.setdefault(row["imax"], {})[int(row["sweep"])] = length(row)
    return {parameter: list(groups.values()) for parameter, groups in quenches.items()}, min(sides)


def length_at(groups, sweep):
    return fmean(g[sweep] for g in groups)


def times_of(groups, side):
    fit = [t for t in sorted(groups[0])
           if t >= FIRST and SHORTEST <= length_at(groups, t) <= LONGEST_OF_SIDE * side]
    if len(fit) < 3:
        raise ValueError("the lengths are too short or too long")
    return evenly_in_logarithm(fit, fit[0], fit[-1], EXPONENTS + 1)


def exponents(groups, times):
    """Between neighbouring times: 1 / length and the exponent."""
    result = []
    for first, last in zip(times, times[1:]):
        lengths = [length_at(groups, t) for t in (first, last)]
        result += [1 / math.sqrt(lengths[0] * lengths[1]),
                   math.log(lengths[1] / lengths[0]) / math.log(last / first)]
    return result


def whole_exponent(groups, times):
    """The slope of a line through all times."""
    logarithms = [math.log(length_at(groups, t)) for t in times]
    return polynomial([math.log(t) for t in times], logarithms, 1)[1]


def main(folder, known, curves_file=None):
    quenches, side = quenches_of(folder)
    curves = []
    for parameter, groups in quenches.items():
        name = f" at {parameter}" if parameter else ""
        times = times_of(groups, side)
        values, errors = jackknife(groups, lambda some: exponents(some, times))
        for k, (first, last) in enumerate(zip(times, times[1:])):
            told(f"exponent{name} from {first} to {last}", values[2 * k + 1], errors[2 * k + 1])
        weights = [e**-2 for e in errors[1::2]]

        def both(some):
            points = exponents(some, times)
            return [whole_exponent(some, times)] + polynomial(points[0::2], points[1::2], 1, weights)

        (whole, *line), (whole_error, line_error, _) = jackknife(groups, both)
        told(f"exponent{name}", whole, whole_error, float(Fraction(known)), "expected")
        told(f"exponent{name}, continued", line[0], line_error, float(Fraction(known)), "expected")
        measured = [t for t in sorted(groups[0]) if t > 0]
        lengths = jackknife(groups, lambda some: [length_at(some, t) for t in measured])
        curves.append((parameter, list(zip(measured, *lengths)), values, errors, line, line_error))

    if curves_file:
        with open(curves_file, "w", newline="", encoding="utf-8") as table:
            writer = csv.writer(table)
            for _, lengths, values, errors, line, line_error in curves:
                # Three blocks for each quench: lengths, exponents between times, and the end of the line.
                for row in lengths:
                    writer.writerow([row[0], f"{row[1]:.5f}", f"{row[2]:.5f}"])
                table.write("\n\n")
                for x, y, error in zip(values[0::2], values[1::2], errors[1::2]):
                    writer.writerow([f"{x:.6f}", f"{y:.6f}", f"{error:.6f}"])
                table.write("\n\n")
                writer.writerow([0, f"{line[0]:.6f}", f"{line_error:.6f}"])
                end = max(values[0::2])
                writer.writerow([f"{end:.6f}", f"{line[0] + line[1] * end:.6f}", 0])
                table.write("\n\n")


if __name__ == "__main__":
    run(main, __doc__, 2, 3)
