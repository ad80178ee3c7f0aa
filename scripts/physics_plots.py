"""Draws the plots of docs/physics.md from what scripts/physics.py has measured.

Every colour is readable on white and on a dark page, the background is left open, and the same numbers give the same
bytes.
"""

import filecmp
import os

import matplotlib

matplotlib.use("svg")
import matplotlib.pyplot as plt # after the choice of the output
import numpy as np

GREY, BLUE, ORANGE, GREEN = "#7d858c", "#3b8edb", "#d9730d", "#2e9e5b"
plt.rcParams.update({
    "svg.fonttype": "none", "svg.hashsalt": "kinetarium", "font.family": "DejaVu Sans", "font.size": 11,
    "text.color": GREY, "axes.labelcolor": GREY, "axes.edgecolor": GREY, "xtick.color": GREY, "ytick.color": GREY,
    "grid.color": GREY, "grid.alpha": 0.25, "axes.grid": True, "axes.spines.top": False, "axes.spines.right": False,
    "legend.frameon": False, "path.simplify_threshold": 0.5, "figure.figsize": (7, 3.6),
})


def draw_energy(axes, shown):
    energies = shown["energies"]
    # Few points where little happens.
    moments = [i for i in range(len(energies)) if i < 50 or i % 5 == 0]
    axes.plot(moments, [energies[i] for i in moments], color=BLUE, label="kinetic energy")
    axes.axhline(1, color=ORANGE, linestyle="--", label="physical discs")
    axes.set(xlabel="iteration", ylabel="energy / energy at the start", xlim=(0, 300), ylim=(0.98, 1.14))
    axes.legend(loc="center right")


def draw_speeds(axes, shown):
    ratios = shown["speeds"] / shown["speeds"].mean()
    edges = np.linspace(0, 3.5, 71)
    counts = np.histogram(ratios, edges)[0] / (len(ratios) * (edges[1] - edges[0]))
    axes.stairs(counts, edges, fill=True, color=GREY, alpha=0.4, label="measured")
    x = np.linspace(0, 3.5, 141)
    axes.plot(x, 4**4 * x**3 * np.exp(-4 * x) / 6, color=BLUE, label="Gamma law of shape 4")
    axes.plot(x, np.pi / 2 * x * np.exp(-np.pi / 4 * x**2), color=ORANGE, linestyle="--", label="Rayleigh's law")
    axes.set(xlabel="speed / mean speed", ylabel="density", xlim=(0, 3.5))
    axes.legend()


def draw_pressure(axes, shown):
    packings = np.linspace(0, 0.4, 81)
    axes.plot(packings, (1 + packings**2 / 8) / (1 - packings) ** 2, color=ORANGE, linestyle="--",
              label="physical discs (Henderson)")
    measured = shown["pressures"]
    axes.errorbar(list(measured), [value for value, _ in measured.values()], [2 * error for _, error in measured.values()],
                  color=BLUE, fmt="o", capsize=3, label="measured, with two standard errors")
    axes.plot(0.34, shown["slow"][0], color=GREEN, marker="D", linestyle="none", label="with a tenth of the velocities")
    axes.axhline(1, color=GREY, label="ideal gas")
    axes.set(xlabel="packing (area of the discs / area)", ylabel="PA / E", xlim=(0, 0.4), ylim=(0.9, 3))
    axes.legend()


def draw_correlation(axes, shown):
    for (packing, values), colour, line in zip(shown["correlations"].items(), (BLUE, GREEN, ORANGE), ("-", "--", "-.")):
        axes.semilogy(np.arange(len(values)) * 2, np.maximum(values, 0.01), color=colour, linestyle=line,
                      label=f"packing {packing}")
    axes.axhline(np.exp(-1), color=GREY, linestyle=":", label="1/e")
    axes.set(xlabel="iterations", ylabel="correlation of the velocities", xlim=(0, 80), ylim=(0.1, 1))
    axes.set_yticks([0.1, 0.2, 0.5, 1], ["0.1", "0.2", "0.5", "1"])
    axes.minorticks_off()
    axes.legend()


def draw_burst(axes, shown):
    times, spreads = zip(*shown["burst"])
    axes.plot(times, spreads, color=BLUE, label="mean distance from the centre")
    axes.axhspan(0.9, 1.1, color=GREEN, alpha=0.2, linewidth=0, label="even gas, within a tenth")
    axes.set(xlabel="time / time in which an atom of mean speed crosses the world", ylabel="distance / that of an even gas",
             xlim=(0, 2.1), ylim=(0, 1.3))
    axes.legend(loc="lower right")


PLOTS = {"energy": draw_energy, "speeds": draw_speeds, "pressure": draw_pressure, "correlation": draw_correlation,
         "burst": draw_burst}


def draw_all(shown, folder, kept):
    """Writes the plots into a folder; returns how many differ from those of the folder kept."""
    differing = 0
    for name, draw in PLOTS.items():
        figure, axes = plt.subplots(layout="constrained")
        draw(axes, shown)
        file = f"physics-{name}.svg"
        figure.savefig(os.path.join(folder, file), transparent=True, metadata={"Date": None})
        plt.close(figure)
        same = os.path.exists(os.path.join(kept, file)) and filecmp.cmp(os.path.join(folder, file),
                                                                        os.path.join(kept, file), shallow=False)
        differing += not same
        print(f"{'ok    ' if same else 'WRONG '} {file}")
    return differing
