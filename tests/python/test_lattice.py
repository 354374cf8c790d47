"""The lattice as an array."""

import gc

import numpy as np
import pytest
from conftest import refused

import quorvane


@pytest.fixture
def numbered():
    """A model of 4 x 3 sites and ten types; site (i, j) holds 3 i + j modulo 10."""
    model = quorvane.Model.new((4, 3), 10)
    model.lattice = np.arange(12).reshape(4, 3) % 10
    return model


def test_has_the_shape_and_order_of_the_document(numbered):
    lines = numbered.text().splitlines()
    assert lines[:3] == ["4", "3", "10"]
    assert [int(line) for line in lines[3:15]] == [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1]
    lattice = numbered.lattice
    assert (lattice.shape, lattice.ndim, lattice.size, len(lattice), lattice.dtype) == ((4, 3), 2, 12, 4, np.uint8)
    assert [lattice[i][j] for i in range(4) for j in range(3)] == [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1]
    assert (lattice[2, 1], lattice[-1, -1], type(lattice[2, 1])) == (7, 1, int)


def test_copies_are_contiguous_and_their_own(numbered):
    for copy in (numbered.lattice.copy(), np.array(numbered.lattice), np.asarray(numbered.lattice),
                 numbered.lattice[1:3].copy(), numbered.lattice[:, 1].copy()):
        assert copy.flags.c_contiguous and copy.flags.owndata and copy.flags.writeable
        assert copy.dtype == np.uint8
        before = numbered.text()
        copy[...] = 0
        assert numbered.text() == before
    assert np.asarray(numbered.lattice, dtype=float).dtype == np.float64


def test_reads_the_model_and_not_a_former_state_of_it(numbered):
    lattice, row, part = numbered.lattice, numbered.lattice[1], numbered.lattice[1:3, ::2]
    numbered.lattice[1, 2] = 9
    assert (lattice[1, 2], row[2], part[0, 1]) == (9, 9, 9)


def test_rows_and_ranges_write_into_the_model(numbered):
    numbered.lattice[1][2] = 0
    numbered.lattice[2:][0, 0] = 9
    column = numbered.lattice[:, 1]
    column[:] = [4, 3, 2, 1]
    numbered.lattice.copy()[0, 0] = 5
    assert np.array_equal(numbered.lattice, [[0, 4, 2], [3, 3, 0], [9, 2, 8], [9, 1, 1]])


def test_masks_lists_and_arithmetic_in_place_write_into_the_model(numbered):
    numbered.lattice[numbered.lattice > 7] = 7
    numbered.lattice[[0, 3], [0, 2]] = 5, 6
    numbered.lattice[0] += 1
    numbered.lattice //= 2
    assert np.array_equal(numbered.lattice, [[3, 1, 1], [1, 2, 2], [3, 3, 3], [3, 0, 3]])
    chosen = numbered.lattice[numbered.lattice == 3]
    chosen[:] = 0
    assert (numbered.lattice == 3).sum() == 6


def test_is_an_array_to_functions_of_numpy(numbered):
    plain = np.arange(12).reshape(4, 3) % 10
    assert np.array_equal(numbered.lattice + 1, plain + 1)
    assert np.array_equal(numbered.lattice == plain, np.ones((4, 3), bool))
    assert np.array_equal(np.roll(numbered.lattice, 1, axis=0), np.roll(plain, 1, axis=0))
    assert (numbered.lattice.mean(), numbered.lattice.sum(), numbered.lattice.max()) == (plain.mean(), 46, 9)
    assert np.array_equal(numbered.lattice.T, plain.T)
    assert np.array_equal(np.bincount(numbered.lattice.ravel()), numbered.populations)
    assert [list(row) for row in numbered.lattice] == plain.tolist() == numbered.lattice.tolist()
    assert 9 in numbered.lattice
    assert eval(repr(numbered.lattice).replace("Lattice", "np.array")).tolist() == plain.tolist()
    assert np.add(numbered.lattice, 1, out=np.zeros((4, 3), np.uint8))[0, 0] == 1


def test_is_set_as_a_whole_by_arrays_of_whole_numbers(numbered):
    for values in (np.zeros((4, 3), np.int64), np.ones((4, 3), bool), [[1, 2, 3]] * 4,
                   np.asfortranarray(np.full((4, 3), 4, np.uint16)), np.ones((3, 4), np.int8).T[::-1],
                   numbered.lattice):
        numbered.lattice = values
        assert np.array_equal(numbered.lattice, values)


WRONG_SHAPES = [0, [0] * 12, np.zeros((3, 4), int), np.zeros((4, 3, 1), int), np.zeros((0, 3), int)]


@pytest.mark.parametrize("values", WRONG_SHAPES, ids=lambda values: str(np.shape(values)))
def test_refuses_another_shape(numbered, values):
    before = numbered.text()
    assert refused(ValueError, lambda: setattr(numbered, "lattice", values)) == (
        f"the lattice has the shape (4, 3), not {np.shape(values)}")
    assert numbered.text() == before


