# %% [markdown]
# # First steps
#
# A document is opened, swept, looked at, measured, changed, painted and saved. The model is the
# Ising model with eight neighbours: spins up and down, where unlike neighbours cost energy.
#
# This file is a notebook in percent format. `python3 first_steps.py` runs it, too. Figures go to
# the folder `QUORVANE_FIGURES`. Nothing calls `plt.show()`, so that no display is needed:
# matplotlib then draws into files, or into the notebook. `MPLBACKEND=Agg` asks for that always.

# %%
import os
from pathlib import Path

import matplotlib.pyplot as plt
import numpy as np

import quorvane

HERE = Path(globals().get("__file__", "first_steps.py")).resolve().parent
EXAMPLES = Path(os.environ.get("QUORVANE_EXAMPLES", HERE.parent))
FIGURES = Path(os.environ.get("QUORVANE_FIGURES", "."))
SWEEPS = 100 if os.environ.get("QUORVANE_QUICK") == "1" else 400
plt.style.use(HERE / "figures.mplstyle")

# %% [markdown]
# ## Open a document
#
# All models of a process share **one** source of random numbers, and opening draws from it. So
# the seed comes first. Without `seed` a process starts with 10, as the window does.

# %%
quorvane.seed(10)
model = quorvane.Model.open(EXAMPLES / "ising-at-critical.quorvane")
model

# %% [markdown]
# A document is pixel types, rules and a lattice. A notebook shows a model as a picture; here is
# what it is made of.

# %%
print(repr(model), *model.types, *model.rules, sep="\n")

# %% [markdown]
# ## Sweep
#
# A sweep tries every site once on average. The document has random spins on the left and a disc on
# the right. At the critical coupling domains of all sizes come from both.

# %%
start = model.lattice.copy()
model.sweep(SWEEPS)
assert model.sweeps == SWEEPS

# %% [markdown]
# ## Look at the lattice
#
# `model.lattice` has the index `[i][j]`: `i` runs to the right and `j` **upwards**. Images of
# matplotlib have rows first, from the top. So the array is transposed and its origin is below.


# %%
def show(axes, lattice, title):
    axes.imshow(lattice.T, origin="lower", vmin=0, vmax=1, interpolation="nearest")
    axes.set(title=title, xlabel="i", ylabel="j")


# %%
figure, axes = plt.subplots(1, 2, figsize=(8, 3.5), sharey=True)
show(axes[0], start, "at the start")
show(axes[1], model.lattice.copy(), f"after {SWEEPS} sweeps")
figure.savefig(FIGURES / "first-steps-sweeps.svg", metadata={"Date": None})

# %% [markdown]
# `picture()` is the lattice as the window shows it, in the colours of the types. Its first row is
# the top, so that `imshow` needs nothing. Where no type leaves a trace, as here, a picture with one
# pixel for each site is the lattice itself.

# %%
colors = np.array([each.color for each in model.types])
expected = 255 * colors[model.lattice.T[::-1]]
assert np.abs(model.picture(scale=1) - expected).max() <= 0.5 + 1e-9

# %% [markdown]
# ## Measure
#
# The observables are those of `quorvane-batch`; `print(quorvane.observables())` tells all of them.

# %%
values = model.measure("energy", "contacts", "order:Spin up:Spin down")
for name, value in values.items():
    print(name, value, sep=": ")

# %% [markdown]
# The energy is half the pair energy for each pair of unlike neighbours, and the magnetisation is
# the mean of the spins. Both follow from the array, too.

# %%
spins = 2 * model.lattice.astype(int) - 1
coupling = model.pair_energies[0, 1]
assert np.isclose(values["energy"], coupling / 2 * values["contacts"][0, 1])
assert np.isclose(values["order_1_0"], spins.mean())

# %% [markdown]
# Of *N* random spins half of the 4 *N* contacts are unlike, each with a variance of 1/4. So their
# energy is *J N* with the standard deviation *J* √*N* / 2.

# %%
walk = quorvane.Model.open(EXAMPLES / "ising-at-critical.quorvane")
walk.fill({"Spin down": 0.5, "Spin up": 0.5})
sites = walk.lattice.size
deviation = walk.measure("energy")["energy"] - coupling * sites
assert abs(deviation) < 5 * coupling * np.sqrt(sites) / 2

# %% [markdown]
# An observation measures the same values again and again. Domains grow, and the energy falls.

# %%
observation = walk.observe("energy")
times = np.unique(np.geomspace(1, SWEEPS, 30).astype(int))
energies = []
for time in times:
    walk.sweep(time - walk.sweeps)
    energies.append(observation.measure()["energy"] / sites)
assert energies[-1] < energies[0] < coupling

# %%
figure, axes = plt.subplots(figsize=(5, 3.5))
axes.plot(times, energies, "o-")
axes.set(xscale="log", xlabel="time (sweeps)", ylabel="energy of a site (kT)")
figure.savefig(FIGURES / "first-steps-energy.svg", metadata={"Date": None})

# %% [markdown]
# ## Change a rule
#
# The pair energy is the parameter of a rule. At three times the critical one the spins are cold,
# and the energy of a site comes nearer to zero, that of equal spins.

# %%
cold = walk.copy()
cold.rules["Unlike spins repel"].parameter *= 3
cold.sweep(SWEEPS)
unlike = {name: each.measure("contacts")["contacts"][0, 1] / (4 * each.lattice.size)
          for name, each in [("critical", walk), ("cold", cold)]}
print(unlike)
assert unlike["cold"] < unlike["critical"] / 2 < 1 / 4

# %% [markdown]
# A value that does not fit is refused, and then nothing has changed.

# %%
try:
    cold.rules["Unlike spins repel"].parameter = 11
except ValueError as error:
    print(error)
assert np.isclose(cold.pair_energies[0, 1], 3 * coupling)

# %% [markdown]
# ## Paint
#
# What is assigned to elements of the lattice is painted into the model: a block of up spins and,
# with a mask, a disc of down spins in it.

# %%
painted = cold.copy()
painted.lattice[60:196, 40:168] = 1
i, j = np.indices(painted.shape)
painted.lattice[np.hypot(i - 128, j - 104) < 40] = 0
before = painted.lattice.copy()
painted.sweep(SWEEPS)

# %%
figure, axes = plt.subplots(1, 2, figsize=(8, 3.5), sharey=True)
show(axes[0], before, "cold and painted")
show(axes[1], painted.lattice.copy(), f"{SWEEPS} sweeps later")
figure.savefig(FIGURES / "first-steps-painted.svg", metadata={"Date": None})

# %% [markdown]
# ## Repeat a run
#
# The same seed, the same document and the same sweeps give the same lattice, bit for bit. Every
# number that is drawn in between makes another run. That is why the seed comes before `open`.


# %%
def run(seed):
    quorvane.seed(seed)
    again = quorvane.Model.open(EXAMPLES / "ising-at-critical.quorvane")
    again.sweep(SWEEPS)
    return again


# %%
assert np.array_equal(run(10).lattice, model.lattice)
assert not np.array_equal(run(11).lattice, model.lattice)

# %% [markdown]
# ## Save
#
# A saved document opens in the window, too. It holds the lattice, the types and the rules, but
# not the state of the random numbers.

# %%
painted.save(FIGURES / "painted.quorvane")
assert np.array_equal(quorvane.Model.open(FIGURES / "painted.quorvane").lattice, painted.lattice)
