"""The results of a study read back."""

import csv
import os
import subprocess
import warnings

import numpy as np
import pytest
from conftest import example, refused

import quorvane

STUDY = """
document = "{document}"
sweeps = 30
every = 3
discard = 12
replicas = 4
observables = ["energy", "order:0:1", "correlation"]

[lattice]
sides = [6, 8]

[[vary]]
rule = "Unlike spins repel"
parameter = [0.1, 0.2]
{series}
"""


def study(*words):
    run = subprocess.run([os.environ["QUORVANE_STUDY"], *map(str, words)], capture_output=True, text=True, timeout=120)
    assert run.returncode == 0, run.stderr


@pytest.fixture
def results(tmp_path):
    text = STUDY.format(document=example("ising-at-critical"), series='[series]\nobservables = ["counts"]')
    (tmp_path / "study.toml").write_text(text)
    study("run", tmp_path / "study.toml", "--results", tmp_path / "results")
    return tmp_path / "results"


def test_gives_the_values_of_the_tables(results):
    read = quorvane.read_study(results)
    for name, table in (("runs", read.runs), ("points", read.points), ("series", read.series)):
        with open(results / f"{name}.csv", newline="") as file:
            columns, *rows = csv.reader(file)
        assert list(table.dtype.names) == columns
        assert len(table) == len(rows) > 0
        for record, row in zip(table, rows):
            for value, cell in zip(record, row):
                assert value == float(cell or "nan") or (np.isnan(value) and cell in ("", "nan"))
    assert read.runs.dtype["seed"] == read.points.dtype["imax"] == np.int64
    assert read.points.dtype["energy_mean"] == read.runs.dtype["rule Unlike spins repel parameter"] == np.float64
    assert read.settings == ["imax", "jmax", "rule Unlike spins repel parameter"]
    # The smaller lattice has no correlation at distance 4.
    assert np.isnan(read.points["c_0_4_mean"][read.points["imax"] == 6]).all()
    assert np.isfinite(read.points["c_0_4_mean"][read.points["imax"] == 8]).all()
    assert repr(read) == f'<Study "{results}", 4 points, 16 runs>'


def test_averages_of_its_runs_are_those_of_its_points(results):
    read = quorvane.read_study(str(results))
    for point in read.points:
        runs = read.runs[(read.runs["imax"] == point["imax"]) & (
            read.runs[read.settings[-1]] == point[read.settings[-1]])]
        assert len(runs) == point["replicas"] == 4
        means = runs["energy_mean"]
        assert point["energy_mean"] == pytest.approx(means.mean(), rel=1e-14)
        assert point["energy_error"] == pytest.approx(means.std(ddof=1) / 2, rel=1e-9)


def test_a_run_of_a_study_is_made_again_bit_for_bit(results):
    read = quorvane.read_study(results)
    run = read.runs[5]
    quorvane.seed(int(run["seed"]))
    model = quorvane.Model.open(read.document)
    model.rules["Unlike spins repel"].parameter = run["rule Unlike spins repel parameter"]
    model.remake((int(run["imax"]), int(run["jmax"])))
    energies = []
    for sweep in range(0, 31, 3):
        if sweep >= 12:
            energies.append(model.measure("energy")["energy"])
        model.sweep(3, traces=False)
    assert sum(energies) / len(energies) == run["energy_mean"]


def test_without_series(tmp_path):
    (tmp_path / "s.toml").write_text(STUDY.format(document=example("ising-at-critical"), series=""))
    study("run", tmp_path / "s.toml", "--results", tmp_path / "r")
    assert quorvane.read_study(tmp_path / "r").series is None


def test_frames_are_those_of_pandas_if_it_is_there(results):
    read = quorvane.read_study(results)
    try:
        import pandas
    except ImportError:
        with pytest.raises(ImportError):
            read.frames()
        return
    frames = read.frames()
    assert list(frames) == ["runs", "points", "series"]
    assert isinstance(frames["runs"], pandas.DataFrame)
    assert np.array_equal(frames["points"]["energy_mean"], read.points["energy_mean"])


def test_a_folder_without_tables_says_how_to_make_them(tmp_path, results):
    (results / "points.csv").unlink()
    for folder in (tmp_path / "none", results):
        message = refused(FileNotFoundError, lambda: quorvane.read_study(folder))
        assert message.startswith(f"{folder}: there is no ") and message.endswith("writes the tables")


def test_runs_made_since_the_tables_give_a_warning(results):
    written = (results / "runs.csv").stat().st_mtime_ns
    for shard in (results / "shards").iterdir():
        os.utime(shard, ns=(written, written))
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        quorvane.read_study(results)
    os.utime(shard, ns=(written + 1, written + 1))
    with pytest.warns(UserWarning, match="runs were made since the tables were written"):
        quorvane.read_study(results)


@pytest.mark.parametrize("text, why", [
    ("", "line 1: the columns have no names of their own"),
    ("a,a\n1,2\n", "line 1: the columns have no names of their own"),
    ("run,x\n0,1\n1\n", "line 3: 1 values, not 2"),
    ("run,x\n0,y\n", "line 2: could not convert string to float: 'y'"),
    ("run,x\n0,1\n1,\u00e9\n", "line 1: 'ascii' codec"),
    (f"run,x\n0,{'1' * 200000}\n", "line 2: field larger than field limit (131072)"),
    ("run,x\n0.5,1\n", "line 2: invalid literal for int() with base 10: '0.5'"),
], ids=lambda value: value[:20])
def test_a_table_that_is_none_is_refused_with_its_line(results, text, why):
    (results / "runs.csv").write_text(text, encoding="utf-8")
    assert refused(ValueError, lambda: quorvane.read_study(results)).startswith(f"{results / 'runs.csv'}: {why}")


def test_a_number_beyond_64_bits_is_refused(results):
    (results / "runs.csv").write_text(f"run,x\n{10**30},1\n")
    assert refused(ValueError, lambda: quorvane.read_study(results)).startswith(str(results / "runs.csv"))
