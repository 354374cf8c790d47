"""Observables of a model, as the runner measures them."""

from __future__ import annotations

import re

import numpy as np

from . import _native

_COLUMN = re.compile(r"(?P<name>.*?)(?P<indices>(_\d+)*)")


def _split(column: str) -> tuple[str, tuple[int, ...]]:
    """ "c_0_12" as "c" and (0, 12). The types of an order parameter are arguments and stay in its name."""
    if column.startswith("order_"):
        return column, ()
    match = _COLUMN.fullmatch(column)
    return match["name"], tuple(int(index) for index in match["indices"].split("_")[1:])


def _array(entries: dict[tuple[int, ...], int | float], symmetric: bool) -> np.ndarray:
    """The values by their indices, each of which begins at its smallest."""
    indices = np.array(list(entries))
    first = indices.min(axis=0)
    array = np.empty(tuple(indices.max(axis=0) - first + 1), dtype=np.array(list(entries.values())).dtype)
    for place, value in zip(indices - first, entries.values()):
        array[tuple(place)] = value
        if symmetric:
            array[tuple(place[::-1])] = value
    return array


class Observation:
    """Observables of one model: `model.observe("kept", "energy")`.

    Observables that compare with the start, such as "kept", compare with the lattice of that moment. The lattice must
    keep its sides and its number of types (ValueError).
    """

    def __init__(self, core, names):
        wrong = [name for name in names if not isinstance(name, str)]
        if wrong:
            raise ValueError(f"an observable is named by a str, not by {wrong[0]!r}")
        if not names:
            raise ValueError("name at least one observable; quorvane.observables() tells what there is")
        self._core = core
        # Names of types are ASCII; what is not fits none of them.
        self._measurements = _native.Measurements(",".join(names).encode("ascii", "replace"), core)

    @property
    def columns(self) -> list[str]:
        """The names of the values, as in the tables of quorvane-batch."""
        return self._measurements.columns()

    def row(self) -> list[int | float]:
        """The values at present, in the order of `columns`."""
        return self._measurements.measure(self._core)

    def measure(self) -> dict[str, int | float | np.ndarray]:
        """The values at present, by the names of their columns without indices.

        A single value is an int or a float. Values of each pixel type are an array with the index [type]; those of a
        type and a distance or wave number an array [type][r - 1]; contacts a symmetric array [type][type].
        """
        columns, groups = self.columns, {}
        for column, value in zip(columns, self.row()):
            name, indices = _split(column)
            groups.setdefault(name, {})[indices] = value
        return {
            name: entries[()] if () in entries else _array(entries, symmetric=name == "contacts")
            for name, entries in groups.items()
        }

    def __repr__(self) -> str:
        return f"<Observation of {', '.join(self.columns)}>"


def observables() -> str:
    """What can be measured: the names of the observables, their columns, definitions, papers and costs."""
    return _native.observables_help()
