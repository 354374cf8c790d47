"""Runs the short versions of the notebooks, which check their numbers, and looks at their form.

QUORVANE_EXAMPLES names the folder of the examples, QUORVANE_STUDY the program quorvane-study.
"""
import os
import re
import subprocess
import sys
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
NOTEBOOKS = ROOT / "examples" / "notebooks"
FIGURES = {
    "custom_observable": ["custom-observable.svg"],
    "finite_size_scaling": ["finite-size-scaling.svg"],
    "first_steps": ["first-steps-energy.svg", "first-steps-painted.svg", "first-steps-sweeps.svg"],
    "study_to_figure": ["study-to-figure.svg"],
}
notebooks = pytest.mark.parametrize("name", sorted(FIGURES))


def source(name):
    return (NOTEBOOKS / f"{name}.py").read_text(encoding="utf-8")


def cells(text):
    """(is markdown, text) of each cell; the line that begins a cell is not part of it."""
    parts = re.split(r"^# %%(.*)\n", text, flags=re.MULTILINE)
    assert parts[0] == "", "something stands before the first cell"
    return [(kind == " [markdown]", body) for kind, body in zip(parts[1::2], parts[2::2])]


def run(script, folder, **variables):
    environment = {**os.environ, "MPLBACKEND": "Agg", "QUORVANE_QUICK": "1",
                   "QUORVANE_FIGURES": str(folder), **variables}
    environment.setdefault("QUORVANE_EXAMPLES", str(ROOT / "examples"))
    return subprocess.run([sys.executable, script], cwd=folder, env=environment, text=True,
                          timeout=300, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


def test_all_notebooks_are_tested():
    assert {path.stem for path in NOTEBOOKS.glob("*.py")} == set(FIGURES)


@notebooks
def test_it_runs(name, tmp_path):
    result = run(NOTEBOOKS / f"{name}.py", tmp_path)
    assert result.returncode == 0, result.stdout
    for figure in FIGURES[name]:
        content = (tmp_path / figure).read_text(encoding="utf-8")
        assert content.rstrip().endswith("</svg>") and len(content) > 10_000, figure
        assert "<dc:date>" not in content, figure


@notebooks
def test_it_has_the_form_of_a_notebook(name):
    parts = cells(source(name))
    assert parts[0][0] and parts[0][1].startswith("# # "), "it begins with a title"
    for is_markdown, body in parts:
        lines = body.strip().splitlines()
        assert lines, "a cell is empty"
        if is_markdown:
            assert all(re.match("#( |$)", line) for line in lines), body
        else:
            compile(body, name, "exec")


def test_its_cells_run_in_a_notebook(tmp_path):
    """One by one, in the folder of the notebooks, where no __file__ tells the place."""
    code = [body for is_markdown, body in cells(source("first_steps")) if not is_markdown]
    (tmp_path / "cells.py").write_text(
        "space = {'__name__': '__main__'}\n"
        + "".join(f"exec({body!r}, space)\n" for body in code), encoding="utf-8")
    result = run(tmp_path / "cells.py", NOTEBOOKS, QUORVANE_FIGURES=str(tmp_path))
    assert result.returncode == 0, result.stdout
    assert (tmp_path / "first-steps-sweeps.svg").stat().st_size > 0


def test_figures_are_the_same_each_time(tmp_path):
    contents = []
    for folder in (tmp_path / "one", tmp_path / "two"):
        folder.mkdir()
        assert run(NOTEBOOKS / "first_steps.py", folder).returncode == 0
        contents.append([(folder / name).read_bytes() for name in FIGURES["first_steps"]])
    assert contents[0] == contents[1]


def test_a_failed_check_is_noticed(tmp_path):
    """The same script with a wrong exact value ends with an assertion."""
    wrong = source("custom_observable").replace("np.exp(FIELD)", "np.exp(1.02 * FIELD)")
    assert wrong != source("custom_observable")
    (tmp_path / "wrong.py").write_text(wrong, encoding="utf-8")
    (tmp_path / "figures.mplstyle").write_bytes((NOTEBOOKS / "figures.mplstyle").read_bytes())
    result = run("wrong.py", tmp_path)
    assert result.returncode != 0 and "AssertionError" in result.stdout, result.stdout
