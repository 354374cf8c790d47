"""What models and their parts leave behind in memory."""

import ctypes
import gc
import os
import resource
import sys

from conftest import example

import quorvane

# The sanitizer has an allocator of its own, which keeps freed memory for a while.
SANITIZED = "libasan" in os.environ.get("LD_PRELOAD", "")


class HeapInfo(ctypes.Structure):
    """What mallinfo2 of the C library tells."""

    _fields_ = [(name, ctypes.c_size_t) for name in (
        "arena", "ordblks", "smblks", "hblks", "hblkhd", "usmblks", "fsmblks", "uordblks", "fordblks", "keepcost")]


def used():
    """The bytes that are allocated now, and the blocks of Python's own small objects, which these do not count."""
    gc.collect()
    if SANITIZED:
        with open("/proc/self/statm") as file:
            return int(file.read().split()[1]) * resource.getpagesize(), sys.getallocatedblocks()
    library = ctypes.CDLL(None)
    library.mallinfo2.restype = HeapInfo
    info = library.mallinfo2()
    return info.uordblks + info.hblkhd, sys.getallocatedblocks()


def growth_of(work, times, warm_up):
    """The growth of the used bytes and of the small objects by calls of work, after some that fill caches."""
    for _ in range(warm_up):
        work()
    before = used()
    for _ in range(times):
        work()
    after = used()
    return after[0] - before[0], after[1] - before[1]


def is_small(growth):
    return growth[0] < (60_000_000 if SANITIZED else 200_000) and growth[1] < 500


def test_a_leak_would_be_seen():
    model, kept = quorvane.Model.new(2), []
    assert growth_of(lambda: kept.append(model.types[0]), 2000, 10)[1] >= 2000 or SANITIZED
    assert growth_of(lambda: kept.append(model.types[0].color), 2000, 10)[1] >= 2000 or SANITIZED
    assert not is_small(growth_of(lambda: kept.append(quorvane.Model.new(2)), 20, 1))


def test_models_leave_nothing_behind():
    # Two bytes for each model.
    assert is_small(growth_of(lambda: quorvane.Model.new(2), 2000 if SANITIZED else 100_000, 200))


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

    assert is_small(growth_of(work, 100 if SANITIZED else 200, 50))


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
    assert is_small(growth_of(work, times, 500))


def test_an_item_keeps_its_model():
    name = quorvane.Model.new(2, ["Only"]).types[0]
    gc.collect()
    others = [quorvane.Model.new(2, ["Other"]) for _ in range(5)]
    name.field = 2.5
    assert (name.name, name.field, others[0].types[0].field) == ("Only", 2.5, 0.0)
