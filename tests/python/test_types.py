"""Pixel types as a sequence."""

import numpy as np
import pytest
from conftest import refused

import quorvane


def test_are_found_by_index_and_name(mixture):
    types = mixture.types
    assert (len(types), types.names) == (3, ["Water", "Oil", "Resin"])
    assert types[1] == types["Oil"] == types[-2] == types[np.int8(1)]
    assert types[1] != types[2] and len({types[1], types["Oil"], types[2]}) == 2
    assert [each.index for each in types] == [0, 1, 2]
    assert types[1:] == [types[1], types[2]] and types[::-1][0].name == "Resin"
    assert "Oil" in types and "Tar" not in types and types[0] in types
    assert types.index(types["Resin"]) == types.index("Resin") == types["Resin"].__index__() == 2
    assert types[types["Resin"]] == types[2]
    assert types == mixture.types != mixture.copy().types and hash(types) == hash(mixture.types)
    assert refused(ValueError, lambda: types.index("Tar")).startswith('no pixel type is called "Tar"; ')
    assert repr(types[1]) == '<PixelType 1 "Oil">'


def test_that_are_not_there_are_an_index_error(mixture):
    there = 'there are 0 "Water", 1 "Oil", 2 "Resin"'
    assert refused(IndexError, lambda: mixture.types[3]) == "there is no pixel type 3; " + there
    assert refused(IndexError, lambda: mixture.types[-4]) == "there is no pixel type -4; " + there
    assert refused(IndexError, lambda: mixture.types["Tar"]) == 'no pixel type is called "Tar"; ' + there
    mixture.types[0].name = "Oil"
    assert refused(IndexError, lambda: mixture.types["Oil"]) == (
        'several pixel types are called "Oil"; there are 0 "Oil", 1 "Oil", 2 "Resin"')
    refused(TypeError, lambda: mixture.types[1.0])
    with pytest.raises(TypeError):
        mixture.types[0] = mixture.types[1]
    with pytest.raises(TypeError):
        del mixture.types[0]


def test_have_fields_that_are_read_and_written_in_the_document(mixture):
    oil = mixture.types["Oil"]
    for field, value in dict(name="Tar", color=(0.25, 0.5, 1.0), persistence=0.75, opacity=0.5, immobile=True,
                             masquerade=2, field=-1.5).items():
        setattr(oil, field, value)
        assert getattr(oil, field) == value
    lines = mixture.text().splitlines()
    at = lines.index("Tar")
    assert [float(line) for line in lines[at + 1:at + 9]] == [1, 2, 0.25, 0.5, 1, 0.75, 0.5, -1.5]
    oil.masquerade = "Water"
    assert oil.masquerade == 0
    oil.masquerade = None
    assert oil.masquerade is None
    oil.immobile = 0
    assert oil.immobile is False
    oil.color = np.array([1, 0, 0])
    assert oil.color == (1.0, 0.0, 0.0)


@pytest.mark.parametrize("field, value, why", [
    ("name", "Ol\u00e9", "name: a name has printable ASCII characters only"),
    ("name", "a\nb", "name: a name has printable ASCII characters only"),
    ("name", "x" * 10001, "name: a name has at most 10000 characters, not 10001"),
    ("name", b"Oil", "name: a name is a str, not bytes"),
    ("color", (0, 0, 1.5), "color: 1.5 is not from 0 to 1"),
    ("color", (0, 0), "color: (0, 0) is not (red, green, blue), each from 0 to 1"),
    ("color", "red", "color: 'red' is not (red, green, blue), each from 0 to 1"),
    ("color", 1, "color: 1 is not (red, green, blue), each from 0 to 1"),
    ("persistence", -0.1, "persistence: -0.1 is not from 0 to 1"),
    ("persistence", float("nan"), "persistence: nan is not from 0 to 1"),
    ("opacity", 2, "opacity: 2 is not from 0 to 1"),
    ("opacity", None, "opacity: None is not a number"),
    ("opacity", 10**400, "opacity: 100000000000000000...0000000000000000000 is not a number"),
    ("opacity", "0.5", "opacity: '0.5' is not a number"),
    ("color", (10**400, 0, 0), "color: (100000000000000000...0000000000000000000, 0, 0) is not (red, green, blue), "
                               "each from 0 to 1"),
    ("name", "\ud800", "name: a name has printable ASCII characters only"),
    ("immobile", 1.0, "immobile: 1.0 is neither True nor False"),
    ("immobile", 2, "immobile: 2 is neither True nor False"),
    ("immobile", "yes", "immobile: 'yes' is neither True nor False"),
    ("masquerade", 1, "masquerade: a type cannot masquerade as itself"),
    ("masquerade", "Tar", 'masquerade: no pixel type is called "Tar"; there are 0 "Water", 1 "Oil", 2 "Resin"'),
    ("masquerade", 3, 'masquerade: there is no pixel type 3; there are 0 "Water", 1 "Oil", 2 "Resin"'),
    ("masquerade", 1.5, "masquerade: a pixel type is chosen by its index or name, not by float"),
    ("field", 10.5, "field: 10.5 is not from -10 to 10"),
    ("field", float("inf"), "field: inf is not from -10 to 10"),
    ("field", "x", "field: 'x' is not a number"),
], ids=lambda value: str(value)[:12])
def test_refuse_values_that_do_not_fit(mixture, field, value, why):
    before = mixture.text()
    assert refused(ValueError, lambda: setattr(mixture.types["Oil"], field, value)) == why
    assert mixture.text() == before


