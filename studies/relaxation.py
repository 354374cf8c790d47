#!/usr/bin/env python3
"""The stationary state and the relaxation time of the one-spin facilitated model, from the results of relaxation.toml.

Usage: relaxation.py RESULTS [CURVES.csv]

Prints for each field the share c of mobile sites and its variance times the number of sites, which are those of
independent sites, and the integrated autocorrelation time of the number of mobile sites; then how this time grows
with 1 / c. CURVES.csv gets the times for a plot.
"""
import csv
import math
from statistics import fmean

from tables import jackknife, rows, run, told

# Above this share a mobile site mostly has mobile neighbours and is not a walker of its own.
RARE = 0.1


def runs_by_field(folder):
    """field -> one entry for each replica: <n / N>, <(n / N)^2>, autocorrelation time, and N."""
    fields = {}
    for row in rows(folder, "runs.csv"):
        sites = int(row["imax"]) * int(row["jmax"])
        fields.setdefault(float(row["type Mobile field"]), []).append(
            (float(row["count_1_mean"]) / sites, float(row["count_1_square"]) / sites**2,
             float(row["count_1_tau"]), sites))
    return fields


def estimates(replicas):
    share, square, time = (fmean(r[k] for r in replicas) for k in range(3))
    return [share, replicas[0][3] * (square - share**2), time]


def exponent_of_rare(table):
    """The slope of ln time over ln 1 / c for the fields at which mobile sites are rare, and its error."""
    rare = [(-math.log(c), math.log(time), (error / time) ** -2) for _, c, time, error in table if c < RARE]
    if len(rare) < 2:
        raise ValueError("there are not two fields with rare mobile sites")
    total = math.fsum(w for _, _, w in rare)
    centre = math.fsum(w * x for x, _, w in rare) / total
    spread = math.fsum(w * (x - centre) ** 2 for x, _, w in rare)
    return math.fsum(w * (x - centre) * y for x, y, w in rare) / spread, math.sqrt(1 / spread)


def main(folder, curves_file=None):
    table = []
    for field, replicas in sorted(runs_by_field(folder).items()):
        mobile = 1 / (1 + math.exp(field))
        values, errors = jackknife(replicas, estimates)
        told(f"share at field {field:g}", values[0], errors[0], mobile, "exact")
        told(f"variance at field {field:g}", values[1], errors[1], mobile * (1 - mobile), "exact")
        told(f"time at field {field:g}", values[2], errors[2])
        table.append((field, mobile, values[2], errors[2]))
    for (_, c1, time1, error1), (field, c2, time2, error2) in zip(table, table[1:]):
        span = math.log(c1 / c2)
        told(f"growth exponent up to field {field:g}", math.log(time2 / time1) / span,
             math.hypot(error1 / time1, error2 / time2) / span)
    told("growth exponent of the rare", *exponent_of_rare(table))

    if curves_file:
        with open(curves_file, "w", newline="", encoding="utf-8") as file:
            writer = csv.writer(file)
            for row in table:
                writer.writerow([f"{x:.6g}" for x in row])


if __name__ == "__main__":
    run(main, __doc__, 1, 2)
