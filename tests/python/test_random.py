"""The source of random numbers, one for the process."""

import numpy as np
from conftest import python, refused

import quorvane


def test_begins_as_the_c_library_seeded_with_ten():
    first = [0.32136549381539226, 0.84746248042210937, 0.35341121396049857]
    assert [quorvane.random() for _ in range(3)] == first
    assert eval(python("import quorvane; print([quorvane.random() for _ in range(3)])")) == first


def test_a_seed_repeats_a_run(tmp_path):
    results = []
    for seed in (7, 7, 8):
        quorvane.seed(seed)
        model = quorvane.Model.new(20)
        model.rules.add("reversible flip", 0, 1, 0.5)
        model.sweep(5)
        results.append(model.text())
    assert results[0] == results[1] != results[2]


def test_seeds_are_those_of_the_runner():
    for seed in (0, -1, 2**31, 2**70, "1", 1.0, None):
        refused(ValueError, lambda: quorvane.seed(seed))
    assert refused(ValueError, lambda: quorvane.seed(0)) == "a seed is from 1 to 2147483647, not 0"
    quorvane.seed(np.int64(2**31 - 1))


def test_two_models_share_the_source():
    quorvane.seed(5)
    first = quorvane.Model.new(4)
    second = quorvane.Model.new(4)
    quorvane.seed(5)
    assert quorvane.Model.new(4).text() == first.text() != second.text()


def test_numbers_are_uniform_multiples_of_two_to_the_minus_31():
    numbers = np.array([quorvane.random() for _ in range(20000)])
    assert ((numbers >= 0) & (numbers < 1)).all()
    assert (numbers * 2**31 % 1 == 0).all()
    assert abs(numbers.mean() - 0.5) < 4 / np.sqrt(12 * 20000)


def test_goes_on_from_a_state():
    state = quorvane.getstate()
    numbers = [quorvane.random() for _ in range(500)]
    quorvane.seed(99)
    quorvane.setstate(state)
    assert [quorvane.random() for _ in range(500)] == numbers
    assert isinstance(state, bytes) and quorvane.getstate() != state
    changed = state[:50] + bytes([state[50] ^ 1]) + state[51:]
    for bad in (b"", b"x", state[:-1], state + b"x", changed, quorvane.Model.new(2)._core.state()):
        before = quorvane.getstate()
        assert refused(ValueError, lambda: quorvane.setstate(bad)).startswith("the state is ")
        assert quorvane.getstate() == before
    quorvane.setstate(bytearray(state))
    for bad in (7, "abc", memoryview(state)):
        assert refused(TypeError, lambda: quorvane.setstate(bad)).startswith("a state is bytes, not ")


def test_measuring_and_drawing_pictures_draw_no_numbers(mixture):
    state = quorvane.getstate()
    mixture.measure("counts,energy,clusters,structure")
    mixture.picture()
    mixture.lattice[0, 0] = 1
    mixture.rules.add("swap", 0, 1, 0.5)
    mixture.copy()
    assert quorvane.getstate() == state
