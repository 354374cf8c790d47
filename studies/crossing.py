#!/usr/bin/env python3
"""The critical coupling of the Ising model with eight neighbours, from the results of ising-binder.toml.

Usage: crossing.py RESULTS [CURVES.csv]

Prints where the Binder cumulants of sides L and 2 L cross, and the critical coupling and the cumulant there, with
standard errors. CURVES.csv gets the cumulants for a plot.
"""
import csv
import math
from statistics import fmean

from tables import jackknife, polynomial, rows, run, solved, told, value_at

KNOWN_COUPLING = 0.1901926807  # Luijten, Bloete and Bakker, Phys. Rev. E 54, 4626, 1996
KNOWN_CUMULANT = 0.610690  # Kamieniarz and Bloete, J. Phys. A 26, 201, 1993
# Exact cumulants of small lattices at the critical coupling; docs/validation.md has them and tests the form.
EXACT = {6: 0.606536, 7: 0.606934, 8: 0.607316}
POWERS = (-7 / 4, -2, -3)


def finite_size(side):
    """What the exact cumulants of sides 6, 7 and 8 let expect of U(side) - U at the critical coupling."""
    amplitudes = solved([[n**p for p in POWERS] for n in EXACT], [u - KNOWN_CUMULANT for u in EXACT.values()])
    return sum(a * side**p for a, p in zip(amplitudes, POWERS))


def runs_by_replica(folder):
    """One dictionary for each replica: (side, K) -> (<m^2>, <m^4>) of its run."""
    replicas = {}
    for row in rows(folder, "runs.csv"):
        # Every bond counts half in the energy that is compared, so that the weight is exp(K s s') with K = J / 4.
        point = (int(row["imax"]), float(row["rule Unlike spins repel parameter"]) / 4)
        moments = (float(row["order_0_1_square"]), float(row["order_0_1_fourth"]))
        replicas.setdefault(int(row["replica"]), {})[point] = moments
    return list(replicas.values())


def cumulants(replicas):
    """side -> {K: U}"""
    result = {}
    for side, coupling in replicas[0]:
        square, fourth = (sum(r[side, coupling][k] for r in replicas) / len(replicas) for k in (0, 1))
        result.setdefault(side, {})[coupling] = 1 - fourth / (3 * square**2)
    return result


def pairs_of(curves):
    return [(side, 2 * side) for side in curves if 2 * side in curves]


def parabolas(curves, centre):
    """side -> (U, slope, bend) at the centre. Near the critical coupling U depends on K only by slope * (K - centre),
    so that the parabolas of all sides have one bend in units of the slope squared."""
    lines = {side: polynomial([k - centre for k in curve], list(curve.values()), 1) for side, curve in curves.items()}
    above = below = 0.0
    for side, curve in curves.items():
        squares = [(lines[side][1] * (k - centre)) ** 2 for k in curve]
        for square, u in zip(squares, curve.values()):
            above += (square - fmean(squares)) * u
            below += (square - fmean(squares)) ** 2
    result = {}
    for side, curve in curves.items():
        bend = above / below * lines[side][1] ** 2
        straight = [u - bend * (k - centre) ** 2 for k, u in curve.items()]
        result[side] = polynomial([k - centre for k in curve], straight, 1) + [bend]
    return result


def crossings(replicas, corrected):
    """For each pair of sides where the curves cross: K and U, after the finite-size terms are taken off or before."""
    curves = cumulants(replicas)
    centre = fmean(next(iter(curves.values())))
    fits, result = parabolas(curves, centre), []
    for small, large in pairs_of(curves):
        off = {side: finite_size(side) if corrected else 0.0 for side in (small, large)}
        height, slope, bend = (b - a for a, b in zip(fits[small], fits[large]))
        height -= off[large] - off[small]
        if slope**2 < 4 * height * bend:
            raise ValueError(f"the curves of {small} and {large} do not cross")
        cross = -2 * height / (slope + math.copysign(math.sqrt(slope**2 - 4 * height * bend), slope))
        result += [centre + cross, value_at(fits[small], cross) - off[small]]
    return result


def united(estimates, errors):
    """The mean with weights 1 / error^2, as a function of new estimates, so that the jackknife sees correlations."""
    weights = [e**-2 for e in errors]
    return lambda new: sum(w * n for w, n in zip(weights, new)) / sum(weights)


def main(folder, curves_file=None):
    replicas = runs_by_replica(folder)
    pairs = pairs_of(cumulants(replicas))
    for corrected in (False, True):
        values, errors = jackknife(replicas, lambda some: crossings(some, corrected))
        for k, (small, large) in enumerate(pairs):
            name = ("K_c from" if corrected else "crossing of") + f" {small} and {large}"
            told(name, values[2 * k], errors[2 * k], *((KNOWN_COUPLING, "published") if corrected else ()))
    mean_coupling, mean_cumulant = (united(values[k::2], errors[k::2]) for k in (0, 1))

    def both(some):
        each = crossings(some, True)
        return [mean_coupling(each[0::2]), mean_cumulant(each[1::2])]

    (coupling, cumulant), (coupling_error, cumulant_error) = jackknife(replicas, both)
    told("K_c", coupling, coupling_error, KNOWN_COUPLING, "published")
    told("U at K_c", cumulant, cumulant_error, KNOWN_CUMULANT, "published")

    if curves_file:
        curves = cumulants(replicas)
        keys = [(side, k) for side in curves for k in curves[side]]
        values, errors = jackknife(replicas, lambda some: [cumulants(some)[s][k] for s, k in keys])
        with open(curves_file, "w", newline="", encoding="utf-8") as table:
            writer = csv.writer(table)
            for row, ((side, k), value, error) in enumerate(zip(keys, values, errors)):
                if row > 0 and side != keys[row - 1][0]:
                    table.write("\n\n")
                writer.writerow([side, f"{k:.6g}", f"{value:.6f}", f"{error:.6f}"])


if __name__ == "__main__":
    run(main, __doc__, 1, 2)
