"""Rules as a sequence."""

import numpy as np
import pytest
from conftest import refused

import quorvane


@pytest.fixture
def empty():
    return quorvane.Model.new(8, ["Empty", "A", "B"])


def test_are_found_by_index_and_name(mixture):
    rules = mixture.rules
    assert len(rules) == 6
    first = rules["Oil and water trade places"]
    assert first == rules[0] == rules[-6]
    assert (first.kind, first.a, first.b, first.parameter) == ("Swap", 1, 0, 1.0)
    assert (first.disabled, first.ignore_energy, first.needs, first.needs_type) == (False, False, 0, 0)
    assert [rule.kind for rule in rules].count("Pixel-Pixel Interaction") == 3
    assert "Resin and water repel" in rules
    assert refused(IndexError, lambda: rules["Growth"]).startswith('no rule is called "Growth"; there are 0 "Oil and')
    assert refused(IndexError, lambda: rules[6]).startswith("there is no rule 6; there are 0 ")
    assert refused(IndexError, lambda: quorvane.Model.new(2).rules[0]) == "there is no rule 0; there are none"
    assert repr(rules[0]) == '<Rule 0 "Oil and water trade places", Swap>'


def test_are_added_as_documents_hold_them(empty):
    empty.rules.add("irreversible flip", "Empty", "A", 0.25, name="Growth", needs=2, needs_type="B")
    empty.rules.add("Reversible Flip", 1, None, 1, ignore_energy=True, disabled=True, needs_type=None, needs=1)
    empty.rules.add("SWAP", None, "Empty")
    lines = empty.text().splitlines()
    at = lines.index("Growth") - 1
    assert lines[at] == "3"
    assert [float(line) for line in lines[at + 2:at + 10]] == [0, 0, 0, 0, 1, 0.25, 2, 2]
    assert lines[at + 10] == "Reversible Flip"
    assert [float(line) for line in lines[at + 11:at + 19]] == [1, 1, 1, 1, -1, 1, 1, -1]
    assert [float(line) for line in lines[at + 20:at + 28]] == [0, 0, 2, -1, 0, 0, 0, 0]
    reopened = quorvane.Model.open(empty.text())
    assert reopened.text() == empty.text()
    rule = reopened.rules[1]
    assert (rule.a, rule.b, rule.needs, rule.needs_type, rule.disabled) == (1, None, 1, None, True)


def test_a_model_of_rules_runs_as_its_document(empty):
    empty.rules.add("reversible flip", 1, 2, 1.0)
    empty.rules.add("swap", 1, 0, 0.5)
    empty.rules.add("pixel-pixel interaction", 1, 2, 0.75)
    reopened = quorvane.Model.open(empty.text())
    results = []
    for model in (empty, reopened):
        quorvane.seed(3)
        model.sweep(20)
        results.append(model.lattice.copy())
    assert np.array_equal(*results)


def test_interactions_write_pair_energies_for_both_orders(empty):
    first = empty.rules.add("pixel-pixel interaction", "A", "B")
    assert not empty.pair_energies.any()
    first.parameter = 1.5
    assert empty.pair_energies.tolist() == [[0, 0, 0], [0, 0, 1.5], [0, 1.5, 0]]
    empty.rules.add("pixel-pixel interaction", "A", None, -2, disabled=True)
    assert empty.pair_energies[1, 2] == 1.5
    empty.rules[1].disabled = False
    assert empty.pair_energies.tolist() == [[0, -2, 0], [-2, -2, -2], [0, -2, 0]]
    empty.rules[1].disabled = True
    assert not empty.pair_energies.any()
    energies = empty.pair_energies
    energies[:] = 7
    assert not empty.pair_energies.any()


