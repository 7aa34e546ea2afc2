"""The job of measure is to run the benchmark programs in turn, round after round, and to keep every result.

measure.py [--rounds N] [SUBJECT...]: subjects are the keys of SUBJECTS. Results go to build/release/bench/results, a file
per subject: for each benchmark and each of its figures the values of all rounds."""
import argparse
import json
import os
import subprocess
import tempfile
import time
from pathlib import Path

PROGRAMS = Path("build/release/bench")
RESULTS = PROGRAMS / "results"
PLOTKIT = Path("build/release/apps/plotkit/plotkit")
MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1, "s": 1e3}
# What a benchmark's entry says about the run, not about the subject.
ADMINISTRATION = {"name", "run_name", "run_type", "repetitions", "repetition_index", "threads", "iterations", "time_unit",
                  "family_index", "per_family_instance_index", "label", "error_occurred", "error_message", "cpu_time"}


def benchmarks(*command):
    """The figures of a program that speaks Google Benchmark's JSON; times in milliseconds."""
    output = subprocess.run([str(part) for part in command], check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                            env=os.environ | {"QT_QPA_PLATFORM": "offscreen"}).stdout
    for entry in json.loads(output)["benchmarks"]:
        if entry.get("error_occurred"):
            continue  # the library cannot do that
        figures = {key: value for key, value in entry.items() if key not in ADMINISTRATION}
        figures["real_time"] *= MILLISECONDS[entry["time_unit"]]
        yield entry["name"], figures


def google(program):
    return lambda: benchmarks(PROGRAMS / program, "--benchmark_format=json", "--benchmark_min_time=0.1",
                              "--benchmark_enable_random_interleaving=true")


def whole_process(name, command):
    """Wall time in milliseconds and the largest memory in MB of a process."""
    start = time.perf_counter()
    process = subprocess.Popen([str(part) for part in command], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               env=os.environ | {"QT_QPA_PLATFORM": "offscreen"})
    _, status, usage = os.wait4(process.pid, 0)
    milliseconds = (time.perf_counter() - start) * 1e3
    if status != 0:
        raise RuntimeError(f"{command} ended with {status}")
    yield name, {"real_time": milliseconds, "memory": usage.ru_maxrss / 1024}


def memory():
    for library, program in (("Plotkit", "drawing_bench"), ("QCustomPlot", "drawing_bench"), ("Qwt", "qwt_bench")):
        yield from whole_process(f"memory/{library}", [PROGRAMS / program, "--memory", library])


def renders(name, data, folder):
    for ending in ("png", "svg", "pdf"):
        yield from whole_process(f"{name}/{ending}", [PLOTKIT, "render", data, "-o", f"{folder}/picture.{ending}"])


def start():
    with tempfile.TemporaryDirectory() as folder:
        yield from whole_process("start/bare", [PROGRAMS / "drawing_bench", "--bare"])
        yield from whole_process("start/--version", [PLOTKIT, "--version"])
        yield from renders("start", "data/measured/mauna-loa-co2-annual.csv", folder)


def files():
    """Random walks of a million and of ten million rows."""
    with tempfile.TemporaryDirectory() as folder:
        for count in ("1e6", "1e7"):
            data = f"{folder}/{count}.csv"
            program = f"BEGIN {{ srand(7); for (i = 0; i < {count}; ++i) print i \",\" (y += rand() - 0.5) }}"
            with open(data, "w") as file:
                subprocess.run(["awk", program], check=True, stdout=file)
            yield from renders(f"file {count}", data, folder)


# A subject is what is measured beside each other in each round.
SUBJECTS = {
    "numerics": [google("numerics_bench"),
                 lambda: benchmarks("/usr/bin/python3", "bench/numerics/scipy_spline.py")],
    "drawing": [google("drawing_bench"), google("qwt_bench")],
    "threads": [google("hand_over_bench")],
    "memory": [memory],
    "start": [start],
    "files": [files],
}


def measure(subject, rounds):
    results = {}
    for number in range(rounds):
        print(f"{subject}: round {number + 1} of {rounds}", flush=True)
        for run in SUBJECTS[subject]:
            for name, figures in run():
                kept = results.setdefault(name, {})
                for figure, value in figures.items():
                    kept.setdefault(figure, []).append(value)
    RESULTS.mkdir(exist_ok=True)
    (RESULTS / f"{subject}.json").write_text(json.dumps(results, indent=1))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("subjects", nargs="*", choices=[[], *SUBJECTS], metavar="SUBJECT", default=[])
    options = parser.parse_args()
    for subject in options.subjects or SUBJECTS:
        measure(subject, options.rounds)


if __name__ == "__main__":
    main()