@pytest.mark.parametrize("values, why", [
    (np.zeros((4, 3)), "sites are indices of pixel types, whole numbers, not float64"),
    (np.full((4, 3), "a"), "sites are indices of pixel types, whole numbers, not <U1"),
    (np.full((4, 3), None), "sites are indices of pixel types, whole numbers, not object"),
    (np.zeros((4, 3), complex), "sites are indices of pixel types, whole numbers, not complex128"),
    (np.eye(4, 3, k=-1, dtype=int) * 10, "10 at [1, 0] is no pixel type; there are 0 to 9"),
    (np.eye(4, 3, k=1, dtype=int) * -1, "-1 at [0, 1] is no pixel type; there are 0 to 9"),
    (np.full((4, 3), 256), "256 at [0, 0] is no pixel type; there are 0 to 9"),
    (np.full((4, 3), 2**63, np.uint64), f"{2**63} at [0, 0] is no pixel type; there are 0 to 9"),
], ids=lambda value: str(value)[:10])
def test_refuses_values_that_are_no_types(numbered, values, why):
    before = numbered.text()
    assert refused(ValueError, lambda: setattr(numbered, "lattice", values)) == why
    assert refused(ValueError, lambda: numbered.lattice.__setitem__(slice(None), values)) == why
    assert numbered.text() == before


def test_single_sites_have_the_errors_of_arrays(numbered):
    assert refused(IndexError, lambda: numbered.lattice[4, 0]) == "index 4 is out of bounds for axis 0 with size 4"
    assert refused(IndexError, lambda: numbered.lattice[0, -4]) == "index -4 is out of bounds for axis 1 with size 3"
    assert [numbered.lattice[-4, -3], numbered.lattice[np.int8(1), True * 2]] == [0, 5]


def test_refuses_sites_that_are_not_there(numbered):
    before = numbered.text()
    for key in ((4, 0), (0, 3), (-5, 0), (0, 0, 0), 4, [0, 4]):
        refused(IndexError, lambda: numbered.lattice[key])
        refused(IndexError, lambda: numbered.lattice.__setitem__(key, 0))
    refused(ValueError, lambda: numbered.lattice.__setitem__(slice(0, 2), [[0, 1]]))
    refused(ValueError, lambda: numbered.lattice.__setitem__((0, 0), 10))
    refused(ValueError, lambda: numbered.lattice.__iadd__(7))
    assert numbered.text() == before


def test_has_no_memory_that_could_be_written_past_the_checks(numbered):
    with pytest.raises(TypeError):
        memoryview(numbered.lattice)
    with pytest.raises(TypeError):
        np.copyto(numbered.lattice, 0)
    for name in ("data", "ctypes", "base", "fill", "sort", "put", "resize", "setflags", "itemset"):
        with pytest.raises(AttributeError):
            getattr(numbered.lattice, name)


def test_has_no_attributes_that_could_be_set(numbered):
    for name, value in (("flat", 0), ("T", 1), ("shape", (12,)), ("foo", 1), ("_core", None)):
        with pytest.raises(AttributeError, match="assign to its elements"):
            setattr(numbered.lattice, name, value)


def test_takes_pixel_types_as_values(numbered):
    numbered.types[9].name = "Last"
    numbered.lattice[0] = numbered.types["Last"]
    assert numbered.lattice[0].tolist() == [9, 9, 9]
    assert (numbered.lattice == numbered.types["Last"]).sum() == 4


def test_rows_give_single_sites_as_pairs_of_indices_do(numbered):
    assert [[site for site in row] for row in numbered.lattice] == numbered.lattice.tolist()
    part = numbered.lattice[::2, 1:]
    assert [part[1][0], part[1, 1], part[-1][-1]] == [7, 8, 8]


def test_outlives_its_model(numbered):
    row = numbered.lattice[1]
    del numbered
    gc.collect()
    others = [quorvane.Model.new(4, 10) for _ in range(20)]
    row[0] = 8
    assert row.tolist() == [8, 4, 5]
    assert len(others) == 20


def test_a_part_of_a_lattice_that_was_remade_is_refused(numbered):
    row, whole = numbered.lattice[3], numbered.lattice
    numbered.remake((2, 2))
    for use in (lambda: row[0], lambda: row.copy(), lambda: whole.__setitem__((0, 0), 1), lambda: np.array(whole)):
        assert refused(ValueError, use) == "the lattice was remade with other sides; take model.lattice again"
    assert numbered.lattice.shape == (2, 2)


def test_painted_sites_are_seen_in_the_picture():
    model = quorvane.Model.new((6, 5), 3, [1, 0, 0])
    model.types[1].color = 1, 0, 0
    model.types[2].color = 0, 0, 1
    model.lattice[1, 0] = 1
    model.lattice[5, 4] = 2
    picture = model.picture(1)
    assert (picture.shape, picture.dtype) == ((5, 6, 3), np.uint8)
    assert picture[4, 1].tolist() == [255, 0, 0]
    assert picture[0, 5].tolist() == [0, 0, 255]
    model.lattice = 2 * np.ones((6, 5), int)
    assert (model.picture(1) == [0, 0, 255]).all()


