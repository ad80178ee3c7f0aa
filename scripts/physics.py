#!/usr/bin/python3
"""Measures the gas of docs/physics.md with kinetarium-headless: physics.py --short | --long | --write PROGRAM

  --short  with few atoms, in seconds; each figure must agree with the page's within its tolerance
  --long   as on the page, in minutes; each figure must be the page's, and each plot the one in docs/images
  --write  measures as --long does, and writes figures and plots into docs

It needs numpy and, except for --short, matplotlib. This is Debian's Python: another one may lack its packages.
"""

import csv
import math
import os
import subprocess
import sys
import tempfile

import numpy as np

DOCS = os.path.join(os.path.dirname(os.path.realpath(__file__)), os.pardir, "docs")
RADIUS = 4
PACKINGS = (0.06, 0.17, 0.34)

# The sizes of the experiments.
LONG = {"atoms": 100_000, "iterations": 1000, "width": 1500, "pressure": 10_000, "slow": (600, 200_000), "burst": 10_000}
SHORT = {"atoms": 8000, "iterations": 400, "width": 800, "pressure": 6000, "slow": (400, 60_000), "burst": 10_000}

# The rows of the page's table: key, decimals, how far the short form may be away.
FIGURES = [
    ("Drift of the total speed (%)", 3, 0.001),
    ("Oblique collision: total speed", 4, 0.0001),
    ("Oblique collision: energy", 4, 0.0001),
    ("Oblique collision: momentum", 4, 0.0001),
    ("Energy after a random start", 3, 0.01),
    ("Shape of the Gamma law", 2, 0.15),
    ("Distance from the Gamma law", 3, 0.008),
    ("Distance from Rayleigh's law", 3, 0.004),
    ("PA/E at packing 0.06", 2, 0.03),
    ("PA/E at packing 0.17", 2, 0.03),
    ("PA/E at packing 0.34", 2, 0.03),
    ("PA/E at packing 0.34, slow atoms", 2, 0.04),
    ("Correlation time at packing 0.06", 1, 3.0),
    ("Correlation time at packing 0.17", 1, 1.5),
    ("Correlation time at packing 0.34", 1, 0.5),
    ("Burst: first turn", 2, 0.01),
    ("Burst: equilibrium", 2, 0.01),
]


class Gas:
    """One run in the current folder, in pieces. The first piece has the options of the gas."""

    def __init__(self, program, *options):
        self.program = program
        self.options = options
        self.iteration = 0

    def advance(self, iteration, *options):
        """Goes on to this iteration, and returns the summary of the whole run."""
        command = [self.program, "--quiet", "--no-overlaps", "--checkpoint", "run.ckpt", "--save-state", "state.csv",
                   "--iterations", iteration - self.iteration, *self.options, *options]
        done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, text=True, check=True)
        self.options = ("--resume", "run.ckpt")
        self.iteration = iteration
        return dict(line.split(": ", 1) for line in done.stdout.splitlines())

    def state(self):
        """Places and velocities at the end of the last piece, a row for each atom."""
        columns = np.loadtxt("state.csv", delimiter=",", skiprows=1, ndmin=2)
        return columns[:, :2], columns[:, 2:4]


def world(width):
    return "--width", width, "--height", width


def discs(program, packing, width):
    """A gas of discs of one radius that fill this part of the area that their centres can reach."""
    atoms = round(packing * (width - 2 * RADIUS) ** 2 / (math.pi * RADIUS**2))
    return atoms, Gas(program, "--seed", 1, "--atoms", atoms, *world(width), "--min-radius", RADIUS, "--max-radius", RADIUS)


def read_rows(name):
    with open(name, newline="", encoding="ascii") as file:
        return [{key: float(value) for key, value in row.items()} for row in csv.DictReader(file)]


def gamma_law(speeds, mean):
    """The distribution function of the Gamma law of shape 4 with this mean."""
    x = 4 * speeds / mean
    return 1 - np.exp(-x) * (1 + x + x**2 / 2 + x**3 / 6)


def rayleigh_law(speeds, mean):
    """That of Rayleigh's law, which Maxwell's and Boltzmann's is in two dimensions."""
    return 1 - np.exp(-math.pi / 4 * (speeds / mean) ** 2)


def distance(speeds, law):
    """The largest distance between the distribution functions (Kolmogorov and Smirnov), with the mean of the speeds."""
    ordered = np.sort(speeds)
    ranks = np.arange(len(ordered) + 1) / len(ordered)
    values = law(ordered, ordered.mean())
    return float(max((values - ranks[:-1]).max(), (ranks[1:] - values).max()))


