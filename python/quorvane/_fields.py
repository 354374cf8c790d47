"""Pixel types and rules of a model, and the sequences that hold them."""

from __future__ import annotations

import operator
from collections.abc import Sequence
from typing import Generic, TypeVar, Union

from . import _native, _values

TypeLike = Union[int, str, "PixelType"]
_T = TypeVar("_T")


def _listed(names) -> str:
    return ", ".join(f'{index} "{name}"' for index, name in enumerate(names)) or "none"


def _index_of(key, count: int, all_names, what: str, error: type[Exception]) -> int:
    """The place that an index, also one from the end, or a name stands for. all_names gives the names in order."""
    if isinstance(key, str):
        names = all_names()
        found = [index for index, name in enumerate(names) if name == key]
        if len(found) == 1:
            return found[0]
        why = f"no {what} is called" if not found else f"several {what}s are called"
        raise error(f'{why} "{key}"; there are {_listed(names)}')
    try:
        index = operator.index(key)
    except TypeError:
        raise TypeError(f"a {what} is chosen by its index or name, not by {type(key).__name__}") from None
    if not -count <= index < count:
        raise error(f"there is no {what} {_values.shown(index)}; there are {_listed(all_names())}")
    return index % count


def type_names(core) -> list[str]:
    return [core.type_name(index) for index in range(core.num_types())]


def type_among(names: list[str], key: TypeLike, core=None) -> int:
    """The index of the type among names that an argument stands for. ValueError if there is none.

    A PixelType must be of the model with the core.
    """
    if isinstance(key, PixelType) and key._core is not core:
        raise ValueError(f"{key!r} is of another model")
    return _index_of(key, len(names), lambda: names, "pixel type", ValueError)


def _type_or_none(core, key: TypeLike | None) -> int:
    """The same for a model; None, which stands for any type or for none, is -1 in the engine."""
    return -1 if key is None else type_among(type_names(core), key, core)


def _neighbours(value, field: str) -> int:
    return _values.whole(value, f"{field}: the number of neighbours", 0, 8)


def _other_type(core, value, field: str) -> int:
    try:
        return _type_or_none(core, value)
    except (TypeError, ValueError) as error:
        raise ValueError(f"{field}: {error}") from None


def _none_if_negative(index: int) -> int | None:
    return None if index < 0 else index


def _plain(convert):
    """A conversion that needs no model."""
    return lambda core, value, field: convert(value, field)


# How the value of a field is made what the engine takes. Each raises ValueError, which begins with the field.
_CONVERSIONS = {
    "name": _plain(_values.name), "color": _plain(_values.color), "persistence": _plain(_values.real),
    "opacity": _plain(_values.real), "immobile": _plain(_values.flag), "masquerade": _other_type,
    "field": _plain(_values.real), "parameter": _plain(_values.real), "disabled": _plain(_values.flag),
    "ignore_energy": _plain(_values.flag), "needs": _plain(_neighbours), "needs_type": _other_type,
}


def _converted(core, field: str, value):
    """The value of a field as the engine takes it; None stays None."""
    return None if value is None else _CONVERSIONS[field](core, value, field)


def _field(of: str, name: str, doc: str, show=lambda value: value) -> property:
    """A field of a type or a rule, read and written in the engine. show: makes what users see."""
    read = getattr(_native.Core, f"{of}_{name}")
    write = getattr(_native.Core, f"set_{of}_{name}", None)

    def set_field(item, value):
        index, converted = item._present(), _CONVERSIONS[name](item._core, value, name)
        try:
            write(item._core, index, converted)
        except ValueError as error:
            raise ValueError(f"{name}: {error}") from None

    return property(lambda item: show(read(item._core, item._present())), set_field if write else None, doc=doc)


