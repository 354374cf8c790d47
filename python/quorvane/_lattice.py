"""The lattice of a model as an array that reads and writes the model itself."""

from __future__ import annotations

import functools
import operator

import numpy as np

# Methods and attributes of an array that read it. Each works on a copy of the sites.
_READERS = frozenset(
    "T all any argmax argmin argwhere astype choose clip compress cumsum diagonal dot flatten max mean min "
    "nonzero prod ptp ravel repeat reshape round searchsorted squeeze std sum swapaxes take tobytes tofile "
    "tolist trace transpose var".split()
)


def _is_site(key, shape: tuple[int, int]) -> bool:
    """True for the index (i, j) of one site, also from the end."""
    return (type(key) is tuple and len(key) == 2 and type(key[0]) is int and type(key[1]) is int
            and -shape[0] <= key[0] < shape[0] and -shape[1] <= key[1] < shape[1])


@functools.lru_cache(maxsize=8)
def _all_places(shape: tuple[int, int]) -> np.ndarray:
    """The place i * Jmax + j of every site."""
    places = np.arange(shape[0] * shape[1], dtype=np.int32).reshape(shape)
    places.flags.writeable = False
    return places


def _plain(value):
    """What NumPy computes with: an array for a lattice, a number for a pixel type or whatever else is an index."""
    if isinstance(value, Lattice):
        return value.copy()
    if hasattr(value, "__index__") and not isinstance(value, (int, np.ndarray, np.generic)):
        return operator.index(value)
    return value


def as_array(values) -> np.ndarray:
    """Values for sites as an array. ValueError if they are none."""
    try:
        return np.asarray(_plain(values))
    except OverflowError as error:
        raise ValueError(f"sites are indices of pixel types: {error}") from None


def _checked_types(array: np.ndarray, num_types: int) -> np.ndarray:
    """Types of sites as uint8. ValueError unless they are whole numbers of existing types."""
    if array.dtype.kind not in "biu":
        raise ValueError(f"sites are indices of pixel types, whole numbers, not {array.dtype}")
    if array.size and (array.min() < 0 or array.max() >= num_types):
        wrong = np.argwhere((array < 0) | (array >= num_types))[0]
        where = "" if array.ndim == 0 else f" at {[int(k) for k in wrong]}"
        raise ValueError(f"{array[tuple(wrong)]}{where} is no pixel type; there are 0 to {num_types - 1}")
    return array.astype(np.uint8)


class Lattice(np.lib.mixins.NDArrayOperatorsMixin):
    """The pixel types of the sites of a model, or of a part of its lattice.

    An array of shape (Imax, Jmax) and type uint8, with the index [i][j] or [i, j]: i runs across the picture and
    j upwards. It has no memory of its own. Reading it reads the model, and what is assigned to its elements is
    painted into the model, after a check that every value is the index of a pixel type (ValueError).

    Indexing works as for NumPy's arrays: a site gives an int, ranges and rows give a further Lattice that reads and
    writes the model, and lists of indices and masks give a copy. Arithmetic and comparisons give plain arrays. Every
    function of NumPy takes a Lattice; `copy()` and `numpy.array(lattice)` give contiguous arrays of their own.

    A part of a lattice that was remade with other sides can no longer be used (ValueError).
    """

    __slots__ = ("_core", "_shape", "_places")
    __hash__ = None  # Elements can change.

    dtype = np.dtype(np.uint8)

    def __init__(self, core, shape=None, places=None):
        shape = core.shape() if shape is None else shape
        places = _all_places(shape) if places is None else places
        for name, value in zip(self.__slots__, (core, shape, places)):
            object.__setattr__(self, name, value)

    def __setattr__(self, name, value):
        raise AttributeError(f"{name!r} of a lattice cannot be set; assign to its elements: lattice[...] = 0")

    def _is_whole(self) -> bool:
        return self._places is _all_places(self._shape)

    @property
    def shape(self) -> tuple[int, ...]:
        """(Imax, Jmax) of the whole lattice."""
        return self._places.shape

    @property
    def ndim(self) -> int:
        """The number of axes, 2 of the whole lattice."""
        return self._places.ndim

    @property
    def size(self) -> int:
        """The number of sites."""
        return self._places.size

    def __len__(self) -> int:
        return len(self._places)

    def __iter__(self):
        return (self[k] for k in range(len(self)))

    def __getitem__(self, key):
        if self._is_whole() and _is_site(key, self._shape):
            self._require_shape()
            return self._core.site(*key)
        places = self._places[key]
        if not isinstance(places, np.ndarray):
            self._require_shape()
            return self._core.site(*divmod(int(places), self._shape[1]))
        if np.may_share_memory(places, self._places):
            return Lattice(self._core, self._shape, places)
        self._require_shape()
        return self._core.sites().ravel()[places]

    def __setitem__(self, key, value):
        places = np.asarray(self._places[key])
        array = as_array(value)
        if np.broadcast_shapes(array.shape, places.shape) != places.shape:
            raise ValueError(f"values of shape {array.shape} do not fit sites of shape {places.shape}")
        types = _checked_types(array, self._core.num_types())
        self._require_shape()
        self._core.paint(places.ravel(), np.broadcast_to(types, places.shape).ravel())

    def copy(self) -> np.ndarray:
        """The pixel types as a contiguous array of uint8 of its own."""
        self._require_shape()
        types = self._core.sites()
        return types if self._is_whole() else np.ascontiguousarray(types.ravel()[self._places])

    def __array__(self, dtype=None, copy=None):
        if copy is False:
            raise ValueError("a lattice can only be copied into an array")
        return self.copy() if dtype is None else self.copy().astype(dtype)

    def __array_ufunc__(self, ufunc, method, *inputs, out=None, **kwargs):
        arrays = [_plain(each) for each in inputs]
        # What is to be written into a lattice is computed beside it and then painted.
        targets = inputs[:1] if method == "at" else out or ()
        results = arrays[:1] if method == "at" else [_plain(each) for each in targets]
        if out is not None:
            kwargs["out"] = tuple(results)
        value = getattr(ufunc, method)(*arrays, **{name: _plain(each) for name, each in kwargs.items()})
        for target, result in zip(targets, results):
            if isinstance(target, Lattice):
                target[...] = result
        if out is None:
            return value
        return out[0] if len(out) == 1 else out

    def __getattr__(self, name):
        if name in _READERS:
            return getattr(self.copy(), name)
        raise AttributeError(f"a lattice has no {name!r}; lattice.copy() is a plain array")

    def __dir__(self):
        return sorted(_READERS.union(super().__dir__()))

    def __bool__(self) -> bool:
        return bool(self.copy())

    def __int__(self) -> int:
        return int(self.copy())

    def __contains__(self, value) -> bool:
        return value in self.copy()

    def __repr__(self) -> str:
        return np.array2string(self.copy(), prefix="Lattice(", separator=", ").join(("Lattice(", ")"))

    def _require_shape(self):
        if self._core.shape() != self._shape:
            raise ValueError("the lattice was remade with other sides; take model.lattice again")
