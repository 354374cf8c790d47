# %% [markdown]
# # From a study to a figure
#
# A study makes many runs over a grid of parameters on all cores, and tables with errors. Here it
# measures the specific heat of small Ising lattices with eight neighbours over the coupling. On
# 4 × 4 sites all 65,536 states can be counted: this curve is exact.
#
# The program `quorvane-study` is found in the path; the environment variable `QUORVANE_STUDY` can
# name another one.

# %%
import os
import subprocess
import tempfile
from pathlib import Path

import matplotlib.pyplot as plt
import numpy as np

import quorvane

HERE = Path(globals().get("__file__", "study_to_figure.py")).resolve().parent
EXAMPLES = Path(os.environ.get("QUORVANE_EXAMPLES", HERE.parent)).resolve()
FIGURES = Path(os.environ.get("QUORVANE_FIGURES", "."))
PROGRAM = os.environ.get("QUORVANE_STUDY", "quorvane-study")
QUICK = os.environ.get("QUORVANE_QUICK") == "1"
plt.style.use(HERE / "figures.mplstyle")

# %% [markdown]
# ## The study file
#
# The coupling *K* is a quarter of the rule's parameter. Each point of the grid has some runs with
# seeds of their own, whose scatter gives the errors. All spins are up at the start: random ones
# could freeze in stripes, which last long.

# %%
SIDES = [4, 8] if QUICK else [4, 8, 16, 32]
STUDY = f"""
document = "{(EXAMPLES / "ising-at-critical.quorvane").as_posix()}"
sweeps   = {5000 if QUICK else 10000}
discard  = {500 if QUICK else 1000}
every    = 5
replicas = 16
observables = ["energy"]

[lattice]
sides = {SIDES}
fill  = {{ "Spin up" = 1.0 }}

[[vary]]
rule = "Unlike spins repel"
parameter = {{ from = 0.5, to = 1.0, steps = 21 }}
"""

# %% [markdown]
# ## The runs
#
# The results are in a folder of their own. If the program is interrupted, the same command goes on.
# Give the folder a lasting place instead of a temporary one to keep it.

# %%
work = tempfile.TemporaryDirectory()
file, results = Path(work.name) / "heat.toml", Path(work.name) / "heat.results"
file.write_text(STUDY, encoding="utf-8")
subprocess.run([PROGRAM, "run", file, "--results", results], check=True)

# %% [markdown]
# ## The tables
#
# `points` has a row for each point of the grid, as a structured array: a column is called by its
# name.

# %%
study = quorvane.read_study(results)
points = study.points
print(study, study.settings, points.dtype.names, sep="\n")

# %%
coupling = points["rule Unlike spins repel parameter"] / 4
heat, error = points["energy_specific_heat"], points["energy_specific_heat_error"]
assert np.all(points["replicas"] == 16)

# %% [markdown]
# ## The exact curve
#
# A state of 4 × 4 spins is a number of 16 bits. Each of four shifts of the lattice joins 16 pairs
# of neighbours, and a pair of unlike spins has the energy 2 *K*.

# %%
states = np.arange(2**16)[:, None] >> np.arange(16) & 1
states = states.reshape(-1, 4, 4)
unlike = sum((states != np.roll(states, shift, axis=(1, 2))).sum(axis=(1, 2))
             for shift in [(0, 1), (1, 0), (1, 1), (1, -1)])
pairs, count = np.unique(unlike, return_counts=True)


# %%
def exact_heat(coupling):
    """The specific heat of a site of the 4 x 4 lattice: the variance of the energy by 16."""
    energy = 2 * np.multiply.outer(coupling, pairs)
    weights = count * np.exp(-energy)
    weights /= weights.sum(axis=-1, keepdims=True)
    mean = (weights * energy).sum(axis=-1)
    return ((weights * energy**2).sum(axis=-1) - mean**2) / 16


# %% [markdown]
# ## The check
#
# The points of 4 × 4 scatter around the exact curve with their errors: the sum of their squared
# deviations is about their number. A curve that is wrong by five per cent in the coupling is not
# met.

# %%
small = points["imax"] == 4
deviation = (heat[small] - exact_heat(coupling[small])) / error[small]
wrong = (heat[small] - exact_heat(1.05 * coupling[small])) / error[small]
print(f"largest deviation {abs(deviation).max():.2f}, sum of squares {(deviation**2).sum():.1f} "
      f"for {small.sum()} points; with a wrong coupling {(wrong**2).sum():.1f}")
assert abs(deviation).max() < 5
assert (deviation**2).sum() < 3 * small.sum() < (wrong**2).sum()

# %% [markdown]
# Larger lattices have a higher peak. It grows with the logarithm of the side: by about the same for
# each doubling.

# %%
peaks = [heat[points["imax"] == side].max() for side in SIDES]
print(dict(zip(SIDES, np.round(peaks, 4))))
assert peaks == sorted(peaks)

# %% [markdown]
# ## The figure

# %%
figure, axes = plt.subplots(figsize=(6, 4.2))
fine = np.linspace(coupling.min(), coupling.max(), 200)
axes.plot(fine, exact_heat(fine), color="black", linewidth=1, label="4 × 4, exact")
for side, marker in zip(SIDES, "os^D"):
    rows = points["imax"] == side
    axes.errorbar(coupling[rows], heat[rows], error[rows], fmt=marker, linewidth=1,
                  label=f"{side} × {side}")
axes.axvline(0.1901926807, color="gray", linestyle="--", linewidth=1, label="critical coupling")
axes.set(xlabel="coupling $K$ (units of $kT$)", ylabel="specific heat of a site (units of $k$)")
axes.legend(loc="upper left")
figure.savefig(FIGURES / "study-to-figure.svg", metadata={"Date": None})

# %%
work.cleanup()
