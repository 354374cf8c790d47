"""What models and their parts leave behind in memory."""

import ctypes
import gc
import os
import resource

import pytest
from conftest import example

import quorvane

# The sanitizer has an allocator of its own, which keeps freed memory for a while.
SANITIZED = "libasan" in os.environ.get("LD_PRELOAD", "")


class HeapInfo(ctypes.Structure):
    """What mallinfo2 of the C library tells."""

    _fields_ = [(name, ctypes.c_size_t) for name in (
        "arena", "ordblks", "smblks", "hblks", "hblkhd", "usmblks", "fsmblks", "uordblks", "fordblks", "keepcost")]


def used_bytes():
    """The bytes that are allocated now; with a sanitizer those that are in memory."""
    gc.collect()
    if SANITIZED:
        with open("/proc/self/statm") as file:
            return int(file.read().split()[1]) * resource.getpagesize()
    library = ctypes.CDLL(None)
    library.mallinfo2.restype = HeapInfo
    info = library.mallinfo2()
    return info.uordblks + info.hblkhd


def growth_of(work, times, warm_up):
    """The growth of the used bytes by calls of work, after some that fill caches."""
    for _ in range(warm_up):
        work()
    before = used_bytes()
    for _ in range(times):
        work()
    return used_bytes() - before


def limit(bytes_of_heap):
    return 60_000_000 if SANITIZED else bytes_of_heap


def test_a_leak_would_be_seen():
    if SANITIZED:
        pytest.skip("the sanitizer's allocator keeps memory")
    kept = []
    assert growth_of(lambda: kept.append(quorvane.Model.new(2)), 3, 1) > 3 * 5_000_000
    assert growth_of(lambda: kept.append(bytes(1000)), 300, 10) > 300 * 1000


def test_models_leave_nothing_behind():
    # Two bytes for each model.
    assert growth_of(lambda: quorvane.Model.new(2), 2000 if SANITIZED else 100_000, 200) < limit(200_000)


def test_documents_pickles_and_errors_leave_nothing_behind():
    text = example("voters").read_text()

    def work():
        model = quorvane.Model.open(text)
        model.copy().measure("counts,clusters")
        model.png(1)
        for bad in ("x\n", "5\n5\n0\n"):
            try:
                quorvane.Model.open(bad)
            except ValueError:
                pass

    assert growth_of(work, 100 if SANITIZED else 400, 50) < limit(100_000)


def test_small_objects_leave_nothing_behind():
    model = quorvane.Model.new(8, 3)
    model.rules.add("swap", 0, 1, 0.5)

    def work():
        model.types[1].color, model.rules[0].name, model.lattice[3][4], model.lattice[1:3].copy()
        model.lattice[2, 2] = 1
        model.observe("counts").row()
        try:
            model.types[7]
        except IndexError:
            pass

    times = 5_000 if SANITIZED else 60_000
    assert growth_of(work, times, 500) < limit(100_000)


def test_an_item_keeps_its_model():
    name = quorvane.Model.new(2, ["Only"]).types[0]
    gc.collect()
    others = [quorvane.Model.new(2, ["Other"]) for _ in range(5)]
    name.field = 2.5
    assert (name.name, name.field, others[0].types[0].field) == ("Only", 2.5, 0.0)
