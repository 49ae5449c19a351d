#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints what a benchmark program measured: the median of each, beside its rivals' and memcpy's."""

import json
import platform
import re
import sys


def cpu_model():
    try:
        with open("/proc/cpuinfo", encoding="ascii") as info:
            return re.search(r"^model name\s*: (.*)$", info.read(), re.M).group(1)
    except (OSError, AttributeError):
        return platform.processor()


def medians(report):
    rows = report["benchmarks"]
    return [row for row in rows if row.get("aggregate_name", "median") == "median"]


def rate(row):
    """Gigabytes, or else millions of items, a second of processor time."""
    if "bytes_per_second" in row:
        return row["bytes_per_second"] / 1e9
    return row.get("items_per_second", 1e9 / row["cpu_time"]) / 1e6


def size_of(name):
    number, unit = re.fullmatch(r"(\d+)(KiB|MiB)", name).groups()
    return int(number) << {"KiB": 10, "MiB": 20}[unit]


def print_codecs(rows):
    rates = {tuple(row["run_name"].split("/")): rate(row) for row in rows}
    copies = {size: value for (job, _, size, library), value in rates.items()
              if (job, library) == ("copy", "memcpy")}
    print(f"{'job':<24}{'input':<9}{'size':<7}{'library':<22}{'GB/s':>9}"
          f"{'of memcpy':>11}{'ours / it':>11}")
    # The runs come interleaved: back to one block for each job, the fastest first.
    order = sorted(rates.items(), key=lambda item: (*item[0][:2], size_of(item[0][2]), -item[1]))
    for (job, kind, size, library), value in order:
        ours = rates.get((job, kind, size, "tarvomime"))
        of_copy = f"{value / copies[size]:.3f}" if size in copies else ""
        ratio = f"{ours / value:.2f}" if ours else ""
        print(f"{job:<24}{kind:<9}{size:<7}{library:<22}{value:9.3f}{of_copy:>11}{ratio:>11}")


def print_others(rows):
    print(f"{'benchmark':<56}{'ns each':>12}")
    for row in rows:
        print(f"{row['run_name']:<56}{1e3 / rate(row):12.1f}")


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        report = json.load(file)
    context = report["context"]
    print(f"{cpu_model()}, {context['num_cpus']} processors, load {context['load_avg'][0]:.1f}")
    rows = medians(report)
    by_parts = [row for row in rows if row["run_name"].count("/") == 3]
    if len(by_parts) == len(rows):
        print_codecs(rows)
    else:
        print_others(rows)


if __name__ == "__main__":
    main()