def henderson(packing):
    """PA/E of hard discs that keep energy and momentum: D. Henderson, Molecular Physics 30 (1975), 971."""
    return (1 + packing**2 / 8) / (1 - packing) ** 2


def enskog(packing, energy):
    """The correlation time of such discs: 1 / (the collisions of a disc in an iteration), after Enskog's theory, whose
    density at contact is Henderson's. The temperature is the energy of a disc."""
    density = packing / (math.pi * RADIUS**2)
    at_contact = (1 - 7 / 16 * packing) / (1 - packing) ** 2
    return 1 / (2 * density * 2 * RADIUS * at_contact * math.sqrt(math.pi * energy))


def measure_collision(program):
    """An atom of speed 1 meets one at rest; when they touch, the line of centres has 45 degrees to its way."""
    with open("two.csv", "w", encoding="ascii") as file:
        file.write("x,y,vx,vy,radius\n99,100,1,0,5\n107,107,0,0,5\n")
    gas = Gas(program, "--load-state", "two.csv", *world(500))
    gas.advance(1)
    velocities = gas.state()[1]
    return {"Oblique collision: total speed": float(np.hypot(*velocities.T).sum()),
            "Oblique collision: energy": float((velocities**2).sum()),
            "Oblique collision: momentum": float(np.hypot(*velocities.sum(axis=0)))}


