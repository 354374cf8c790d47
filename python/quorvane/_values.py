"""Values from users as the engine takes them. What does not fit raises ValueError, which says what was given."""

from __future__ import annotations

import operator
import os
import reprlib

import numpy as np


def shown(value) -> str:
    """A value in a message: one line, not too long."""
    return " ".join(reprlib.repr(value).split())


def whole(value, what: str, lowest: int, highest: int) -> int:
    try:
        number = operator.index(value)
    except TypeError:
        raise ValueError(f"{what} is a whole number, not {shown(value)}") from None
    if not lowest <= number <= highest:
        raise ValueError(f"{what} is from {lowest} to {highest}, not {shown(number)}")
    return number


def real(value, what: str) -> float:
    try:
        if isinstance(value, (str, bytes, bytearray)):
            raise TypeError
        return float(value)
    except (TypeError, ValueError, OverflowError):
        raise ValueError(f"{what}: {shown(value)} is not a number") from None


def flag(value, what: str) -> bool:
    if isinstance(value, (int, np.integer, np.bool_)) and value in (0, 1):
        return bool(value)
    raise ValueError(f"{what}: {shown(value)} is neither True nor False")


def name(value, what: str) -> str:
    if not isinstance(value, str):
        raise ValueError(f"{what}: a name is a str, not {type(value).__name__}")
    if not value.isascii():
        raise ValueError(f"{what}: a name has printable ASCII characters only")
    return value


def color(value, what: str) -> list[float]:
    try:
        parts = [float(part) for part in value]
    except (TypeError, ValueError, OverflowError):
        parts = []
    if len(parts) != 3:
        raise ValueError(f"{what}: {shown(value)} is not (red, green, blue), each from 0 to 1")
    return parts


def path(value) -> bytes:
    """The name of a file as the system takes it."""
    encoded = os.fsencode(value)
    if b"\0" in encoded:
        raise ValueError(f"path: {shown(value)} has a null character")
    return encoded