class _Item:
    """Something that stands at a place of a sequence of a model."""

    __slots__ = ("_core", "_index")

    def __init__(self, core, index: int):
        self._core = core
        self._index = index

    @property
    def index(self) -> int:
        """Its place in the sequence, from 0."""
        return self._index

    def __index__(self) -> int:
        return self._index

    def __eq__(self, other) -> bool:
        return type(other) is type(self) and other._core is self._core and other._index == self._index

    def __hash__(self) -> int:
        return hash((id(self._core), self._index))

    def _present(self) -> int:
        return self._index


class PixelType(_Item):
    """A pixel type of a model: `model.types[0]` or `model.types["Solvent"]`.

    Its fields are read from the model and written into it. A value that does not fit raises ValueError, and then
    nothing has changed.
    """

    __slots__ = ()

    name = _field("type", "name", "The name: printable ASCII characters.")
    color = _field("type", "color", "The colour: (red, green, blue), each from 0 to 1.", tuple)
    persistence = _field(
        "type", "persistence", "The fraction of the trace that remains after a sweep, 0 to 1. Changes only pictures.")
    opacity = _field("type", "opacity", "How opaque it is drawn, 0 to 1. Changes only pictures.")
    immobile = _field("type", "immobile", "True if no swap moves it.")
    masquerade = _field(
        "type", "masquerade", "The index of the type that it counts as for facilitation, or None. May be set "
        "by name, too.", _none_if_negative)
    field = _field("type", "field", "The energy of a site for holding it, -10 to 10 kT.")

    def __repr__(self) -> str:
        return f'<PixelType {self._index} "{self.name}">'


class Rule(_Item):
    """A rule of a model: `model.rules[0]` or `model.rules["Growth"]`.

    It stands for the rule at its place: after a rule before it was deleted, that is another one. Its fields are read
    from the model and written into it. A value that does not fit raises ValueError, and then nothing has changed.
    """

    __slots__ = ()

    name = _field("rule", "name", "The name: printable ASCII characters.")
    a = _field("rule", "a", "The index of the pixel type at end A, None for any. Cannot be changed.", _none_if_negative)
    b = _field("rule", "b", "The index of the pixel type at end B, None for any. Cannot be changed.", _none_if_negative)
    parameter = _field(
        "rule", "parameter", "The probability factor, 0 to 1; or the energy of an interaction, -10 to 10 kT, which is "
        "written for both orders of its ends. The last interaction to write a pair wins.")
    disabled = _field("rule", "disabled", "True if it is left out of the run. Its attempts go to other rules.")
    ignore_energy = _field("rule", "ignore_energy", "True if its acceptance has no energy term.")
    needs = _field("rule", "needs", "How many of the eight neighbours must have `needs_type`, 0 to 8. For flips only.")
    needs_type = _field(
        "rule", "needs_type", "The index of the type that the neighbours must have, None for any. May be set by "
        "name, too.", _none_if_negative)

    @property
    def kind(self) -> str:
        """One of `quorvane.RULE_KINDS`. Cannot be changed."""
        kind = self._core.rule_kind(self._present())
        return RULE_KINDS[kind] if 0 <= kind < len(RULE_KINDS) else f"unknown kind {kind}"

    def _present(self) -> int:
        if self._index < self._core.num_rules():
            return self._index
        raise IndexError(f"there is no rule {self._index} any more; there are {self._core.num_rules()}")

    def __repr__(self) -> str:
        return f'<Rule {self._index} "{self.name}", {self.kind}>'


RULE_KINDS: tuple[str, ...] = tuple(_native.Core.rule_kinds())


