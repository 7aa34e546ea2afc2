#!/usr/bin/env bash
# tests/house/clang_reads.sh BUILD: Clang parses every source with the flags of BUILD, and every header on its own.
set -euo pipefail
cd "$(dirname "$0")/../.."
python3 - "$1" <<'P'
import concurrent.futures, json, pathlib, shlex, subprocess, sys
build = pathlib.Path(sys.argv[1]).resolve()
root = pathlib.Path.cwd()
entries = [e for e in json.loads((build / "compile_commands.json").read_text())
           if str(build) not in e["file"] and pathlib.Path(e["file"]).suffix == ".cpp"]
drop = {"-fno-fat-lto-objects"}
flags = {}
jobs = []
for entry in entries:
    words = shlex.split(entry["command"])
    while "ccache" in words[0]:
        words = words[1:]
    keep = []
    skip = False
    for word in words[1:]:
        if skip:
            skip = False
        elif word in ("-o", "-c"):
            skip = word == "-o"
        elif word != entry["file"] and word not in drop:
            keep.append(word)
    source = pathlib.Path(entry["file"])
    if len(keep) > len(flags.get(source.parent, [])):
        flags[source.parent] = keep
    jobs.append((source, keep))
for folder, keep in list(flags.items()):
    for header in sorted(folder.glob("*.h")):
        jobs.append((header, [*keep, "-x", "c++"]))
def read(job):
    source, keep = job
    run = subprocess.run(["clang++", *keep, "-Wno-pragma-once-outside-header",
                          "-Wno-unused-const-variable", "-fsyntax-only", str(source)],
                         capture_output=True, text=True, cwd=build)
    return source, run
failed = 0
with concurrent.futures.ThreadPoolExecutor(2) as pool:
    for source, run in pool.map(read, jobs):
        if run.returncode:
            failed += 1
            print(f"{source.relative_to(root)}:\n{run.stderr}")
print(f"Clang read {len(jobs) - failed} of {len(jobs)} files")
sys.exit(failed > 0)
P
