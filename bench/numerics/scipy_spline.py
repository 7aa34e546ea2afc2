"""The job of scipy_spline is the smoothing spline of SciPy, with times in the form of the other programs' results."""
import json
import sys
import time

import numpy
from scipy.interpolate import make_smoothing_spline

NODES = 100_000

x = numpy.arange(NODES, dtype=float)
y = numpy.cumsum(numpy.random.default_rng(7).normal(size=NODES))
start = time.perf_counter()
make_smoothing_spline(x, y, lam=1.0)
milliseconds = (time.perf_counter() - start) * 1e3
json.dump({"benchmarks": [{"name": "smoothing spline/SciPy", "run_type": "iteration", "real_time": milliseconds,
                           "time_unit": "ms"}]}, sys.stdout)