def test_sides_of_a_new_model():
    assert quorvane.Model.new().shape == (100, 100)
    assert quorvane.Model.new(1).shape == (1, 1)
    assert quorvane.Model.new((256, np.int64(2))).lattice.shape == (256, 2)
    for sides in (0, 257, (1, 257), (0, 1), (1, 2, 3), (1,), 1.5, (2, 2.5), None, "ab", -1):
        assert refused(ValueError, lambda: quorvane.Model.new(sides)).startswith("sides: ")
        assert refused(ValueError, lambda: quorvane.Model.new(1).remake(sides)).startswith("sides: ")


def test_densities_fill_a_lattice():
    model = quorvane.Model.new(200, ["Empty", "Fish", "Shark"], {"Fish": 0.3, 2: 0.1, "Empty": 0.6})
    assert np.allclose(model.populations / 40000, [0.6, 0.3, 0.1], atol=0.015)
    model.fill([0, 0, 1])
    assert model.populations.tolist() == [0, 0, 40000]
    before = model.text()
    for density, why in [
        ([0.5, 0.5], "density: there are 3 pixel types, not 2"),
        ([0.5, 0.5, 0.5], "density: the shares add up to 1.5, not to 1"),
        ([2, -1, 0], 'density: the share of pixel type 0 "Empty" is from 0 to 1, not 2.0'),
        ([0, float("nan"), 1], 'density: the share of pixel type 1 "Fish" is from 0 to 1, not nan'),
        ([10**400, 0, 0], 'density: the share of pixel type 0 "Empty": 100000000000000000...0000000000000000000 is '
                          'not a number'),
        ({"Fish": 1, 1: 0}, 'density: the share of pixel type 1 "Fish" is given twice'),
        ({quorvane.Model.new(2).types[0]: 1}, 'density: <PixelType 0 "Pixel"> is of another model'),
        ({"Whale": 1}, 'density: no pixel type is called "Whale"; there are 0 "Empty", 1 "Fish", 2 "Shark"'),
        (0.5, "density: 0.5 is neither a list of shares nor a dict"),
        (["a", 0, 1], """density: the share of pixel type 0 "Empty": 'a' is not a number"""),
        ("100", """density: the share of pixel type 0 "Empty": '1' is not a number"""),
    ]:
        assert refused(ValueError, lambda: model.fill(density)) == why
    assert model.text() == before


def test_a_model_that_is_refused_draws_no_numbers():
    state = quorvane.getstate()
    for arguments in (dict(sides=0), dict(types=11), dict(types=["ok", "\t"]), dict(types=[1]), dict(types=2.0),
                      dict(types=None), dict(types=10**12), dict(density=[0.5, 0.6]), dict(density={"c": 1})):
        refused(ValueError, lambda: quorvane.Model.new(**arguments))
    assert quorvane.getstate() == state


def test_functions_that_write_write_into_the_model(numbered):
    plain = numbered.lattice.copy()
    np.minimum(numbered.lattice, 5, out=numbered.lattice)
    assert np.array_equal(numbered.lattice, np.minimum(plain, 5))
    mask = numbered.lattice.copy() == 5
    np.subtract(numbered.lattice, 1, out=numbered.lattice, where=mask)
    assert np.array_equal(numbered.lattice, np.where(mask, 4, np.minimum(plain, 5)))
    np.add.at(numbered.lattice, ([0, 0, 1], [0, 0, 1]), 1)
    assert (numbered.lattice[0, 0], numbered.lattice[1, 1]) == (2, 5)
    rest = np.zeros((4, 3), np.uint8)
    np.divmod(numbered.lattice, 2, out=(numbered.lattice, rest))
    assert (numbered.lattice[1, 1], rest[1, 1]) == (2, 1)
    with pytest.raises(TypeError):
        numbered.lattice *= 1.5


def test_odd_values_have_the_errors_of_arrays(numbered):
    with pytest.raises(ValueError, match="ambiguous"):
        bool(numbered.lattice)
    assert bool(numbered.lattice[0:1, 1:2]) and int(numbered.lattice[1, 1, ...]) == 4
    for key in ((10**30, 0), (0, -10**30), "a", 1.0):
        refused(IndexError, lambda: numbered.lattice[key])
    for values in (10**30, [[10**30] * 3] * 4, np.ones((4, 3), object), np.ones((4, 3, 2), int)):
        refused(ValueError, lambda: numbered.lattice.__setitem__(slice(None), values))
    # Refused by its shape, before anything looks at its values.
    endless = np.broadcast_to(np.uint8(1), (10**9, 10**3))
    refused(ValueError, lambda: setattr(numbered, "lattice", endless))
    refused(ValueError, lambda: numbered.lattice.__setitem__(slice(None), endless))
