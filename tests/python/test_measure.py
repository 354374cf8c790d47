"""Observables: their keys, shapes and types, and values that are known."""

import numpy as np
import pytest
from conftest import refused

import quorvane


def test_a_single_value_is_an_int_or_a_float_and_values_of_types_are_arrays(mixture):
    measured = mixture.measure("energy", "counts", "clusters", "contacts", "order:Oil:Water", "kept", "correlation",
                               "structure")
    assert list(measured) == ["energy", "count", "clusters", "largest", "mean", "wraps", "contacts", "order_1_0",
                              "kept", "never", "c", "s", "length"]
    assert {key: type(measured[key]) for key in ("energy", "order_1_0", "kept", "never")} == dict.fromkeys(
        ("energy", "order_1_0", "kept", "never"), float)
    # Half the smaller side, and half the diagonal of 128 x 104 sites in units of the longer side.
    distances, waves = 104 // 2, 91
    assert {key: (value.shape, value.dtype) for key, value in measured.items() if isinstance(value, np.ndarray)} == {
        "count": ((3,), np.int64), "clusters": ((3,), np.int64), "largest": ((3,), np.int64),
        "mean": ((3,), np.float64), "wraps": ((3,), np.int64), "contacts": ((3, 3), np.int64),
        "c": ((3, distances), np.float64), "s": ((3, waves), np.float64),
        "length": ((3,), np.float64)}


def test_values_are_those_of_the_columns_at_their_indices(mixture):
    names = "counts,clusters,contacts,correlation,structure"
    observation = mixture.observe(names)
    row = dict(zip(observation.columns, observation.row(), strict=True))
    measured = mixture.measure(*names.split(","))
    assert measured["contacts"][2, 1] == measured["contacts"][1, 2] == row["contacts_1_2"]
    assert measured["c"][2, 6] == row["c_2_7"]
    assert measured["s"][1, 0] == row["s_1_1"]
    assert measured["length"][2] == row["length_2"]
    assert measured["largest"].tolist() == [row[f"largest_{t}"] for t in range(3)]
    assert sum(value.size for key, value in measured.items() if key != "contacts") + 6 == len(row)


def test_known_values_of_a_stripe():
    model = quorvane.Model.new((6, 4), 2)
    stripe = np.zeros((6, 4), int)
    stripe[2:4] = 1
    model.lattice = stripe
    model.rules.add("pixel-pixel interaction", 0, 1, 0.5)
    model.types[1].field = 2.0
    measured = model.measure("energy,contacts,clusters,counts,order:1:0")
    # Each of the 2 x 4 sites of either edge has three unlike neighbours beyond it.
    assert measured["contacts"][0, 1] == 2 * 4 * 3
    assert measured["energy"] == 24 * 0.5 / 2 + 8 * 2.0
    assert measured["count"].tolist() == [16, 8]
    assert measured["clusters"].tolist() == [1, 1]
    assert measured["wraps"].tolist() == [2, 2]
    assert measured["order_1_0"] == (8 - 16) / 24
    assert int(model.populations.sum()) == 24


def test_an_observation_compares_with_its_start(small):
    observation = small.observe("kept")
    small.lattice[0] = 1 - small.lattice[0].copy()
    assert observation.measure() == {"kept": 7 / 8, "never": 7 / 8}
    small.lattice[0] = 1 - small.lattice[0].copy()
    assert observation.measure() == {"kept": 1.0, "never": 7 / 8}
    assert small.measure("kept") == {"kept": 1.0, "never": 1.0}


def test_names_that_are_none_are_refused(small):
    for names, why in [
        (("magnetisation",), 'there is no observable "magnetisation"; there are counts, energy'),
        (("energy", "energy"), "energy"),
        (("order:0",), "order"),
        (("\ud800",), 'there is no observable "?"'),
        ((), "name at least one observable; quorvane.observables() tells what there is"),
    ]:
        assert why in refused(ValueError, lambda: small.measure(*names))
    assert refused(ValueError, lambda: small.measure(3)) == "an observable is named by a str, not by 3"


def test_an_observation_refuses_another_lattice(small):
    observation = small.observe("counts")
    small.remake((8, 7))
    refused(ValueError, observation.row)


def test_the_help_names_every_observable():
    for name in ("counts", "energy", "contacts", "clusters", "order:a:b", "kept", "correlation", "structure"):
        assert f"\n{name}\n" in quorvane.observables()
    assert max(map(len, quorvane.observables().splitlines())) <= 80


def test_scales_of_pictures(small):
    for scale in (0, -1, 33, 1.5, "4", None):
        assert refused(ValueError, lambda: small.picture(scale)).startswith("scale: the number of pixels for a site ")
        refused(ValueError, lambda: small.png(scale))
    assert small.picture(np.int32(2)).shape == (12, 16, 3)
    picture = small.picture()
    picture[:] = 0
    assert small.picture().any()


def test_pictures_in_notebooks_are_about_500_pixels_wide():
    for sides, width in ((256, 512), (100, 500), (30, 240), ((1, 256), 2)):
        png = quorvane.Model.new(sides)._repr_png_()
        assert png.startswith(b"\x89PNG") and int.from_bytes(png[16:20], "big") == width


@pytest.mark.parametrize("side", [1, 2])
def test_tiny_lattices_have_fewer_columns(side):
    measured = quorvane.Model.new(side).measure("correlation", "structure", "counts")
    assert ("c" in measured) == (side > 1)
    assert measured["count"].sum() == side * side
