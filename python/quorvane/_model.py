"""The model: a lattice with its pixel types and rules."""

from __future__ import annotations

import operator
import os
import warnings
from collections.abc import Mapping

import numpy as np

from . import _native, _values
from ._fields import PixelTypes, Rules, type_among, type_names
from ._lattice import Lattice, as_array
from ._measure import Observation
from ._values import shown, whole

_LARGEST = 2**63 - 1


def _sides(sides) -> tuple[int, int]:
    try:
        imax, jmax = sides if hasattr(sides, "__len__") else (sides, sides)
        imax, jmax = operator.index(imax), operator.index(jmax)
    except (TypeError, ValueError):
        raise ValueError(f"sides: {shown(sides)} is neither a whole number nor (Imax, Jmax)") from None
    if not (1 <= min(imax, jmax) and max(imax, jmax) <= _native.MAX_SIDE):
        raise ValueError(f"sides: {shown(sides)}; a lattice has sides from 1 to {_native.MAX_SIDE}")
    return imax, jmax


def _names(types) -> list[str] | None:
    """The names of pixel types from their names, checked; None if they are not names."""
    if isinstance(types, str) or not hasattr(types, "__iter__"):
        return None
    names = list(types)
    for name in names:
        _native.Core.require_name(_values.name(name, "types"))
    return names


def _shares(density, names: list[str], core=None) -> list[tuple[int, float]]:
    """The index and the share of each pixel type that has one."""
    if isinstance(density, Mapping):
        try:
            pairs = [(type_among(names, key, core), share) for key, share in density.items()]
        except (TypeError, ValueError) as error:
            raise ValueError(f"density: {error}") from None
    else:
        try:
            pairs = list(enumerate(density))
        except TypeError:
            raise ValueError(f"density: {shown(density)} is neither a list of shares nor a dict") from None
        if len(pairs) != len(names):
            raise ValueError(f"density: there are {len(names)} pixel types, not {len(pairs)}")
    shares: dict[int, float] = {}
    for index, share in pairs:
        what = f'density: the share of pixel type {index} "{names[index]}"'
        if index in shares:
            raise ValueError(f"{what} is given twice")
        shares[index] = _values.real(share, what)
        if not 0 <= shares[index] <= 1:
            raise ValueError(f"{what} is from 0 to 1, not {shares[index]}")
    _native.Core.require_density(list(shares.items()))
    return list(shares.items())


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
        if isinstance(path_or_text, (str, bytes)) and "\n" in os.fsdecode(path_or_text):
            text = path_or_text
            where, content = "document", text if isinstance(text, bytes) else text.encode("utf-8", "surrogatepass")
        else:
            path = _values.path(path_or_text)
            where, content = os.fsdecode(path), _native.Core.file_content(path)
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
        # Everything is checked before anything is drawn.
        names = _names(types)
        number = whole(types if names is None else len(names), "types: the number of pixel types", 1, _native.MAX_TYPES)
        # Types without a name of their own are called as the engine calls all.
        shares = None if density is None else _shares(density, names or ["Pixel"] * number)
        core = _native.Core()
        core.initialise(number, imax, jmax)
        model = cls._of(core)
        for each, name in zip(model.types, names or []):
            each.name = name
        if shares is not None:
            core.fill(shares)
        return model

    def text(self) -> str:
        """The document as text, the same that `save` writes."""
        return self._core.text().decode("ascii")

    def save(self, path: str | os.PathLike) -> None:
        """Writes the document to a file, which is the whole old one until the new one is whole and on the disk.

        Raises OSError, and then the old file is unchanged.
        """
        note = self._core.save(_values.path(path))
        if note:
            warnings.warn(f"{os.fsdecode(path)} {note}", stacklevel=2)

    def sweep(self, n: int = 1, *, traces: bool = True) -> None:
        """Makes n sweeps, each of Imax * Jmax + 1 attempts at random sites.

        Other threads run meanwhile. Ctrl-C ends it with KeyboardInterrupt after a whole sweep; the model stays good and
        `sweeps` tells how many were made. With traces=False it is faster, and pictures keep the traces of before; the
        lattice is the same.
        """
        self._core.sweep(whole(n, "the number of sweeps", 0, _LARGEST), bool(traces))

    def step(self, attempts: int = 1) -> None:
        """Makes single attempts like those of a sweep. Traces and the number of sweeps stay as they are."""
        self._core.step(whole(attempts, "the number of attempts", 0, _LARGEST))

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
        self.lattice[...] = array

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
        return self._with_attributes(self._of(core))

    def _with_attributes(self, other: Model) -> Model:
        """Gives another object the attributes that a derived class has added to this one."""
        if hasattr(self, "__dict__"):
            other.__dict__.update(self.__dict__)
        return other

    def __copy__(self) -> Model:
        return self.copy()

    def __deepcopy__(self, memo) -> Model:
        return self.copy()

    def __reduce__(self):
        return _unpickled, (type(self), self.text(), self._core.state()), getattr(self, "__dict__", None) or None

    def __repr__(self) -> str:
        try:
            imax, jmax = self.shape
        except RuntimeError:
            return f"<quorvane.Model, swept by another thread, {self.sweeps} sweeps>"
        return (f"<quorvane.Model {imax} x {jmax}, {len(self.types)} types, {len(self.rules)} rules, "
                f"{self.sweeps} sweeps>")

    def _repr_png_(self) -> bytes | None:
        try:
            return self.png(max(1, min(8, 512 // max(self.shape))))
        except RuntimeError:
            return None  # Another thread sweeps it; a notebook then shows the text.

    @staticmethod
    def _scale(scale) -> int:
        return whole(scale, "scale: the number of pixels for a site", 1, _native.MAX_SCALE)


def _unpickled(cls: type[Model], text: str, state: bytes) -> Model:
    """The model of a pickle: its document, and all else that a checkpoint keeps of it."""
    core = _native.Core()
    try:
        core.restore(state)
    except ValueError as error:
        raise ValueError(f"the pickled model {error}") from None
    if core.text() != text.encode():
        raise ValueError("the pickled model is damaged (its state is not that of its document)")
    return cls._of(core)
