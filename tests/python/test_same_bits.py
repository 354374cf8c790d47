"""Python, the runner and the window give the same bits."""

import csv
import zlib

import numpy as np
import pytest
from conftest import EXAMPLES, batch, example, python

import quorvane

OBSERVABLES = "counts,energy,contacts,clusters,kept,correlation,structure"


def rows(path):
    with open(path, newline="") as table:
        return list(csv.reader(table))


def pixels(png):
    """The pixels of an 8-bit RGB PNG file without any other library."""
    position, parts, header = 8, b"", b""
    while position < len(png):
        length = int.from_bytes(png[position:position + 4], "big")
        kind, data = png[position + 4:position + 8], png[position + 8:position + 8 + length]
        header = data if kind == b"IHDR" else header
        parts += data if kind == b"IDAT" else b""
        position += length + 12
    width, height = int.from_bytes(header[:4], "big"), int.from_bytes(header[4:8], "big")
    lines = np.frombuffer(zlib.decompress(parts), np.uint8).reshape(height, 1 + 3 * width)
    image = np.zeros((height, width, 3), np.uint8)
    for row, line in enumerate(lines):
        image[row] = unfiltered(line[0], line[1:], image[row - 1].ravel() if row else None).reshape(width, 3)
    return image


def unfiltered(kind, line, above):
    values, result = line.astype(int), np.zeros(len(line), int)
    above = np.zeros(len(line), int) if above is None else above.astype(int)
    for k in range(len(line)):
        left, corner = (result[k - 3], above[k - 3]) if k >= 3 else (0, 0)
        guess = left + above[k] - corner
        near = min((abs(guess - left), 0, left), (abs(guess - above[k]), 1, above[k]), (abs(guess - corner), 2, corner))
        predicted = [0, left, above[k], (left + above[k]) // 2, near[2]][kind]
        result[k] = (values[k] + predicted) % 256
    return result


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.stem)
def test_fifty_sweeps_of_an_example_are_those_of_the_runner(path, tmp_path):
    batch(path, "--sweeps", 50, "--every", 10, "--output", tmp_path / "o", "--populations", tmp_path / "p",
          "--measure", tmp_path / "m", "--observables", OBSERVABLES, "--picture", tmp_path / "x", "--lattices",
          tmp_path / "l")
    model = quorvane.Model.open(path)
    observation = model.observe(OBSERVABLES)
    populations, measured, lattices = [], [], []
    for sweeps in (0, 10, 10, 10, 10, 10):
        model.sweep(sweeps)
        populations.append([str(model.sweeps), *map(str, model.populations)])
        measured.append([model.sweeps, *observation.row()])
        lattices.append(model.lattice.copy())
    assert model.text().encode() == (tmp_path / "o").read_bytes()
    model.save(tmp_path / "saved")
    assert (tmp_path / "saved").read_bytes() == (tmp_path / "o").read_bytes()
    header, *table = rows(tmp_path / "p")
    assert header[1:] == model.types.names
    assert table == populations
    header, *table = rows(tmp_path / "m")
    assert header[1:] == observation.columns
    assert len(table) == 6
    for row, expected in zip(table, measured):
        for cell, value in zip(row, expected, strict=True):
            assert cell == (str(value) if isinstance(value, int) else cell)
            assert float(cell) == value or (value != value and cell == "nan")
    assert np.array_equal(np.load(tmp_path / "l"), np.array(lattices))
    assert model.png() == (tmp_path / "x").read_bytes()


def test_the_first_model_of_a_process_needs_no_seed(tmp_path):
    batch(example("voters"), "--sweeps", 7, "--output", tmp_path / "o")
    program = "import quorvane, sys; m = quorvane.Model.open(sys.argv[1]); m.sweep(7); print(m.text(), end='')"
    assert python(program, example("voters")) == (tmp_path / "o").read_text()


def test_a_seed_sides_and_densities_are_those_of_the_runner(tmp_path):
    batch(example("three-phases"), "--seed", 4711, "--remake", "40x30", "--fill", "#0=0.5,#2=0.5", "--set",
          "rule #0 parameter=0.25", "--sweeps", 20, "--output", tmp_path / "o")
    quorvane.seed(4711)
    model = quorvane.Model.open(example("three-phases"))
    model.rules[0].parameter = 0.25
    model.remake((40, 30))
    model.fill({0: 0.5, 2: 0.5})
    model.sweep(20)
    assert model.text() == (tmp_path / "o").read_text()


def test_single_sweeps_and_many_are_the_same(mixture):
    other = mixture.copy()
    state = quorvane.getstate()
    mixture.sweep(30)
    quorvane.setstate(state)
    for _ in range(10):
        other.sweep()
        other.sweep(2, traces=True)
    assert other.text() == mixture.text()
    assert np.array_equal(other.picture(), mixture.picture())


def test_a_sweep_is_as_many_attempts_as_sites_and_one_more(small):
    other = small.copy()
    state = quorvane.getstate()
    small.sweep(5, traces=False)
    quorvane.setstate(state)
    for attempts in (3, 0, 97, 5 * (8 * 6 + 1) - 100):
        other.step(attempts)
    assert other.text() == small.text()
    assert (small.sweeps, other.sweeps) == (5, 0)


def test_without_traces_the_lattice_is_the_same_and_the_picture_is_not(growth):
    for type_ in growth.types:
        type_.persistence = 0.9
    other = growth.copy()
    state = quorvane.getstate()
    growth.sweep(40)
    quorvane.setstate(state)
    other.sweep(40, traces=False)
    assert other.text() == growth.text()
    assert not np.array_equal(other.picture(), growth.picture())


def test_a_picture_is_that_of_its_png(growth):
    growth.remake((20, 10))
    growth.sweep(3)
    for scale in (1, 3, 9):
        picture = growth.picture(scale)
        assert (picture.shape, picture.dtype) == ((10 * scale, 20 * scale, 3), np.uint8)
        assert np.array_equal(picture, pixels(growth.png(scale)))
    assert np.array_equal(pixels(growth._repr_png_()), growth.picture(8))
