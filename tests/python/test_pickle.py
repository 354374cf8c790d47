"""Copies and pickles."""

import copy
import pickle

import numpy as np
import pytest
from conftest import python, refused

import quorvane


@pytest.fixture
def faded(mixture):
    """A model with traces, a disabled interaction and sweeps, none of which is in its document."""
    for each in mixture.types:
        each.persistence = 0.9
    mixture.rules[3].disabled = True
    mixture.sweep(20)
    return mixture


def copies(model):
    return [model.copy(), copy.copy(model), copy.deepcopy(model)] + [
        pickle.loads(pickle.dumps(model, protocol)) for protocol in range(pickle.HIGHEST_PROTOCOL + 1)]


def test_go_on_as_the_model_does(faded):
    others = copies(faded)
    state = quorvane.getstate()
    faded.rules[3].disabled = False
    faded.sweep(10)
    assert len(others) == 9
    for other in others:
        quorvane.setstate(state)
        assert other.sweeps == 20
        other.rules[3].disabled = False
        other.sweep(10)
        assert other.text() == faded.text()
        assert np.array_equal(other.picture(1), faded.picture(1))
        assert np.array_equal(other.pair_energies, faded.pair_energies)


def test_are_models_of_their_own(faded):
    before = faded.text()
    for other in copies(faded):
        other.lattice = np.zeros(other.shape, int)
        other.types[0].name = "Other"
        del other.rules[-1]
    assert faded.text() == before


def test_hold_the_document_and_no_random_numbers(faded):
    state = quorvane.getstate()
    pickled = pickle.dumps(faded)
    assert quorvane.getstate() == state
    assert faded.text().encode() in pickled
    quorvane.seed(3)
    state = quorvane.getstate()
    pickle.loads(pickled)
    assert quorvane.getstate() == state


def test_are_opened_in_another_process(faded, tmp_path):
    (tmp_path / "model").write_bytes(pickle.dumps(faded))
    quorvane.seed(5)
    faded.sweep(3)
    program = ("import pickle, quorvane, sys; model = pickle.load(open(sys.argv[1], 'rb')); "
               "quorvane.seed(5); model.sweep(3); print(model.text(), end='')")
    assert python(program, tmp_path / "model") == faded.text()


def test_that_are_damaged_are_refused(small):
    whole, (kind, text, state), _ = small.__reduce__()

    def make(some_text, some_state):
        return whole(kind, some_text, some_state)

    assert make(text, state).text() == text
    assert refused(ValueError, lambda: make(text, b"")) == "the pickled model is empty"
    assert refused(ValueError, lambda: make(text, text.encode())) == "the pickled model is no checkpoint"
    assert refused(ValueError, lambda: make(text, state[:-1])) == "the pickled model is cut short"
    for k in (20, len(state) // 2, len(state) - 1):
        damaged = state[:k] + bytes([state[k] ^ 1]) + state[k + 1:]
        assert refused(ValueError, lambda: make(text, damaged)).startswith("the pickled model is damaged")
    assert refused(ValueError, lambda: make(text + "x", state)) == (
        "the pickled model is damaged (its state is not that of its document)")
    assert refused(ValueError, lambda: make(text, quorvane.getstate())).startswith("the pickled model is damaged")


@pytest.mark.parametrize("place", [0, 2, 5])
def test_of_a_model_that_lost_a_rule_are_whole(mixture, place):
    """A row that loses a rule keeps an entry behind its end."""
    del mixture.rules[place]
    for other in copies(mixture):
        assert other.text() == mixture.text()
        assert len(other.rules) == 5


def test_of_a_derived_class_are_of_that_class():
    small = Named.new(5)
    small.title = "Ising"
    for other in copies(small):
        assert (type(other), other.title, other.text()) == (Named, "Ising", small.text())


class Named(quorvane.Model):
    """A model with an attribute of its own."""


def test_of_a_model_with_full_rows_are_whole():
    """Its rules fill more than half of a row, so they would not fit beside themselves."""
    model = quorvane.Model.new(4, 2)
    for _ in range(50):
        model.rules.add("swap", 0, 1, 0.5)
    for other in copies(model):
        assert other.text() == model.text()


def test_with_the_state_of_another_model_are_refused(small):
    whole, (kind, text, state), _ = small.__reduce__()
    other = quorvane.Model.new(4, 3).__reduce__()[1]
    refused(ValueError, lambda: whole(kind, text, other[2]))
    refused(ValueError, lambda: whole(kind, other[1], state))


def test_of_parts_of_a_model_are_refused(small):
    for part in (small.types[0], small.rules, small.lattice, small.observe("counts")):
        with pytest.raises(TypeError):
            pickle.dumps(part)


def test_are_of_any_size():
    for sides in ((1, 1), (1, 256), (256, 256)):
        model = quorvane.Model.new(sides, 10)
        assert pickle.loads(pickle.dumps(model)).text() == model.text()
