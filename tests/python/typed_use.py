"""A use of the package with every kind of argument, for the checker of types. It is not run."""

from pathlib import Path

import numpy as np

import quorvane

model: quorvane.Model = quorvane.Model.open(Path("a"))
model = quorvane.Model.new((3, np.int64(4)), ["A", "B"], {"A": 0.5, 1: 0.5})
model.sweep(np.int32(3), traces=False)
model.lattice = np.zeros(model.shape, int)
model.lattice[model.lattice == 1] = 0
model.lattice[0, 0] = model.types["A"].index
place: int = model.rules.index("swap")
total: int = int(model.lattice.copy().sum())
model.types[0].color = (0, 0, 1)
red: float = model.types["A"].color[0]
rule: quorvane.Rule = model.rules.add("swap", "A", model.types[1], 0.5, needs_type=None)
end: int | None = rule.a
del model.rules[0]
first: list[quorvane.PixelType] = model.types[:2]
energy: float = model.measure("energy")["energy"]
study: quorvane.Study = quorvane.read_study("results")
mean: float = float(study.points["energy_mean"].mean())
