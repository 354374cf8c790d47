#!/usr/bin/env python3
"""The exact energy per site of the Ising lattice of 4 x 4 sites with eight neighbours, by counting all states.

Usage: exact-energy.py K...   Prints the coupling K and the mean of -(sum over pairs of s s') / 16 for each.
"""
import collections
import math
import sys


def unlike_pairs(spins):
    """Site (i, j) is the bit 4 i + j; each of the four shifts joins 16 pairs of neighbours."""
    up = (spins << 1 & 0xEEEE) | (spins >> 3 & 0x1111)
    right, right_up, right_down = (
        (s << 4 | s >> 12) & 0xFFFF for s in (spins, up, (spins >> 1 & 0x7777) | (spins << 3 & 0x8888)))
    return sum(bin(spins ^ other).count("1") for other in (up, right, right_up, right_down))


states = collections.Counter(unlike_pairs(spins) for spins in range(1 << 16))
for coupling in map(float, sys.argv[1:]):
    weights = {pairs: count * math.exp(-2 * coupling * pairs) for pairs, count in states.items()}
    mean = math.fsum(p * w for p, w in weights.items()) / math.fsum(weights.values())
    print(f"{coupling:.3f},{-4 + mean / 8:.6f}")
