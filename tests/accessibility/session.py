"""Reads the whole window as a screen reader does: at the start, after Open, after a run and after setting sliders.

Usage, in a session with an accessibility bus: session.py APPLICATION SOURCE_FOLDER [--write]

The rows that have to be read stand in at-start.md and, after Open, in docs/accessibility.md; from then on they are
stated here as differences. --write writes both tables from what is read instead of comparing.
"""

import re
import subprocess
import sys
import time
from pathlib import Path

import reader

DOCUMENT = "silent-carriers.quorvane"

failures = []


def compare(moment, expected, rows):
    """Compares all rows in order. An expected field in slashes is a pattern."""
    def matches(field, text):
        pattern = re.fullmatch(r"/(.*)/", field, re.DOTALL)
        return re.fullmatch(pattern.group(1), text) is not None if pattern else field == text

    for number, (want, got) in enumerate(zip(expected, rows), 1):
        if not all(matches(*pair) for pair in zip(want, got)):
            failures.append(f"{moment}, row {number}:\n  expected {want}\n  read     {got}")
    for want in expected[len(rows):]:
        failures.append(f"{moment}: not read: {want}")
    for got in rows[len(expected):]:
        failures.append(f"{moment}: read but not expected: {got}")
    print(f"{moment}: {len(rows)} rows read")


def write(path, rows):
    """Replaces the rows of the page's table."""
    lines = path.read_text(encoding="utf-8").splitlines()
    first = lines.index("|---|---|---|---|") + 1
    last = next((place for place in range(first, len(lines)) if not lines[place].startswith("|")), len(lines))
    lines[first:last] = ["| " + " | ".join(row).rstrip() + " |" for row in rows]
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")


def rows_in(path):
    """The rows of the tables of a page, without their headers."""
    rows = []
    for line in path.read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.removeprefix("|").removesuffix("|").split("|")]
        if line.startswith("| ") and len(cells) == 4 and cells[0] != "role":
            rows.append(tuple(cells))
    return rows


def changed(rows, *changes):
    """The rows, with those of the same role and beginning of the name replaced."""
    rows = list(rows)
    for role, beginning, row in changes:
        places = [place for place, each in enumerate(rows) if each[0] == role and each[1].startswith(beginning)]
        assert len(places) == 1, f"{len(places)} rows begin with {role}, {beginning}"
        rows[places[0]] = (role, *row)
    return rows


def set_slider(frame, name, value):
    reader.find(frame, "slider", name).queryValue().currentValue = value


def open_document(app, frame, path):
    reader.act(reader.find(frame, "push button", "Open a document"), "Press")
    panel = reader.wait_for("panel", lambda: reader.find(app, "dialog", "Open a document"))
    reader.find(panel, "text", "File name").queryEditableText().setTextContents(str(path))
    confirm = reader.wait_for("button that is enabled", lambda: next(
        (each for each in [reader.find(panel, "push button", "Open")] if reader.is_enabled(each)), None))
    reader.act(confirm, "Press")
    reader.wait_for("document", lambda: reader.find(frame, "status bar", "Status: Stopped"))


def run_for_a_while(frame):
    reader.act(reader.find(frame, "push button", "Run the simulation"), "Press")
    reader.wait_for("run of ten sweeps",
                    lambda: reader.find(frame, "status bar", "Status: Running") and
                    re.search(r"(\d\d+) sweeps ", reader.find(frame, "status bar", "Status").name))
    reader.act(reader.find(frame, "push button", "Stop the simulation"), "Press")
    reader.wait_for("stop", lambda: reader.find(frame, "status bar", "Status: Stopped"))


def settled(frame):
    """The table, once it is unchanged for more than a second: some of it is announced once a second."""
    before = None
    end = time.monotonic() + reader.DEADLINE
    while time.monotonic() < end:
        rows = reader.table(frame)
        if rows == before:
            return rows
        before = rows
        time.sleep(1.3)
    raise TimeoutError("the window does not come to rest")


