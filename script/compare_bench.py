#!/usr/bin/env python3
"""script/compare_bench.py THERE HERE [--rounds=N] [ARGUMENT...] - runs two steprt_bench in turns with these arguments.

For each task prints the time of a record of THERE and of HERE, and HERE / THERE: the median of the rounds (9 by
default), the least and the largest. script/bench --compare calls it.
"""
import json
import statistics
import subprocess
import sys


def run(binary, arguments):
    """The nanoseconds that a record takes, by task. A task without such a figure is left out."""
    command = [binary, "--benchmark_format=json", *arguments]
    tasks = json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout)["benchmarks"]
    return {task["name"].split("/iterations")[0]: task["ns_per_record"] for task in tasks if "ns_per_record" in task}


def main(there, here, *arguments):
    rounds = [int(a.removeprefix("--rounds=")) for a in arguments if a.startswith("--rounds=")] or [9]
    arguments = [a for a in arguments if not a.startswith("--rounds=")]
    results = {there: [], here: []}
    for i in range(rounds[-1]):
        for binary in (there, here) if i % 2 else (here, there):  # neither is always the first
            results[binary].append(run(binary, arguments))
    tasks = [task for task in results[here][0] if task in results[there][0]]
    print(f"{'task':<40}{'there':>9}{'here':>9}   here / there, least .. largest")
    for task in tasks:
        old, new = ([result[task] for result in results[binary]] for binary in (there, here))
        ratios = sorted(n / o for n, o in zip(new, old))
        print(f"{task:<40}{statistics.median(old):9.1f}{statistics.median(new):9.1f}"
              f"{statistics.median(ratios):10.3f}, {ratios[0]:.3f} .. {ratios[-1]:.3f}")
    return 0 if tasks else f"no task of both has a figure: {' '.join(arguments)}"


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
