"""What a run costs from Python: single sweeps of a small lattice, and a whole run beside the runner.

Times of one run of this program are compared with each other only, and the shortest of several counts.
"""

import os
import resource
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import quorvane

EXAMPLES = Path(os.environ["QUORVANE_EXAMPLES"])
RUN = ("import quorvane, sys\n"
       "model = quorvane.Model.open(sys.argv[1])\n"
       "model.sweep(int(sys.argv[2]), traces=sys.argv[3] == 'traces')\n"
       "model.save(sys.argv[4])\n")


def seconds(work):
    begin = time.perf_counter()
    work()
    return time.perf_counter() - begin


def single_sweeps(name, traces, sweeps=20_000):
    """Microseconds of a sweep among many of one call, and of a call for a single one."""
    model = quorvane.Model.open(EXAMPLES / f"{name}.quorvane")
    model.remake(16)

    def one_by_one():
        for _ in range(sweeps):
            model.sweep(1, traces=traces)

    together, alone = [], []
    for _ in range(15):
        together.append(seconds(lambda: model.sweep(sweeps, traces=traces)))
        alone.append(seconds(one_by_one))
    return 1e6 * min(together) / sweeps, 1e6 * min(alone) / sweeps


def processor_seconds(words):
    """The processor time of a program, which others disturb less than its duration."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(words, check=True)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def whole_runs(name, sweeps, traces):
    """Processor seconds of the runner and of Python for the same run, each a process of its own."""
    document = EXAMPLES / f"{name}.quorvane"
    with tempfile.TemporaryDirectory() as folder:
        of_runner, of_python = Path(folder, "runner"), Path(folder, "python")
        runner = [os.environ["QUORVANE_BATCH"], document, "--sweeps", str(sweeps), "--output", of_runner]
        runner += ["--picture", Path(folder, "picture")] if traces else []
        python = [sys.executable, "-c", RUN, document, str(sweeps), "traces" if traces else "none", of_python]
        times = [[processor_seconds(words) for words in (runner, python)] for _ in range(7)]
        assert of_runner.read_bytes() == of_python.read_bytes()
    return [min(column) for column in zip(*times)]


def main():
    print("| 16 x 16, microseconds | in one call | one by one | above |\n|---|---|---|---|")
    for name in ("ising-at-critical", "three-phases", "predators-and-prey"):
        for traces in (False, True):
            together, alone = single_sweeps(name, traces)
            what = name + (", with traces" if traces else "")
            print(f"| {what} | {together:.2f} | {alone:.2f} | {alone - together:.2f} |", flush=True)
    print("\n| whole run, processor seconds | runner | Python | ratio |\n|---|---|---|---|")
    for name, sweeps in (("ising-at-critical", 8000), ("three-phases", 15000)):
        for traces in (False, True):
            runner, python = whole_runs(name, sweeps, traces)
            what = f"{name}, {sweeps} sweeps" + (", with traces" if traces else "")
            print(f"| {what} | {runner:.3f} | {python:.3f} | {python / runner:.3f} |", flush=True)


if __name__ == "__main__":
    main()
