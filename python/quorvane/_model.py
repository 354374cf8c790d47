"""The model: a lattice with its pixel types and rules."""

from __future__ import annotations

import operator
import os
import warnings
from collections.abc import Mapping

import numpy as np

from . import _native
from ._fields import PixelTypes, Rules, named_type, type_names
from ._lattice import Lattice, as_array, checked_types
from ._measure import Observation


def _count(value, what: str) -> int:
    try:
        count = operator.index(value)
    except TypeError:
        raise ValueError(f"the number of {what} is a whole number, not {value!r}") from None
    if not 0 <= count < 2**63:
        raise ValueError(f"the number of {what} is 0 or more and below 2**63, not {count}")
    return count


def _sides(sides) -> tuple[int, int]:
    try:
        imax, jmax = (sides, sides) if not hasattr(sides, "__len__") else sides
        imax, jmax = operator.index(imax), operator.index(jmax)
    except (TypeError, ValueError):
        raise ValueError(f"sides: {sides!r} is neither a whole number nor (Imax, Jmax)") from None
    if not (1 <= min(imax, jmax) and max(imax, jmax) <= _native.MAX_SIDE):
        raise ValueError(f"sides: {sides!r}; a lattice has sides from 1 to {_native.MAX_SIDE}")
    return imax, jmax


def _names(types) -> tuple[list[str], bool]:
    """The names of new pixel types from their number or their names, and whether they were given."""
    try:
        # The name that the engine gives to all.
        names, are_given = ["Pixel"] * max(0, min(operator.index(types), _native.MAX_TYPES + 1)), False
    except TypeError:
        try:
            names, are_given = [types] if isinstance(types, str) else list(types), True
        except TypeError:
            raise ValueError(f"types: {types!r} is neither a number of pixel types nor their names") from None
    if not 1 <= len(names) <= _native.MAX_TYPES:
        raise ValueError(f"types: a model has 1 to {_native.MAX_TYPES} pixel types")
    for name in names:
        if not isinstance(name, str):
            raise ValueError(f"types: a name is a str, not {type(name).__name__}")
        _native.Core.require_name(name)
    return names, are_given


def _shares(density, names: list[str], core=None) -> list[tuple[int, float]]:
    """The index and the share of each pixel type that has one."""
    if isinstance(density, Mapping):
        pairs = []
        for key, share in density.items():
            try:
                pairs.append((named_type(key, names, core), share))
            except (TypeError, ValueError) as error:
                raise ValueError(f"density: {error}") from None
    else:
        try:
            pairs = list(enumerate(density))
        except TypeError:
            raise ValueError(f"density: {density!r} is neither a list of shares nor a dict") from None
        if len(pairs) != len(names):
            raise ValueError(f"density: there are {len(names)} pixel types, not {len(pairs)}")
    for index, _ in pairs:
        if [other for other, _ in pairs].count(index) > 1:
            raise ValueError(f'density: two shares are of the pixel type {index} "{names[index]}"')
    try:
        shares = [(index, float(share)) for index, share in pairs]
    except (TypeError, ValueError, OverflowError):
        raise ValueError(f"density: {density!r} has a share that is no number") from None
    _native.Core.require_density(shares)
    return shares


