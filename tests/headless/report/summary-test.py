#!/usr/bin/env python3
"""Reads the summary of the finished program as JSON and as CSV, compares each value with the text form, and lets a shell
run the command that the summary tells: summary-test.py PROGRAM"""

import csv
import io
import json
import os
import subprocess
import sys
import tempfile

program = os.path.realpath(sys.argv[1])
NAMES = {
    "width": "width", "height": "height", "atoms": "atoms", "smallest_radius": "smallest radius",
    "largest_radius": "largest radius", "seed": "seed", "start": "start", "colour_mode": "colour mode",
    "colour_1": "colour 1", "factor_1": "factor 1", "colour_2": "colour 2", "factor_2": "factor 2",
    "colour_3": "colour 3", "factor_3": "factor 3", "background": "background", "iterations": "iterations",
    "median_time_ms": "median time (ms)", "percentile_95_time_ms": "95th percentile time (ms)",
    "collisions_per_iteration_percent": "collisions per iteration (%)", "minimum_speed": "minimum speed",
    "maximum_speed": "maximum speed", "average_speed": "average speed",
    "total_speed_drift": "drift of the total speed", "total_speed_drift_percent": "drift of the total speed (%)",
    "overlapping_pairs": "overlapping pairs", "largest_overlap": "largest overlap", "atoms_outside": "atoms outside",
    "state_hash": "state hash"}
TEXTS = {"seed", "start", "colour_mode", "colour_1", "colour_2", "colour_3", "factor_1", "factor_2", "factor_3",
         "background", "state_hash"}
TIMES = {"median_time_ms", "percentile_95_time_ms"}


def run(*arguments, standard_error=False):
    result = subprocess.run([program, *arguments], capture_output=True, text=True)
    assert result.returncode == 0, result.stderr
    return result.stderr if standard_error else result.stdout


def run_forms(*arguments):
    text = dict(line.split(": ", 1) for line in run(*arguments).splitlines())
    line = run(*arguments, "--summary", "json")
    assert line.count("\n") == 1 and line.endswith("}\n"), line
    (row,) = csv.DictReader(io.StringIO(run(*arguments, "--summary", "csv")))
    return text, json.loads(line), row


def compare(arguments):
    text, data, row = run_forms(*arguments)
    assert list(data) == list(row), "JSON and CSV have other keys"
    assert set(data) - {"version", "command", "overlaps_at_least"} == set(NAMES), data.keys()
    assert sorted(NAMES.values()) == sorted(text), text.keys()
    for key, name in NAMES.items():
        shown, value = text[name], data[key]
        if shown in ("none", "not counted"):
            assert value is None and row[key] == "", key
        elif key in TIMES:
            assert value > 0 and float(row[key]) > 0, key
        elif key in TEXTS:
            assert value == shown == row[key], key
        else:
            assert type(value) in (int, float) and value == float(shown) and row[key] == shown, key
    return text, data


with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    os.symlink(program, "kinetarium-headless")
    environment = {**os.environ, "PATH": folder + os.pathsep + os.environ["PATH"]}
    state = "it's a \"state\" of $HOME,ü\n.csv"
    run("--seed", "5", "--iterations", "3", "--save-state", state)
    worlds = [["--seed", "18446744073709551615"], ["--seed", "1", "--iterations", "0", "--no-overlaps"],
              ["--seed", "3", "--start-at", "250,250", "--iterations", "20", "--min-radius", "1"],
              ["--seed", "4", "--colour-mode", "fixed", "--factors", "25%,,50%", "--iterations", "10"]]
    for world in worlds:
        text, data = compare(world)
        repeated = subprocess.run(["bash", "-c", data["command"]], env=environment, capture_output=True, text=True)
        again = dict(line.split(": ", 1) for line in repeated.stdout.splitlines())
        for name in text:
            assert "time" in name or name.startswith("overlap") or name == "largest overlap" or \
                again[name] == text[name], name
    arguments = ["--load-state", state, "--width", "512", "--height", "512", "--seed", "2", "--iterations", "4"]
    data = json.loads(run(*arguments, "--summary", "json"))
    assert data["start"] == state
    repeated = subprocess.run(["bash", "-c", data["command"] + " --summary json"], env=environment,
                              capture_output=True, text=True)
    assert json.loads(repeated.stdout)["state_hash"] == data["state_hash"], repeated.stderr
    # A table on standard output leaves standard error to the summary.
    data = json.loads(run("--seed", "1", "--iterations", "2", "--stats", "-", "--summary", "json",
                          standard_error=True))
    assert data["iterations"] == 2 and data["seed"] == "1"
print("the three forms of the summary have the same values")
