"""Runs the blocks of Python of docs/python.md, in order and in one namespace, beside the examples.

QUORVANE_EXAMPLES names the folder of the examples, QUORVANE_STUDY the program quorvane-study.
"""
import os
import re
import shutil
import subprocess
import sys
import textwrap
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
EXAMPLES = Path(os.environ.get("QUORVANE_EXAMPLES", ROOT / "examples"))
PAGE = ROOT / "docs" / "python.md"


def script(text):
    """The page with all but its code blank: lines in messages are those of the page."""
    lines, inside = [], False
    for line in text.splitlines():
        fence = line.startswith("```")
        lines.append(line if inside and not fence else "")
        inside = (line == "```python") if fence and not inside else inside and not fence
    return "\n".join(lines) + "\n"


def run(text, folder):
    for document in EXAMPLES.glob("*.quorvane"):
        shutil.copy(document, folder)
    (folder / "python.md.py").write_text(text, encoding="utf-8")
    return subprocess.run([sys.executable, "python.md.py"], cwd=folder, text=True, timeout=300,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          env={**os.environ, "MPLBACKEND": "Agg"})


def test_blocks_run(tmp_path):
    result = run(script(PAGE.read_text(encoding="utf-8")), tmp_path)
    assert result.returncode == 0, result.stdout
    for name in ("first-example.svg", "mixture.quorvane", "after.quorvane", "lattice.png",
                 "heat.svg"):
        assert (tmp_path / name).stat().st_size > 0, name


def test_a_wrong_block_is_found(tmp_path):
    """Blocks share a namespace, other blocks are left out, and lines are those of the page."""
    text = ("# A page\n\n```python\nx = 1\n```\n\n```sh\nfalse\n```\n\n"
            "```python notest\nraise\n```\n")
    assert run(script(text + "```python\nassert x == 1\n```\n"), tmp_path).returncode == 0
    result = run(script(text + "```python\nassert x == 2\n```\n"), tmp_path)
    assert result.returncode != 0
    assert re.search(r"line 15\b", result.stdout), result.stdout


def test_figures_and_files_of_the_page_exist():
    links = re.findall(r"\]\(([^)#]+)(?:#[^)]*)?\)", PAGE.read_text(encoding="utf-8"))
    assert len(links) > 5
    for link in links:
        assert (PAGE.parent / link).exists(), link


def test_the_blocks_of_the_readmes_run(tmp_path):
    (tmp_path / "examples").mkdir()
    for document in EXAMPLES.glob("*.quorvane"):
        shutil.copy(document, tmp_path / "examples")
    for page in (ROOT / "README.md", ROOT / "python" / "README.md"):
        lines = page.read_text(encoding="utf-8").splitlines()
        first = lines.index("    import quorvane")
        length = next(k for k, line in enumerate(lines[first:]) if line and not line.startswith("    "))
        result = run(textwrap.dedent("\n".join(lines[first:first + length])), tmp_path)
        assert result.returncode == 0, f"{page}: {result.stdout}"
