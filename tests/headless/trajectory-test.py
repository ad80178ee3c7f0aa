#!/usr/bin/python3
"""Has another program, ASE, read trajectories of kinetarium-headless, and compares every number with the saved states,
to the bit: trajectory-test.py PROGRAM"""

import csv
import os
import subprocess
import sys
import tempfile

import ase.io
import numpy

PROGRAM = os.path.abspath(sys.argv[1])
SEED = 9007199254740991
WORLD = ["--seed", str(SEED), "--atoms", "700", "--width", "640", "--height", "480", "--start-at", "300,200", "--quiet"]
ITERATIONS = [0, 20, 40, 50]


def run(*arguments):
    return subprocess.run([PROGRAM, *arguments], check=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE).stdout


def expect_same(what, actual, expected):
    assert actual == expected, f"{what} is {actual}, expected {expected}"


def state_after(iterations):
    """The columns of a saved state as 32-bit floats."""
    text = run(*WORLD, "--iterations", str(iterations), "--save-state", "-").decode().splitlines()
    rows = [[float(value) for value in row.values()] for row in csv.DictReader(text)]
    return numpy.array(rows, dtype=numpy.float32).T


def bits(values):
    return numpy.ascontiguousarray(values, dtype=numpy.float32).view(numpy.uint32).tolist()


def check_frame(frame, iteration):
    x, y, vx, vy, radius = state_after(iteration)
    zero = numpy.zeros_like(x)
    columns = {"positions": (x, y, zero), "velo": (vx, vy, zero), "radius": (radius,)}
    for name, expected in columns.items():
        values = frame.arrays[name].reshape(len(x), -1).T
        for axis, (actual, wanted) in enumerate(zip(values, expected, strict=True)):
            expect_same(f"{name} {axis} of iteration {iteration}", bits(actual), bits(wanted))
    expect_same("the cell", frame.cell.tolist(), [[640, 0, 0], [0, 480, 0], [0, 0, 1]])
    expect_same("the periodicity", frame.pbc.tolist(), [False, False, False])
    expect_same("the information", frame.info, {"iteration": iteration, "seed": SEED})
    expect_same("the species", set(frame.get_chemical_symbols()), {"X"})


def main():
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        for name in ("gas.xyz", "gas.xyz.gz"):
            run(*WORLD, "--iterations", "50", "--every", "20", "--trajectory", name)
            frames = ase.io.read(name, index=":")
            expect_same("the number of frames", len(frames), len(ITERATIONS))
            for frame, iteration in zip(frames, ITERATIONS):
                check_frame(frame, iteration)
        with open("stream.xyz", "wb") as file:
            file.write(run(*WORLD, "--iterations", "50", "--every", "20", "--trajectory", "-"))
        with open("gas.xyz", "rb") as file, open("stream.xyz", "rb") as stream:
            assert file.read() == stream.read(), "standard output and the file differ"
        os.chdir("/")
    print("ASE reads the numbers of the states")


main()