class Model:
    """A lattice with its pixel types and rules: what a document holds, and what the window and the runner run.

    Made by `Model.open`, `Model.new`, `copy` or `pickle`. A new process draws the same random numbers as the window and
    quorvane-batch, so the same document gives the same lattice after the same sweeps, bit for bit. All models of a
    process share one source of random numbers: see `quorvane.seed`.

    A model may be used from any thread, one at a time: while one sweeps, every use of the model in another but `sweeps`
    raises RuntimeError, and so does everything that draws.
    """

    __slots__ = ("_core", "__weakref__")

    def __init__(self):
        raise TypeError("a model is made by Model.open or Model.new")

    @classmethod
    def _of(cls, core) -> Model:
        model = object.__new__(cls)
        model._core = core
        return model

    @classmethod
    def open(cls, path_or_text: str | os.PathLike) -> Model:
        """Opens a document, which is a file, or a str of more than one line that is its text.

        Draws a random type for each site and then the colours of the types, as the window does, before it reads them.
        Raises OSError if the file cannot be read, and ValueError with the line if it is no whole document.
        """
        is_text = isinstance(path_or_text, str) and "\n" in path_or_text
        if is_text:
            where, content = "document", path_or_text
        else:
            where = os.fspath(path_or_text)
            if not isinstance(where, str):
                where = os.fsdecode(where)
            if "\0" in where:
                raise ValueError("path: a path has no null character")
            content = _native.Core.file_content(where)
        core = _native.Core()
        refused = core.read_text(content)
        if refused:
            raise ValueError(f"{where}: {refused}")
        return cls._of(core)

    @classmethod
    def new(cls, sides=100, types=2, density=None) -> Model:
        """Makes a random lattice without rules.

        sides: (Imax, Jmax) or one number for both, 1 to 256. types: how many pixel types, 1 to 10, or their names.
        density: the share of the sites that each type holds on average, as in `fill`; equal shares if None.

        Draws the type of each site, i outer and j inner, then red, green and blue of each type but the first, which is
        black; with densities one more number for each site. Raises ValueError.
        """
        imax, jmax = _sides(sides)
        names, are_given = _names(types)
        # Everything is checked before anything is drawn.
        shares = None if density is None else _shares(density, names)
        core = _native.Core()
        core.initialise(len(names), imax, jmax)
        model = cls._of(core)
        if are_given:
            for each, name in zip(model.types, names):
                each.name = name
        if shares is not None:
            core.fill(shares)
        return model

    def text(self) -> str:
        """The document as text, the same that `save` writes."""
        return self._core.text()

    def save(self, path: str | os.PathLike) -> None:
        """Writes the document to a file, which is the whole old one until the new one is whole and on the disk.

        Raises OSError, and then the old file is unchanged.
        """
        note = self._core.save(os.fsdecode(path))
        if note:
            warnings.warn(f"{os.fsdecode(path)} {note}", stacklevel=2)

    def sweep(self, n: int = 1, *, traces: bool = True) -> None:
        """Makes n sweeps, each of Imax * Jmax + 1 attempts at random sites.

        Other threads run meanwhile. Ctrl-C ends it with KeyboardInterrupt after a whole sweep; the model stays good and
        `sweeps` tells how many were made. With traces=False it is faster, and pictures keep the traces of before; the
        lattice is the same.
        """
        self._core.sweep(_count(n, "sweeps"), bool(traces))

    def step(self, attempts: int = 1) -> None:
        """Makes single attempts like those of a sweep. Traces and the number of sweeps stay as they are."""
        self._core.step(_count(attempts, "attempts"))

    @property
    def sweeps(self) -> int:
        """The number of sweeps made since the model was opened or made. May be read while another thread sweeps."""
        return self._core.sweeps_done()

    @property
    def shape(self) -> tuple[int, int]:
        """(Imax, Jmax): the sites across and upwards."""
        return self._core.shape()

    @property
    def lattice(self) -> Lattice:
        """The pixel types of the sites, with the index [i][j], to be read and written: see `Lattice`.

        `model.lattice = array` sets all sites; the array has the shape (Imax, Jmax) and indices of pixel types as whole
        numbers, else ValueError.
        """
        return Lattice(self._core)

    @lattice.setter
    def lattice(self, values) -> None:
        array = as_array(values)
        if array.shape != self.shape:
            raise ValueError(f"the lattice has the shape {self.shape}, not {array.shape}")
        self.lattice[...] = checked_types(array, self._core.num_types())

    @property
    def types(self) -> PixelTypes:
        """The pixel types, by index or name."""
        return PixelTypes(self._core)

    @property
    def rules(self) -> Rules:
        """The rules, by index or name."""
        return Rules(self._core)

    @property
    def pair_energies(self) -> np.ndarray:
        """The pair energies J in kT as a symmetric array of float, index [type][type]: a copy.

        They are written when an interaction among the rules is added, changed, disabled, enabled or deleted.
        """
        return self._core.pair_energies()

    @property
    def populations(self) -> np.ndarray:
        """The number of sites that hold each type, an array of int with the index [type]."""
        return self._core.populations()

    def remake(self, sides) -> None:
        """Makes a random lattice of other sides, (Imax, Jmax) or one number for both; types and rules stay.

        Draws the type of each site, i outer and j inner. Raises ValueError.
        """
        self._core.initialise(-1, *_sides(sides))

    def fill(self, density) -> None:
        """Gives every site a random type.

        density: the share of the sites for each type on average, 0 to 1: a list in the order of the types, or a dict
        by name or index, where types that are left out get none. The shares add up to 1 within 1e-9. One draw for each
        site, i outer and j inner. Raises ValueError, and then nothing has changed.
        """
        self._core.fill(_shares(density, type_names(self._core), self._core))

    def observe(self, *names: str) -> Observation:
        """Observables to be measured again and again, with the present lattice as their start."""
        return Observation(self._core, names)

    def measure(self, *names: str) -> dict[str, int | float | np.ndarray]:
        """Measures observables of the present lattice: `model.measure("energy", "clusters")["energy"]`.

        The keys are the columns of quorvane-batch without indices, the values int, float, or arrays over types and
        distances: see `Observation.measure`. `quorvane.observables()` tells what there is. Raises ValueError.
        """
        return self.observe(*names).measure()

    def picture(self, scale: int = _native.DEFAULT_SCALE) -> np.ndarray:
        """The lattice as the window shows it: an array of uint8 of shape (rows, columns, 3), red, green and blue.

        scale: pixels for each site, 1 to 32. The first row is the top, j = Jmax - 1. Traces are faded as in the window.
        """
        return self._core.picture(self._scale(scale))

    def png(self, scale: int = _native.DEFAULT_SCALE) -> bytes:
        """The same picture as the content of a PNG file."""
        return self._core.png(self._scale(scale))

    def copy(self) -> Model:
        """A model of its own in the same state."""
        core = _native.Core()
        core.restore(self._core.state())
        return self._of(core)

    def __copy__(self) -> Model:
        return self.copy()

    def __deepcopy__(self, memo) -> Model:
        return self.copy()

    def __reduce__(self):
        return _unpickled, (self.text(), self._core.state())

    def __repr__(self) -> str:
        try:
            imax, jmax = self.shape
        except RuntimeError:
            return f"<quorvane.Model, swept by another thread, {self.sweeps} sweeps>"
        return (f"<quorvane.Model {imax} x {jmax}, {len(self.types)} types, {len(self.rules)} rules, "
                f"{self.sweeps} sweeps>")

    def _repr_png_(self) -> bytes:
        return self.png(max(1, min(8, 512 // max(self.shape))))

    @staticmethod
    def _scale(scale) -> int:
        if isinstance(scale, (int, np.integer)) and 1 <= scale <= _native.MAX_SCALE:
            return int(scale)
        raise ValueError(f"scale: a site has 1 to {_native.MAX_SCALE} pixels, not {scale!r}")


def _unpickled(text: str, state: bytes) -> Model:
    """The model of a pickle: its document, and all else that a checkpoint keeps of it."""
    core = _native.Core()
    try:
        core.restore(state)
    except ValueError as error:
        raise ValueError(f"the pickled model {error}") from None
    if core.text() != text:
        raise ValueError("the pickled model is damaged (its state is not that of its document)")
    return Model._of(core)
