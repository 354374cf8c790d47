"""The source of random numbers."""

from __future__ import annotations

from . import _native
from ._values import whole


def seed(s: int) -> None:
    """Starts the random numbers of this process anew, as C's srand(s) does; s is 1 to 2147483647.

    There is ONE source for the whole process: all models share it, and so does `quorvane.random`. A process that never
    calls this starts with 10, like the window and quorvane-batch. To repeat a run, call it before the model is opened,
    since opening draws, too. Processes that were forked go on with the same numbers until each has its own seed.
    """
    _native.seed(whole(s, "a seed", 1, 2**31 - 1))


def random() -> float:
    """The next random number of the process, uniform in [0, 1): a multiple of 2**-31. Models draw the same sequence."""
    return _native.random()


def getstate() -> bytes:
    """The state of the source of random numbers, for `setstate`. The same on every machine."""
    return _native.getstate()


def setstate(state: bytes) -> None:
    """Goes on with the random numbers where `getstate` was called. Raises ValueError for other bytes."""
    if not isinstance(state, (bytes, bytearray)):
        raise TypeError(f"a state is bytes, not {type(state).__name__}")
    try:
        _native.setstate(bytes(state))
    except ValueError as error:
        raise ValueError(f"the state {error}") from None
