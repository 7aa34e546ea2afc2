"""The job of rows is the rows of the tables: which benchmarks stand beside each other, and what is asked of Plotkit."""
from dataclasses import dataclass


@dataclass
class Row:
    """Benchmarks are named "case/LIBRARY" + `size`. The goal is the most that Plotkit may take of the figure of the fastest
    of `peers`; `most` is the most that it may take at all. `others` are shown beside, `parts` are more figures of its own."""
    title: str
    case: str
    peers: tuple = ()
    goal: float | None = None
    most: float | None = None
    size: str = ""
    figure: str = "real_time"
    others: tuple = ()
    parts: tuple = ()
    library: str = "Plotkit"

    def name(self, library):
        return f"{self.case}/{library}{self.size}"


NORMAL = ("GSL normal equations",)
NUMERICS = [
    Row("straight line, 1e6 points", "line", ("GSL",), 0.5, others=("ALGLIB", "limit")),
    Row("weighted straight line, 1e6 points", "weighted line", ("GSL",), 0.5, others=("ALGLIB",)),
    Row("polynomial of order 3, 1e6 points", "polynomial", NORMAL, 1.0, size="/3", others=("GSL SVD", "ALGLIB", "limit")),
    Row("polynomial of order 5, 1e6 points", "polynomial", NORMAL, 1.0, size="/5", others=("GSL SVD", "ALGLIB", "limit")),
    Row("Akima, build on 1e5 points", "Akima build", ("GSL",), 1.2, others=("ALGLIB",)),
    Row("Akima, evaluate at 1e6 ascending places", "Akima evaluate", ("GSL",), 0.4, others=("ALGLIB",)),
    Row("smoothing spline, 1e5 points", "smoothing spline", ("SciPy",), 0.02, others=("ALGLIB, a tenth of the knots",)),
    Row("simplex, 1e4 points, per call", "simplex", ("GSL",), 1.2, figure="per_call"),
    Row("simplex, typed formula, per call", "simplex", ("GSL",), 4.0, figure="per_call",
        library="Plotkit, typed formula"),
    Row("sort 1e6 pairs", "sort", ("std::sort",), 1.0, others=("GSL",)),
    Row("sort 1e6 pairs that are sorted", "sort sorted", ("std::sort",), most=2.0),
]

BOTH = ("QCustomPlot", "Qwt")
ALL = (*BOTH, "limit")
LINES = [
    *(Row(f"repaint a line of {count} points", "replot", BOTH, goal, size=f"/{size}", others=ALL)
      for count, size, goal in (("1e4", 10000, 1.0), ("1e5", 100000, 0.7), ("1e6", 1000000, 0.25), ("1e7", 10000000, 0.04))),
    Row("first picture of 1e6 points", "first picture", BOTH, 0.5, size="/1000000", others=ALL),
    Row("first picture of 1e7 points", "first picture", BOTH, 0.3, size="/10000000", others=ALL),
    Row("zoom to a hundredth of 1e7 points", "zoom", BOTH, 1.0, size="/10000000", others=ALL),
    Row("append 1 point to 1e6 shown", "append", ("QCustomPlot",), 0.25, size="/1", others=ALL),
    Row("append 100 points to 1e6 shown", "append", ("QCustomPlot",), 0.25, size="/100", others=ALL),
    Row("append 1e6 points one by one, draw nothing", "append only", ("QCustomPlot",), most=30, others=ALL),
    Row("automatic range of 1e7 fresh pairs", "range", BOTH, 0.3, size="/10000000", others=ALL),
    Row("the same, extremes known", "known range", BOTH, size="/10000000", others=ALL),
    Row("2-pixel line of 1e5 points", "wide line", ("QCustomPlot, hinted",), 1.0, size="/100000", others=ALL),
    Row("antialiased line of 1e5 points", "smooth line", BOTH, 1.5, size="/100000", others=ALL),
    Row("antialiased line of 1e7 points", "smooth line", BOTH, 0.2, size="/10000000", others=ALL),
    Row("a thousand lines of a thousand points", "thousand series", BOTH, others=ALL),
]
MARKS = [
    *(Row(f"{count} circles of 5 pixels", "circles", BOTH, 0.7, size=f"/{size}", others=ALL)
      for count, size in (("1e4", 10000), ("1e5", 100000), ("1e6", 1000000))),
    *(Row(f"{count} error bars", "error bars", BOTH, 0.7, size=f"/{size}", others=ALL)
      for count, size in (("1e4", 10000), ("1e5", 100000))),
    *(Row(f"{count} bars", "bars", BOTH, 1.0, size=f"/{size}", others=ALL) for count, size in (("1e3", 1000), ("1e4", 10000))),
]
EXPORTS = [
    Row(f"{what}, line of 1e5 points", f"export {ending}", BOTH, goal, size="/100000", figure=figure, others=ALL)
    for ending, name in (("png", "PNG"), ("svg", "SVG"), ("pdf", "PDF"))
    for what, goal, figure in ((name, 1.2, "real_time"), (f"{name}, size", 1.0, "bytes"))
]
MEMORY = [Row("whole process, line of 1e7 points", "memory", BOTH, most=260, figure="memory", others=BOTH)]
LIVE = [
    Row("sample an interpolated curve after a zoom, beside drawing it", "interpolated curve", ("draw",), 1.0,
        library="sample"),
    Row("sample a typed formula after a zoom, beside drawing it", "typed curve", ("draw",), 1.0, library="sample"),
    Row("move the cursor over 1e7 points", "cursor"),
    Row("64 live panels on 1920 × 1080, a frame", "64 panels", most=33.3, parts=("append", "layout", "paint")),
    Row("a thousand live lines of a thousand points, a frame", "thousand live lines", parts=("append", "layout", "paint")),
    *(Row(f"push a pair to another thread, {how}", "hand over", ("lock and vector",), figure="per_pair",
          size=f"/{size}/real_time", others=("lock-free ring",))
      for size, how in ((1, "one by one"), (10, "in blocks of 10"), (100, "of 100"), (1000, "of 1000"))),
    *(Row(f"a pair from another thread into a series, {how}", "whole way", figure="per_pair", size=f"/{size}/real_time")
      for size, how in ((1, "one by one"), (100, "in blocks of 100"))),
]

# What a process costs from its start to its end.
PROCESSES = [("Qt alone, a program that ends at once", "start/bare"), ("`plotkit --version`", "start/--version"),
             ("`plotkit render`, 67 rows to PNG", "start/png"),
             ("the same to SVG", "start/svg"), ("the same to PDF", "start/pdf"),
             *((f"`plotkit render`, {count} rows to {ending.upper()}", f"file {count}/{ending}")
               for count in ("1e6", "1e7") for ending in ("png", "svg", "pdf"))]

DIGITS = [("polynomial", size, library) for size in ("/3", "/5")
          for library in ("Plotkit", "GSL SVD", "ALGLIB", "GSL normal equations")]

TABLES = {"numerics": NUMERICS, "lines": LINES, "marks": MARKS, "exports": EXPORTS, "memory": MEMORY, "live": LIVE}
