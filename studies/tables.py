"""What the analyses of the studies share: the tables of a results folder, the jackknife, and straight lines."""
import csv
import math
import os
import sys
from statistics import fmean


def run(main, usage, fewest, most):
    """Calls main with the words of the command line. Tables that are missing or do not fit give one line."""
    program, *words = sys.argv
    if not fewest <= len(words) <= most:
        sys.exit(usage)
    try:
        main(*words)
    except (OSError, KeyError, ValueError) as problem:
        sys.exit(f"{os.path.basename(program)}: {words[0]}: {problem}")


def rows(folder, name):
    with open(os.path.join(folder, name), encoding="utf-8") as table:
        return list(csv.DictReader(table))


def density(row, column):
    """A count or a share of a lattice, for each site."""
    return float(row[column]) / (int(row["imax"]) * int(row["jmax"]))


def jackknife(parts, estimate):
    """The estimate from all independent parts, and its standard error from leaving out one part at a time (Efron,
    The Jackknife, the Bootstrap and Other Resampling Plans, 1982). An estimate is a list of numbers."""
    if len(parts) < 3:
        raise ValueError(f"{len(parts)} independent parts are too few for an error")
    whole = estimate(parts)
    left = [estimate(parts[:k] + parts[k + 1:]) for k in range(len(parts))]
    scale = (len(parts) - 1) / len(parts)
    errors = []
    for k in range(len(whole)):
        centre = fmean(e[k] for e in left)
        errors.append(math.sqrt(scale * math.fsum((e[k] - centre) ** 2 for e in left)))
    return whole, errors


def solved(matrix, right):
    """Gaussian elimination with pivots."""
    work = [list(row) + [value] for row, value in zip(matrix, right)]
    size = len(work)
    for i in range(size):
        pivot = max(range(i, size), key=lambda r: abs(work[r][i]))
        work[i], work[pivot] = work[pivot], work[i]
        for r in range(size):
            if r != i:
                factor = work[r][i] / work[i][i]
                work[r] = [a - factor * b for a, b in zip(work[r], work[i])]
    return [work[i][size] / work[i][i] for i in range(size)]


def polynomial(xs, ys, degree, weights=None):
    """The coefficients of the least squares, from the constant up."""
    weights = weights or [1.0] * len(xs)
    sums = [math.fsum(w * x**k for w, x in zip(weights, xs)) for k in range(2 * degree + 1)]
    right = [math.fsum(w * y * x**k for w, x, y in zip(weights, xs, ys)) for k in range(degree + 1)]
    return solved([sums[k:k + degree + 1] for k in range(degree + 1)], right)


def value_at(coefficients, x):
    return math.fsum(c * x**k for k, c in enumerate(coefficients))


def bisected(function, low, high):
    """Where a function that changes its sign between low and high is zero."""
    sign = function(low) > 0
    if sign == (function(high) > 0):
        raise ValueError(f"there is no solution from {low:g} to {high:g}")
    for _ in range(60):
        middle = (low + high) / 2
        if (function(middle) > 0) == sign:
            low = middle
        else:
            high = middle
    return (low + high) / 2


def evenly_in_logarithm(times, first, last, number):
    """Of the times that were measured, the nearest to `number` ones whose logarithms are evenly spaced."""
    wanted = [first * (last / first) ** (k / (number - 1)) for k in range(number)]
    return sorted({min(times, key=lambda t: abs(math.log(t / w))) for w in wanted})


def told(name, value, error, known=None, source=""):
    """A line of the result: a number with its error, beside the known one."""
    line = f"{name:32} {value:10.6f} +- {error:.6f}"
    if known is not None:
        line += f"   {source} {known:.6f}, deviation {(value - known) / error:+.2f}"
    print(line)
