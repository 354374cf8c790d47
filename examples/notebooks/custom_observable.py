# %% [markdown]
# # An observable of your own
#
# In the facilitated model of a glass (G. H. Fredrickson and H. C. Andersen, Phys. Rev. Lett. 53,
# 1244, 1984) a site can flip only if two of its eight neighbours are mobile. All others are
# **blocked**. The module does not measure how many mobile neighbours the sites have; a few lines of
# NumPy do.
#
# The known value: in equilibrium the constraint leaves no trace. Each site is mobile on its own
# with the share *c* = 1 / (1 + exp(*h*)), *h* the field. So the number of mobile neighbours has the
# **binomial distribution** of 8 trials with the probability *c*. Far from equilibrium it has not.

# %%
import os
from math import comb
from pathlib import Path

import matplotlib.pyplot as plt
import numpy as np

import quorvane

HERE = Path(globals().get("__file__", "custom_observable.py")).resolve().parent
EXAMPLES = Path(os.environ.get("QUORVANE_EXAMPLES", HERE.parent))
FIGURES = Path(os.environ.get("QUORVANE_FIGURES", "."))
QUICK = os.environ.get("QUORVANE_QUICK") == "1"
plt.style.use(HERE / "figures.mplstyle")

# %% [markdown]
# ## The observable
#
# The lattice is periodic, and so is `numpy.roll`: the sum of eight shifted lattices counts the
# mobile neighbours of every site at once.


# %%
def mobile_neighbours(model):
    """The number of mobile neighbours of each site."""
    mobile = (model.lattice == model.types["Mobile"].index).astype(int)
    steps = [(di, dj) for di in (-1, 0, 1) for dj in (-1, 0, 1) if (di, dj) != (0, 0)]
    return sum(np.roll(mobile, step, axis=(0, 1)) for step in steps)


def distribution(model):
    """The share of the sites with 0, 1, ... 8 mobile neighbours."""
    return np.bincount(mobile_neighbours(model).ravel(), minlength=9) / model.lattice.size


def binomial(share):
    """The same in equilibrium, where each site is mobile with this probability."""
    return np.array([comb(8, n) * share**n * (1 - share)**(8 - n) for n in range(9)])


# %% [markdown]
# A case to check by hand: one mobile site has eight neighbours, and each of them sees it.

# %%
model = quorvane.Model.open(EXAMPLES / "fredrickson-andersen.quorvane")
sites = model.lattice.size
model.lattice[...] = model.types["Frozen again"].index
model.lattice[0, 0] = model.types["Mobile"].index
assert np.array_equal(distribution(model) * sites, [sites - 8, 8, 0, 0, 0, 0, 0, 0, 0])

# %% [markdown]
# ## A quench
#
# The runs start in the equilibrium of no field, where half of the sites are mobile, and go on
# with a field of 2. Mobile sites freeze until they block each other. Each run has a seed of its
# own, so that the runs are independent.
#
# The distribution is measured at times that are evenly spaced in their logarithm, and then every
# 20 sweeps in equilibrium. Rows of one run are correlated, so a run gives one mean of them, and the
# scatter of the runs gives the error.

# %%
FIELD = 2.0
RUNS = 10 if QUICK else 100
TIMES = np.unique(np.geomspace(1, 1000, 25).astype(int))


def quench(seed):
    """The distributions at the start and at TIMES, and their mean in equilibrium."""
    quorvane.seed(seed)
    model = quorvane.Model.open(EXAMPLES / "fredrickson-andersen.quorvane")
    model.types["Mobile"].field = FIELD
    model.fill({"Frozen again": 0.5, "Mobile": 0.5})
    rows = [distribution(model)]
    for time in TIMES:
        model.sweep(time - model.sweeps, traces=False)
        rows.append(distribution(model))
    late = []
    for _ in range(50):
        model.sweep(20, traces=False)
        late.append(distribution(model))
    return rows, np.mean(late, axis=0)


