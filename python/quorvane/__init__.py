"""Stochastic lattice models: the engine of Quorvane in Python.

    import quorvane

    model = quorvane.Model.open("ising-at-critical.quorvane")
    model.sweep(50)
    print(model.measure("energy")["energy"], model.lattice[:].mean())

A document gives the same bits here as in the window and in quorvane-batch. The random numbers come from ONE source that
all models of the process share: see `seed`.
"""

from . import _native
from ._fields import RULE_KINDS, PixelType, PixelTypes, Rule, Rules
from ._lattice import Lattice
from ._measure import Observation, observables
from ._model import Model
from ._source import getstate, random, seed, setstate
from ._study import Study, read_study

__version__ = _native.VERSION
__all__ = [
    "Lattice", "Model", "Observation", "PixelType", "PixelTypes", "RULE_KINDS", "Rule", "Rules", "Study", "getstate",
    "observables", "random", "read_study", "seed", "setstate",
]
