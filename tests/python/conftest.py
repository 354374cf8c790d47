"""What the tests of the Python module share."""

import os
import subprocess
import sys
from pathlib import Path

import pytest

import quorvane

EXAMPLES = sorted(Path(os.environ["QUORVANE_EXAMPLES"]).glob("*.quorvane"))


def example(name):
    return Path(os.environ["QUORVANE_EXAMPLES"], name + ".quorvane")


def batch(*words):
    """Runs quorvane-batch, which says nothing."""
    run = subprocess.run([os.environ["QUORVANE_BATCH"], *map(str, words)], capture_output=True, text=True, timeout=120)
    assert (run.returncode, run.stderr) == (0, "")


def python(program, *words, timeout=120):
    """Runs a program in an interpreter of its own: its output, once it ended well."""
    run = subprocess.run([sys.executable, "-c", program, *map(str, words)], capture_output=True, text=True,
                         timeout=timeout)
    assert run.returncode == 0, run.stderr
    return run.stdout


@pytest.fixture(autouse=True)
def as_in_a_new_process():
    quorvane.seed(10)


@pytest.fixture
def growth():
    return quorvane.Model.open(example("growth-from-a-seed"))


@pytest.fixture
def mixture():
    return quorvane.Model.open(example("three-phases"))


@pytest.fixture
def small():
    """An Ising model of 8 x 6 sites."""
    model = quorvane.Model.open(example("ising-at-critical"))
    model.remake((8, 6))
    return model


def refused(kind, work):
    """The message of the error that the work raises."""
    with pytest.raises(kind) as caught:
        work()
    assert type(caught.value) is kind
    assert "\n" not in str(caught.value)
    return str(caught.value)