# %%
runs = [quench(seed) for seed in range(1, RUNS + 1)]
histories = np.array([rows for rows, _ in runs])
equilibria = np.array([late for _, late in runs])

# %% [markdown]
# ## Against the exact values
#
# At the start, which is drawn at random, and in the end the distribution is binomial. (Seven and
# eight mobile neighbours are too rare in the end for an error from a few runs.)


# %%
def mean_and_error(values):
    """The mean over the runs and its standard error."""
    return values.mean(axis=0), values.std(axis=0, ddof=1) / np.sqrt(len(values))


# %%
start, start_error = mean_and_error(histories[:, 0])
end, end_error = mean_and_error(equilibria)
exact = binomial(1 / (1 + np.exp(FIELD)))
for n in range(7):
    deviation = (end[n] - exact[n]) / end_error[n]
    print(f"{n}: {end[n]:.6f} ± {end_error[n]:.6f}, exact {exact[n]:.6f}: {deviation:+.2f}")
assert np.all(abs(start - binomial(0.5)) < 5 * start_error)
assert np.all(abs(end - exact)[:7] < 5 * end_error[:7])

# %% [markdown]
# In between it is not, not even with the mobile share of that time, which is an eighth of the mean
# number of mobile neighbours. Mobile sites freeze only where others are beside them. That thins out
# dense places and leaves sparse ones alone, so that the numbers have a smaller variance than at
# random. While their mean is large, too few of them are 0 or 1, and too few sites are blocked;
# later too many. A theory of independent sites misses both.

# %%
mobile = histories @ np.arange(9) / 8
blocked = histories[:, :, :2].sum(axis=2)
independent = (1 - mobile)**8 + 8 * mobile * (1 - mobile)**7
difference, difference_error = mean_and_error(blocked - independent)
for time, value, error in zip([0, *TIMES], difference, difference_error):
    print(f"after {time} sweeps: {value:+.5f} ± {error:.5f}")

# %%
variance, variance_error = mean_and_error(
    (histories @ np.arange(9)**2 - (8 * mobile)**2) / (8 * mobile * (1 - mobile)))
assert np.all(variance[1:10] < 1 - 10 * variance_error[1:10])
assert abs(difference[0]) < 5 * difference_error[0]
assert np.any(difference < -10 * difference_error)
assert np.any(difference > 4 * difference_error)

# %% [markdown]
# ## The figure
#
# Errors are shorter than the symbols. The start is drawn at half a sweep, for the logarithm.

# %%
figure, (left, right) = plt.subplots(1, 2, figsize=(9, 3.8))
mean, error = mean_and_error(blocked)
left.errorbar([0.5, *TIMES], mean, error, fmt="o", label="measured")
left.plot([0.5, *TIMES], independent.mean(axis=0), "--", label="independent sites, same share")
left.axhline(exact[:2].sum(), color="black", linewidth=1, label="exact, in equilibrium")
left.set(xscale="log", xlabel="time (sweeps)", ylabel="share of blocked sites")
left.legend(loc="lower right", fontsize="small")

# %%
early = list(TIMES).index(4) + 1
middle, middle_error = mean_and_error(histories[:, early])
for label, values, errors, share, marker in [
        ("start", start, start_error, 0.5, "o"),
        ("after 4 sweeps", middle, middle_error, mobile[:, early].mean(), "s"),
        ("equilibrium", end, end_error, 1 / (1 + np.exp(FIELD)), "^")]:
    points = right.errorbar(range(9), values, errors, fmt=marker, label=label, markersize=6)
    right.plot(range(9), binomial(share), ":", color=points[0].get_color())
right.plot([], [], ":", color="black", label="binomial, same share")
right.set(xlabel="mobile neighbours", ylabel="share of sites", ylim=(0, None))
right.legend(fontsize="small")
figure.savefig(FIGURES / "custom-observable.svg", metadata={"Date": None})