def measure_speeds(program, size):
    """A random start at packing 0.2 with the usual radii, 3 to 5."""
    options = ("--seed", 1, "--atoms", size["atoms"], *world(round(math.sqrt(size["atoms"] * math.pi * 50 / 3 / 0.2))))
    gas = Gas(program, *options)
    gas.advance(0)
    start = float((gas.state()[1] ** 2).sum(axis=1).mean() / 2)
    gas = Gas(program, *options)
    summary = gas.advance(size["iterations"], "--stats", "energy.csv", "--observables")
    rows = read_rows("energy.csv")
    energies = [1.0] + [row["kinetic_energy"] / start for row in rows]
    speeds = np.hypot(*gas.state()[1].T)
    return {"Drift of the total speed (%)": abs(float(summary["drift of the total speed (%)"])),
            "Energy after a random start": float(np.mean(energies[len(energies) // 2:])),
            "Shape of the Gamma law": float(speeds.mean() ** 2 / speeds.var()),
            "Distance from the Gamma law": distance(speeds, gamma_law),
            "Distance from Rayleigh's law": distance(speeds, rayleigh_law)}, energies, speeds


def measure_pressure(program, packing, width, iterations, slowness=1):
    """PA/E with the pressure on, and the area of, the square that the centres can reach; its standard error."""
    atoms, gas = discs(program, packing, width)
    gas.advance(1000)
    with open("slow.csv", "w", encoding="ascii") as file:
        file.write("x,y,vx,vy,radius\n")
        for (x, y), (vx, vy) in zip(*gas.state()):
            file.write(f"{x},{y},{vx / slowness},{vy / slowness},{RADIUS}\n")
    gas = Gas(program, "--load-state", "slow.csv", *world(width))
    gas.advance(iterations, "--stats", "pressure.csv", "--stats-every", iterations // 10, "--observables")
    values = [row["pressure"] * width * (width - 2 * RADIUS) / (atoms * row["kinetic_energy"])
              for row in read_rows("pressure.csv")]
    return float(np.mean(values)), float(np.std(values, ddof=1) / math.sqrt(len(values)))


def measure_correlation(program, packing, size):
    """The mean of v(0) v(t) over that of v(0) v(0), from t = 0 until it is below a tenth; the energy of a disc."""
    gas = discs(program, packing, size["width"])[1]
    gas.advance(500)
    first = gas.state()[1]
    values = [1.0]
    while values[-1] > 0.1:
        gas.advance(gas.iteration + 2)
        values.append(float((first * gas.state()[1]).sum() / (first**2).sum()))
    return values, float((first**2).sum(axis=1).mean() / 2)


def correlation_time(values):
    """When the correlation falls below 1/e, between two iterations in a straight line."""
    below = next(i for i, value in enumerate(values) if value < math.exp(-1))
    return 2 * (below - 1 + (values[below - 1] - math.exp(-1)) / (values[below - 1] - values[below]))


def measure_burst(program, size):
    """All atoms at the centre, packing 0.13 later. The mean distance from the centre over that of an even gas, by time.

    Time is counted in crossings: an atom of mean speed crosses the world in one.
    """
    width = round(math.sqrt(size["burst"] * 400))
    gas = Gas(program, "--seed", 1, "--atoms", size["burst"], *world(width), "--start-at", f"{width // 2},{width // 2}")
    even = width * (math.sqrt(2) + math.asinh(1)) / 6
    curve = []
    for step in range(81):
        speed = float(gas.advance(round(step * width / 40))["average speed"])
        centres = gas.state()[0] - width // 2
        curve.append((gas.iteration * speed / width, float(np.hypot(*centres.T).mean() / even)))
    turn = max(curve, key=lambda point: point[1])[0]
    last_outside = max(i for i, (_, spread) in enumerate(curve) if abs(spread - 1) > 0.1)
    return {"Burst: first turn": turn, "Burst: equilibrium": curve[last_outside + 1][0]}, curve


def measure(program, size):
    """The figures, those of physical discs where a theory gives them, and what the plots show."""
    figures, physical, shown = measure_collision(program), {}, {}
    more, shown["energies"], shown["speeds"] = measure_speeds(program, size)
    figures.update(more)
    shown["pressures"], shown["correlations"] = {}, {}
    for packing in PACKINGS:
        key = f"PA/E at packing {packing}"
        shown["pressures"][packing] = measure_pressure(program, packing, size["width"], size["pressure"])
        figures[key], physical[key] = shown["pressures"][packing][0], henderson(packing)
        key = f"Correlation time at packing {packing}"
        shown["correlations"][packing], energy = measure_correlation(program, packing, size)
        figures[key], physical[key] = correlation_time(shown["correlations"][packing]), enskog(packing, energy)
    key = "PA/E at packing 0.34, slow atoms"
    shown["slow"] = measure_pressure(program, 0.34, *size["slow"], slowness=10)
    figures[key], physical[key] = shown["slow"][0], henderson(0.34)
    more, shown["burst"] = measure_burst(program, size)
    figures.update(more)
    return figures, physical, shown


def read_page():
    """The page's lines, and the cells of the rows that begin with a figure's name, by that name."""
    with open(os.path.join(DOCS, "physics.md"), encoding="utf-8") as file:
        lines = file.read().splitlines()
    rows = {}
    for number, line in enumerate(lines):
        cells = [cell.strip() for cell in line.split("|")]
        if len(cells) > 3 and any(cells[1] == key for key, _, _ in FIGURES):
            rows[cells[1]] = (number, cells)
    return lines, rows


def compare(figures, physical, short):
    """Prints each figure; returns how many are not those of the page."""
    rows = read_page()[1]
    wrong = 0
    for key, decimals, tolerance in FIGURES:
        told = rows[key][1][2:4]
        allowed = tolerance if short else 0.501 * 10**-decimals
        fits = abs(figures[key] - float(told[0])) <= allowed
        fits = fits and (key not in physical or abs(physical[key] - float(told[1])) <= allowed)
        wrong += not fits
        print(f"{'ok    ' if fits else 'WRONG '} {key}: {figures[key]:.{decimals + 1}f}, page {told[0]}")
    return wrong


def write_page(figures, physical):
    lines, rows = read_page()
    for key, decimals, _ in FIGURES:
        number, cells = rows[key]
        cells[2] = f"{figures[key]:.{decimals}f}"
        if key in physical:
            cells[3] = f"{physical[key]:.{decimals}f}"
        lines[number] = " | ".join(cells).strip()
    with open(os.path.join(DOCS, "physics.md"), "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")


def main():
    if len(sys.argv) != 3 or sys.argv[1] not in ("--short", "--long", "--write"):
        print(__doc__, file=sys.stderr)
        return 2
    mode, program = sys.argv[1], os.path.realpath(sys.argv[2])
    # In memory where that is possible: each file is written to the disk before the program goes on.
    with tempfile.TemporaryDirectory(dir="/dev/shm" if os.path.isdir("/dev/shm") else None) as folder:
        os.chdir(folder)
        figures, physical, shown = measure(program, SHORT if mode == "--short" else LONG)
        os.chdir(DOCS)
        if mode == "--write":
            write_page(figures, physical)
        wrong = compare(figures, physical, mode == "--short")
        for packing, (_, error) in [*shown["pressures"].items(), ("0.34, slow atoms,", shown["slow"])]:
            print(f"       PA/E at packing {packing} has the standard error {error:.3f}")
        if mode != "--short":
            sys.dont_write_bytecode = True # no folder in the sources
            import physics_plots # only here, as it needs matplotlib
            images = os.path.join(DOCS, "images") if mode == "--write" else folder
            wrong += physics_plots.draw_all(shown, images, os.path.join(DOCS, "images"))
    print(f"Physics: {len(figures)} figures are those of docs/physics.md" if wrong == 0 else f"Physics: {wrong} differ")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
