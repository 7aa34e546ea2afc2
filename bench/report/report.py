"""The job of report is to write docs/performance.md: the text of bench/report/performance.in.md with tables of what measure
kept.

report.py FILE. Lines {NAME} of the text are replaced."""
import json
import platform
import re
import statistics
import subprocess
import sys
from datetime import date
from pathlib import Path

from measure import RESULTS
from rows import DIGITS, PROCESSES, TABLES

UNITS = {"real_time": ("ms", 1), "per_call": ("µs", 1e6), "memory": ("MB", 1), "bytes": ("kB", 1e-3), "per_pair": ("ns", 1e9)}


def load():
    results = {}
    for file in sorted(RESULTS.glob("*.json")):
        results |= json.loads(file.read_text())
    return results


def number(value):
    """With two digits, or three from 10 on."""
    if value >= 100:
        return f"{value:.0f}"
    digits = 1 if value >= 10 else 2 if value >= 0.1 else 3
    return f"{value:.{digits}f}"


def amount(values, figure):
    unit, factor = UNITS[figure]
    return f"{number(statistics.median(values) * factor)} {unit}"


def ratio(ours, theirs):
    """The median of the rounds' ratios, which drift less than the times."""
    return statistics.median(a / b for a, b in zip(ours, theirs))


def verdict(is_met):
    return "met" if is_met else "**missed**"


def cells(row, results):
    def figures(library, figure=row.figure):
        return results.get(row.name(library), {}).get(figure)

    ours = figures(row.library)
    if not ours:
        return [row.title, "not measured", "", "", "", "", ""]
    peers = [library for library in row.peers if figures(library)]
    found = [row.title, amount(ours, row.figure), "", "", "", ""]
    beside = [library for library in row.others if figures(library)]
    if peers:
        fastest = min(peers, key=lambda library: statistics.median(figures(library)))
        beside = [library for library in beside if library != fastest]
        found[2] = f"{fastest} {amount(figures(fastest), row.figure)}"
        share = ratio(ours, figures(fastest))
        found[3] = number(share)
        if row.goal is not None:
            found[4:6] = [f"≤ {row.goal:g}", verdict(share <= row.goal)]
    if row.most is not None:
        unit, factor = UNITS[row.figure]
        found[4:6] = [f"≤ {row.most:g} {unit}", verdict(statistics.median(ours) * factor <= row.most)]
    others = [f"{library} {amount(figures(library), row.figure)}" for library in beside]
    others += [f"{part} {amount(figures(row.library, part), 'real_time')}" for part in row.parts]
    return [*found, ", ".join(others)]


def table(rows, results):
    lines = ["| Case | Plotkit | compared with | ratio | goal | | for comparison |", "|---|---|---|---|---|---|---|"]
    return lines + ["| " + " | ".join(cells(row, results)) + " |" for row in rows]


def processes(results):
    lines = ["| Process | time | memory |", "|---|---|---|"]
    for title, name in PROCESSES:
        if name in results:
            figures = results[name]
            lines.append(f"| {title} | {amount(figures['real_time'], 'real_time')} | {amount(figures['memory'], 'memory')} |")
    return lines


def digits(results):
    lines = ["| Order | " + " | ".join(library for _, size, library in DIGITS if size == DIGITS[0][1]) + " |"]
    lines.append("|" + "---|" * (lines[0].count("|") - 1))
    for size in dict.fromkeys(size for _, size, _ in DIGITS):
        shown = [f"{results[f'{case}/{library}{s}']['digits'][0]:.1f}" for case, s, library in DIGITS if s == size]
        lines.append(f"| {size[1:]} | " + " | ".join(shown) + " |")
    return lines


def version(package):
    query = subprocess.run(["dpkg-query", "-W", "-f=${Version}", package], capture_output=True, text=True)
    return re.sub(r"[+-].*", "", query.stdout) or "?"


def machine():
    about = dict(line.split(":", 1) for line in Path("/proc/cpuinfo").read_text().split("\n\n")[0].splitlines())
    about = {key.strip(): value.strip() for key, value in about.items()}
    system = platform.freedesktop_os_release()["PRETTY_NAME"]
    processors = len(re.findall(r"^processor", Path("/proc/cpuinfo").read_text(), re.MULTILINE))
    peers = {"Qt": "qt6-base-dev", "QCustomPlot": "libqcustomplot-dev", "Qwt": "libqwt-qt5-dev", "GSL": "libgsl-dev",
             "ALGLIB": "libalglib-dev", "SciPy": "python3-scipy", "g++": "g++"}
    versions = ", ".join(f"{name} {version(package)}" for name, package in peers.items())
    return [f"Measured on {date.today()} on {processors} processors {about['model name']} (family {about['cpu family']}, "
            f"model {about['model']}), {system}: {versions}."]


def main():
    results = load()
    template = Path(__file__).with_name("performance.in.md").read_text()
    blocks = {"machine": machine, "digits": lambda: digits(results), "processes": lambda: processes(results)}
    blocks |= {name: (lambda rows=rows: table(rows, results)) for name, rows in TABLES.items()}
    text = re.sub(r"^\{(\w+)\}$", lambda match: "\n".join(blocks[match[1]]()), template, flags=re.MULTILINE)
    Path(sys.argv[1]).write_text(text)
    for rows in TABLES.values():
        for row in rows:
            found = cells(row, results)
            print(f"{found[0]:52} {found[1]:>12} {found[2]:>34} {found[3]:>8} {found[4]:>8} {found[5]}")


if __name__ == "__main__":
    main()
