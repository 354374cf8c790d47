"""The documentation that Python shows."""

import inspect
import pydoc
import os
import subprocess

import pytest
from conftest import python

import quorvane

PUBLIC = [getattr(quorvane, name) for name in quorvane.__all__ if name != "RULE_KINDS"]


@pytest.mark.parametrize("thing", PUBLIC, ids=lambda thing: thing.__name__)
def test_everything_public_is_documented(thing):
    assert thing.__doc__ and thing.__doc__.strip().splitlines()[0].endswith((".", ":", ":`."))
    if not inspect.isclass(thing):
        return
    own = {name: value for name, value in vars(thing).items() if not name.startswith("_") and name != "dtype"}
    for name, value in own.items():
        if callable(value) or isinstance(value, (property, classmethod, staticmethod)):
            assert inspect.getdoc(getattr(thing, name)), f"{thing.__name__}.{name}"


def test_help_reads_well():
    for thing in (quorvane, *PUBLIC):
        text = pydoc.plain(pydoc.render_doc(thing))
        assert "object at 0x" not in text
        assert "pybind11" not in text
    text = pydoc.plain(pydoc.render_doc(quorvane.Model))
    assert "sweep(self, n: 'int' = 1, *, traces: 'bool' = True) -> 'None'" in text
    assert "The pixel types of the sites, with the index [i][j]" in text
    assert "parameter" in pydoc.plain(pydoc.render_doc(quorvane.Rule))


def test_help_of_an_object_says_what_it_is():
    assert "A lattice with its pixel types and rules" in python(
        "import quorvane; help(quorvane.Model.new(2))")


def test_the_version_is_that_of_the_programs():
    run = subprocess.run([os.environ["QUORVANE_BATCH"], "--version"], capture_output=True, text=True)
    assert quorvane.__version__ in run.stdout
