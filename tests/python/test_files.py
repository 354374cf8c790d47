"""Opening and saving documents."""

import os
import stat
from pathlib import Path

import pytest
from conftest import EXAMPLES, example, refused

import quorvane


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.stem)
def test_a_document_is_opened_and_saved_unchanged(path, tmp_path):
    for source in (path, str(path), os.fsencode(path), path.read_text()):
        assert quorvane.Model.open(source).text() == path.read_text()
    quorvane.Model.open(path).save(tmp_path / "saved")
    assert (tmp_path / "saved").read_bytes() == path.read_bytes()


def test_a_missing_file_is_the_error_that_open_gives(tmp_path):
    with pytest.raises(FileNotFoundError) as missing:
        quorvane.Model.open(tmp_path / "none")
    assert (missing.value.filename, missing.value.errno) == (str(tmp_path / "none"), 2)
    with pytest.raises(OSError):
        quorvane.Model.open(tmp_path)
    refused(ValueError, lambda: quorvane.Model.open("a\0b"))
    with pytest.raises(TypeError):
        quorvane.Model.open(3)


def test_a_null_character_in_a_name_is_refused_and_no_file_written(small, tmp_path):
    (tmp_path / "precious").write_text("kept")
    for path in (f"{tmp_path}/precious\0.quorvane", f"{tmp_path}/precious\0".encode()):
        assert refused(ValueError, lambda: small.save(path)).endswith("has a null character")
    assert (tmp_path / "precious").read_text() == "kept"


def test_names_of_files_need_not_be_utf_8(small, tmp_path):
    name = os.fsencode(tmp_path) + b"/l\xe4ttice"
    small.save(name)
    assert quorvane.Model.open(name).text() == quorvane.Model.open(os.fsdecode(name)).text() == small.text()
    with pytest.raises(FileNotFoundError) as missing:
        quorvane.Model.open(name + b"s")
    assert os.fsencode(missing.value.filename) == name + b"s"


def test_a_pipe_is_refused_at_once(tmp_path):
    os.mkfifo(tmp_path / "pipe")
    with pytest.raises(OSError):
        quorvane.Model.open(tmp_path / "pipe")


def test_a_document_that_is_wrong_is_refused_with_its_line(tmp_path):
    lines = example("voters").read_text().splitlines()
    path = tmp_path / "wrong"
    for text, why in [
        ("\n".join(["257", *lines[1:]]), 'line 1: number of sites across must be 1 to 256, not "257"'),
        ("\n".join(lines[:-3]), "line "),
        ("", ""),
        ("\u00e9\n", ""),
    ]:
        path.write_text(text, encoding="utf-8")
        message = refused(ValueError, lambda: quorvane.Model.open(path))
        assert message.startswith(f"{path}: ")
        assert why in message
    assert refused(ValueError, lambda: quorvane.Model.open("1\n2\n")).startswith("document: line ")
    assert refused(ValueError, lambda: quorvane.Model.open(b"1\n2\n")).startswith("document: line ")
    refused(ValueError, lambda: quorvane.Model.open("a\ud800b\n"))
    path.write_bytes(b"\xff" * 10)
    refused(ValueError, lambda: quorvane.Model.open(path))


def test_a_document_that_is_refused_draws_no_numbers():
    state = quorvane.getstate()
    refused(ValueError, lambda: quorvane.Model.open("5\n5\n0\n"))
    assert quorvane.getstate() == state


def test_saving_replaces_a_file_and_keeps_its_permissions(small, tmp_path):
    path = tmp_path / "kept"
    path.write_text("before")
    path.chmod(0o640)
    small.save(str(path))
    assert path.read_text() == small.text()
    assert stat.S_IMODE(path.stat().st_mode) == 0o640
    assert [each.name for each in tmp_path.iterdir()] == ["kept"]


def test_saving_where_it_cannot_be_is_an_os_error(small, tmp_path):
    with pytest.raises(FileNotFoundError) as missing:
        small.save(tmp_path / "none" / "x")
    assert missing.value.filename == str(tmp_path / "none" / "x")
    with pytest.raises(IsADirectoryError):
        small.save(tmp_path)
    assert list(tmp_path.iterdir()) == []


def test_saving_on_a_full_disk_is_an_os_error(small):
    if not Path("/dev/full").exists():
        pytest.skip("there is no /dev/full")
    assert "No space left on device" in refused(OSError, lambda: small.save("/dev/full"))


def test_a_model_is_only_made_by_its_functions():
    assert refused(TypeError, quorvane.Model) == "a model is made by Model.open or Model.new"
    with pytest.raises(AttributeError):
        quorvane.Model.new(2).latice = 3