def test_of_another_model_are_refused(mixture):
    other = quorvane.Model.new(2, 3).types[2]
    assert refused(ValueError, lambda: setattr(mixture.types[0], "masquerade", other)) == (
        'masquerade: <PixelType 2 "Pixel"> is of another model')
    assert refused(ValueError, lambda: mixture.rules.add("swap", other, 0)).startswith("a: ")
    mixture.types[0].masquerade = mixture.copy().types[1].index


def test_have_no_other_fields(mixture):
    with pytest.raises(AttributeError):
        mixture.types[0].colour = (0, 0, 0)
    with pytest.raises(AttributeError):
        mixture.types[0].index = 1


def test_are_added_with_their_fields(mixture):
    tar = mixture.types.add("Tar", color=(0, 0, 0.5), persistence=0.5, opacity=0.25, immobile=True, masquerade="Oil",
                            field=2)
    assert (tar.index, tar.name, tar.color, tar.persistence) == (3, "Tar", (0, 0, 0.5), 0.5)
    assert (tar.opacity, tar.immobile, tar.masquerade, tar.field) == (0.25, True, 1, 2)
    assert mixture.populations.tolist()[3] == 0
    mixture.lattice[0, 0] = 3
    assert mixture.measure("counts")["count"][3] == 1
    plain = mixture.types.add()
    assert (plain.name, plain.opacity, plain.immobile) == ("New Pixel", 1, False)
    assert (plain.masquerade, plain.field) == (None, 0)


def test_are_added_as_the_window_adds_them_with_three_draws(mixture):
    state = quorvane.getstate()
    color = [quorvane.random() for _ in range(3)]
    quorvane.setstate(state)
    assert list(mixture.types.add().color) == color


def test_are_not_added_if_a_field_does_not_fit_or_there_are_ten(mixture):
    before, state = mixture.text(), quorvane.getstate()
    for fields in (dict(name="a\n"), dict(color=(2, 0, 0)), dict(persistence=2), dict(opacity="x"), dict(immobile=3),
                   dict(masquerade="New Pixel"), dict(masquerade=3), dict(field=11)):
        assert refused(ValueError, lambda: mixture.types.add(**fields)).startswith(f"{list(fields)[0]}: ")
    assert (mixture.text(), quorvane.getstate()) == (before, state)
    # What was tried leaves no trace in a type that is added later.
    assert mixture.types.add("Good", color=(0, 0, 0)).persistence == quorvane.Model.new(2, 2).types[1].persistence
    for _ in range(6):
        mixture.types.add()
    assert refused(ValueError, mixture.types.add) == "a model has at most 10 pixel types"


def test_of_a_new_model_have_the_given_names():
    assert quorvane.Model.new(3, ["A", "B", "C"]).types.names == ["A", "B", "C"]
    assert len(quorvane.Model.new(3, 10).types) == 10
    for types in (0, 11, [], ["x"] * 11, 2.0, None, "AB", ["\t"], [b"A"]):
        assert refused(ValueError, lambda: quorvane.Model.new(3, types)).startswith("types: ")
