"""The results of a study that quorvane-study made."""

from __future__ import annotations

import csv
import os
import warnings
from dataclasses import dataclass
from pathlib import Path

import numpy as np

# Columns that count or number something. All others are measured or set, and are real numbers.
_WHOLE = frozenset({"run", "point", "replica", "replicas", "seed", "imax", "jmax", "sweep"})


@dataclass(frozen=True, repr=False, eq=False)
class Study:
    """The tables of a study as structured arrays: `study.points["energy_mean"]`.

    The names of the fields are the columns of the tables: numbers of runs, points, replicas, seeds, sides and sweeps
    are int64, everything else is float64, nan where the table has no value.

    - points: one row for each point of the grid, with averages over its replicas and their standard errors
    - runs: one row for each run, with the averages of each observable, its square and its fourth power, and tau, the
      integrated autocorrelation time in measurements
    - series: one row for each point and sweep, with averages over the replicas; None if the study has no series
    """

    folder: Path
    runs: np.ndarray
    points: np.ndarray
    series: np.ndarray | None

    @property
    def document(self) -> str:
        """The text of the document that the runs started from, for `Model.open`."""
        return (self.folder / "document.quorvane").read_text(encoding="ascii")

    @property
    def settings(self) -> list[str]:
        """The columns that tell points apart: the sides and what was varied."""
        names = list(self.points.dtype.names)
        return names[1:names.index("replicas")]

    def frames(self) -> dict:
        """The tables as pandas' DataFrames, by their names. Raises ImportError without pandas."""
        import pandas

        tables = {"runs": self.runs, "points": self.points, "series": self.series}
        return {name: pandas.DataFrame(table) for name, table in tables.items() if table is not None}

    def __repr__(self) -> str:
        return f'<Study "{self.folder}", {len(self.points)} points, {len(self.runs)} runs>'


def _table(path: Path) -> np.ndarray:
    with open(path, newline="", encoding="ascii") as file:
        rows = csv.reader(file)
        try:
            columns = next(rows, None)
            if not columns or len(set(columns)) != len(columns):
                raise ValueError("the columns have no names of their own")
            kinds = [int if name in _WHOLE else float for name in columns]
            records = []
            for row in rows:
                if len(row) != len(columns):
                    raise ValueError(f"{len(row)} values, not {len(columns)}")
                records.append(tuple(kind(cell) if cell or kind is int else np.nan for kind, cell in zip(kinds, row)))
        except (ValueError, csv.Error) as error:
            raise ValueError(f"{path}: line {max(1, rows.line_num)}: {error}") from None
    try:
        return np.array(records, dtype=[(name, np.int64 if kind is int else np.float64)
                                        for name, kind in zip(columns, kinds)])
    except OverflowError as error:
        raise ValueError(f"{path}: {error}") from None


def read_study(folder: str | os.PathLike) -> Study:
    """Reads the results folder of a study.

    Raises FileNotFoundError if it has no tables, which `quorvane-study table FOLDER` writes, and ValueError with the
    line if one is no table of a study. Warns if runs were made since the tables were written.
    """
    path = Path(folder)
    for name in ("runs.csv", "points.csv"):
        if not (path / name).is_file():
            raise FileNotFoundError(f"{path}: there is no {name}; quorvane-study table {path} writes the tables")
    written = (path / "runs.csv").stat().st_mtime_ns
    if any(shard.stat().st_mtime_ns > written for shard in (path / "shards").glob("*")):
        warnings.warn(f"{path}: runs were made since the tables were written; quorvane-study table {path} writes them "
                      "anew", stacklevel=2)
    series = path / "series.csv"
    return Study(path, _table(path / "runs.csv"), _table(path / "points.csv"),
                 _table(series) if series.is_file() else None)