class _Items(Sequence, Generic[_T]):
    """What the sequences of types and rules share."""

    __slots__ = ("_core",)
    _what = ""
    _make: type

    def __init__(self, core):
        self._core = core

    def __getitem__(self, key):
        if isinstance(key, slice):
            return [self._make(self._core, index) for index in range(len(self))[key]]
        return self._make(self._core, _index_of(key, len(self), lambda: self.names, self._what, IndexError))

    def index(self, value, *within) -> int:
        """The place of an item, also by its name. ValueError if there is none."""
        if isinstance(value, str) and not within:
            return _index_of(value, len(self), lambda: self.names, self._what, ValueError)
        return super().index(value, *within)

    def __eq__(self, other) -> bool:
        return type(other) is type(self) and other._core is self._core

    def __hash__(self) -> int:
        return hash((type(self), id(self._core)))

    def __contains__(self, key) -> bool:
        return key in self.names if isinstance(key, str) else super().__contains__(key)

    @property
    def names(self) -> list[str]:
        """The names, in order."""
        raise NotImplementedError

    def __repr__(self) -> str:
        return repr(list(self))


class PixelTypes(_Items[PixelType]):
    """The pixel types of a model, by index or name. At most ten; none can be deleted."""

    __slots__ = ()
    _what = "pixel type"
    _make = PixelType

    def __len__(self) -> int:
        return self._core.num_types()

    @property
    def names(self) -> list[str]:
        """The names, in order."""
        return type_names(self._core)

    def add(self, name: str | None = None, *, color=None, persistence=None, opacity=None, immobile=None,
            masquerade=None, field=None) -> PixelType:
        """Adds a type that no site holds, and returns it.

        It is called "New Pixel" and has a random colour unless given. Always draws three numbers, for red, green and
        blue. Rules with any type as an end do not cover a type that is added later. Raises ValueError at ten
        types.
        """
        fields = dict(name=name, color=color, persistence=persistence, opacity=opacity, immobile=immobile,
                      masquerade=masquerade, field=field)
        self._core.add_type(*(_converted(self._core, *each) for each in fields.items()))
        return self[-1]


class Rules(_Items[Rule]):
    """The rules of a model, by index or name. At most fifty.

    `del model.rules["Growth"]` deletes one as the window does, and that is safe only for the last: later rules move up
    by one place but leave their two flags behind, and rows of types may keep an entry that now means another rule.
    Use `disabled` to take a rule out of the run.
    """

    __slots__ = ()
    _what = "rule"
    _make = Rule

    def __len__(self) -> int:
        return self._core.num_rules()

    @property
    def names(self) -> list[str]:
        """The names, in order."""
        return [self._core.rule_name(index) for index in range(len(self))]

    def add(self, kind: str, a: TypeLike | None, b: TypeLike | None, parameter: float | None = None, *,
            name: str | None = None, disabled: bool = False, ignore_energy: bool = False,
            needs: int = 0, needs_type: TypeLike | None = 0) -> Rule:
        """Adds a rule at the end, and returns it.

        kind: one of `quorvane.RULE_KINDS`, in any case. a, b: its ends, by index or name; None means any type.
        parameter: a probability from 0 to 1, or the energy of an interaction from -10 to 10 kT; 0 unless given.
        The other arguments are the fields of `Rule`. Raises ValueError if a value does not fit, or if there is no
        place for the rule; then there is no new rule.
        """
        kinds = [each.lower() for each in RULE_KINDS]
        if not isinstance(kind, str) or kind.lower() not in kinds:
            there = ", ".join(map(repr, RULE_KINDS))
            raise ValueError(f"kind: {_values.shown(kind)} is no kind of rule; there are {there}")
        place = kinds.index(kind.lower())
        ends = _other_type(self._core, a, "a"), _other_type(self._core, b, "b")
        fields = dict(name=RULE_KINDS[place] if name is None else name, parameter=parameter, disabled=disabled,
                      ignore_energy=ignore_energy, needs=needs)
        name, *others = (_converted(self._core, *each) for each in fields.items())
        self._core.add_rule(name, place, *ends, *others, _other_type(self._core, needs_type, "needs_type"))
        return self[-1]

    def __delitem__(self, key) -> None:
        if isinstance(key, slice):
            raise TypeError("rules are deleted one at a time")
        self._core.delete_rule(self[key].index)