@pytest.mark.parametrize("arguments, why", [
    (dict(kind="flip"), "kind: 'flip' is no kind of rule; there are 'Irreversible Flip', 'Reversible Flip', 'Swap', "
                        "'Pixel-Pixel Interaction'"),
    (dict(kind=0), "kind: 0 is no kind of rule; there are 'Irreversible Flip', 'Reversible Flip', 'Swap', "
                   "'Pixel-Pixel Interaction'"),
    (dict(a="C"), 'a: no pixel type is called "C"; there are 0 "Empty", 1 "A", 2 "B"'),
    (dict(b=3), 'b: there is no pixel type 3; there are 0 "Empty", 1 "A", 2 "B"'),
    (dict(parameter=1.01), "parameter: 1.01 is not from 0 to 1"),
    (dict(parameter="0.5"), "parameter: '0.5' is not a number"),
    (dict(parameter="x"), "parameter: 'x' is not a number"),
    (dict(kind="pixel-pixel interaction", parameter=-11), "parameter: -11 is not from -10 to 10"),
    (dict(name="\u2192"), "name: a name has printable ASCII characters only"),
    (dict(needs=9), "needs: the number of neighbours is from 0 to 8, not 9"),
    (dict(needs=2**40), f"needs: the number of neighbours is from 0 to 8, not {2**40}"),
    (dict(needs=1.5), "needs: the number of neighbours is a whole number, not 1.5"),
    (dict(kind="swap", needs=1), "needs: only a flip can be facilitated"),
    (dict(needs_type=5), 'needs_type: there is no pixel type 5; there are 0 "Empty", 1 "A", 2 "B"'),
    (dict(disabled=2), "disabled: 2 is neither True nor False"),
    (dict(ignore_energy="no"), "ignore_energy: 'no' is neither True nor False"),
], ids=lambda value: str(value)[:40])
def test_are_not_added_if_a_value_does_not_fit(empty, arguments, why):
    empty.rules.add("pixel-pixel interaction", 1, 2, 0.5)
    before, energies = empty.text(), empty.pair_energies.tolist()
    whole = dict(kind="irreversible flip", a=1, b=2) | arguments
    assert refused(ValueError, lambda: empty.rules.add(**whole)) == why
    assert (empty.text(), empty.pair_energies.tolist()) == (before, energies)


def test_fields_refuse_what_does_not_fit(mixture):
    before = mixture.text()
    for field, value, why in [
        ("parameter", 1.5, "parameter: 1.5 is not from 0 to 1"),
        ("needs", 1, "needs: only a flip can be facilitated"),
        ("needs_type", 9, 'needs_type: there is no pixel type 9; there are 0 "Water", 1 "Oil", 2 "Resin"'),
        ("disabled", None, "disabled: None is neither True nor False"),
        ("name", 3, "name: a name is a str, not int"),
    ]:
        assert refused(ValueError, lambda: setattr(mixture.rules[0], field, value)) == why
    for field in ("kind", "a", "b", "index", "parameters"):
        with pytest.raises(AttributeError):
            setattr(mixture.rules[0], field, 0)
    assert mixture.text() == before


def test_at_most_fifty_fit(empty):
    for _ in range(25):
        empty.rules.add("reversible flip", "A", "A", 0.5)
    # A reversible flip has two entries in the row of its type.
    refused(ValueError, lambda: empty.rules.add("swap", "A", "B"))
    for _ in range(25):
        empty.rules.add("swap", "B", "A")
    assert refused(ValueError, lambda: empty.rules.add("swap", "Empty", "A")).startswith("the rule does not fit: ")
    assert len(empty.rules) == 50
    empty.sweep(10)


def test_the_last_is_deleted_without_a_trace(empty):
    empty.rules.add("swap", 1, 0, 1.0, name="Walk")
    before = empty.text()
    empty.rules.add("swap", 2, 0, 1.0, name="Run")
    walk, run = empty.rules
    del empty.rules["Run"]
    assert empty.text() == before
    assert walk.name == "Walk"
    assert refused(IndexError, lambda: run.name) == "there is no rule 1 any more; there are 1"
    refused(IndexError, lambda: setattr(run, "parameter", 0))
    del empty.rules[-1]
    assert len(empty.rules) == 0
    refused(IndexError, lambda: empty.rules.__delitem__(0))
    refused(TypeError, lambda: empty.rules.__delitem__(slice(0, 1)))


def test_deleting_leaves_flags_at_their_places_as_the_window_does(empty):
    for name in "xyz":
        empty.rules.add("swap", 1, 0, 1.0, name=name)
    empty.rules["y"].disabled = True
    del empty.rules["x"]
    assert [(rule.name, rule.disabled) for rule in empty.rules] == [("y", False), ("z", True)]
    empty.sweep(100)


def test_kinds_are_those_of_the_window():
    assert quorvane.RULE_KINDS == ("Irreversible Flip", "Reversible Flip", "Swap", "Pixel-Pixel Interaction")