def session(app, source, compare_page):
    frame = reader.wait_for("window", lambda: reader.find(app, "frame", "Quorvane"))
    compare_page("at the start", source / "tests/accessibility/at-start.md", settled(frame))
    stepper = reader.find(frame, "spin button", "Number").queryValue()
    stepper.currentValue = 5
    reader.wait_for("step", lambda: reader.find(frame, "label", "Number of pixel types: 5"))

    open_document(app, frame, source / "examples" / DOCUMENT)
    compare_page("after Open", source / "docs/accessibility.md", settled(frame))
    opened = rows_in(source / "docs/accessibility.md")

    run_for_a_while(frame)
    share = r"\d+\.\d %"
    after_run = changed(
        opened,
        ("status bar", "Status", (r"/Status: Stopped  ·  \d\d+ sweeps  ·  128 × 104 sites/", "", "")),
        ("image", "Lattice", ("Lattice", rf"/128 × 104 sites: 0 - Healthy {share}, 1 - Sick {share}, "
                              rf"2 - Immune {share}, "
                              r"3 - Silent carrier 0\.1 %, 4 - Isolated carrier 0\.1 %, 5 - Wall 5\.0 %\./", "")),
        ("chart", "Shares", ("Shares of the lattice", rf"/Shows .* The last of \d+ points: 0 - Healthy {share} in "
                             rf"red, 0 - Healthy {share} in green\./", "")))
    rows = settled(frame)
    compare("after a run", after_run, rows)
    lattice = [row for row in rows if row[1] == "Lattice"]
    if lattice == [row for row in opened if row[1] == "Lattice"]:
        failures.append(f"after a run: the lattice is as before: {lattice}")

    for name, value in (("Parameter of the rule", 0.123456), ("Field energy of the pixel type", -99.0),
                        ("Simulation speed", 123456.0), ("Lattice density", 63.0),
                        ("Persistence of the trace", 0.5), ("Opacity of the pixel type", 2.0)):
        set_slider(frame, name, value)
    after_setting = changed(
        after_run,
        ("slider", "Parameter", ("Parameter of the rule", "0.123456, from 0 to 1 by 0.001", "")),
        ("label", "Parameter: ", ("Parameter: 0.123", "", "")),
        ("slider", "Field", ("Field energy of the pixel type", "-10, from -10 to 10 by 0.001", "")),
        ("label", "Field energy: ", ("Field energy: -10.000", "", "")),
        ("slider", "Simulation speed", ("Simulation speed", "123456, from 5 to 1000000000 by 1", "")),
        ("label", "Simulation speed: ", ("Simulation speed: 123,456", "", "")),
        ("slider", "Lattice density", ("Lattice density", "63, from 2 to 256 by 1", "")),
        ("label", "Lattice density: ", ("Lattice density: 63", "", "")),
        ("slider", "Persistence", ("Persistence of the trace", "0.5, from 0 to 1 by 0.001", "")),
        ("label", "Persistence: ", ("Persistence: 0.500", "", "")),
        ("slider", "Opacity", ("Opacity of the pixel type", "1, from 0 to 1 by 0.001", "")))
    compare("after setting sliders", after_setting, settled(frame))


def main():
    program, source = sys.argv[1], Path(sys.argv[2])
    # With a listening reader, the application has to announce everything.
    reader.listen_to_everything()
    process = subprocess.Popen([program], stderr=subprocess.PIPE, text=True)
    try:
        app = reader.wait_for("application", lambda: reader.application("Quorvane"))
        if "--write" in sys.argv:
            session(app, source, lambda moment, page, rows: write(page, rows))
        else:
            session(app, source, lambda moment, page, rows: compare(moment, rows_in(page), rows))
    finally:
        process.terminate()
        said = process.communicate(timeout=reader.DEADLINE)[1]
    failures.extend(f"the application complains: {line}" for line in said.splitlines() if "accessib" in line)
    if not failures:
        return 0
    print(*failures, "If this is how it shall be read: scripts/accessibility-tables", sep="\n", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
