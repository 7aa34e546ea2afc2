"""The job of rows is the rows of the tables: which benchmarks stand beside each other, and what is asked of Plotkit."""
from dataclasses import dataclass, field


@dataclass
class Row:
    """`case` names the benchmarks "case/LIBRARY" + `size`. The goal is the most that Plotkit may take of the peer's figure,
    or of its own figure `base` where no peer does the same; `most` is a goal in the figure's unit."""
    title: str
    case: str
    peer: str = ""
    goal: float | None = None
    most: float | None = None
    size: str = ""
    figure: str = "real_time"
    others: list[str] = field(default_factory=list)
    plotkit: str = "Plotkit"
    base: str = ""
    note: str = ""

    def name(self, library):
        return f"{self.case}/{library}{self.size}"


NUMERICS = [
    Row("straight line, 1e6 points", "line", "GSL", 0.5, others=["ALGLIB", "limit"]),
    Row("weighted straight line, 1e6 points", "weighted line", "GSL", 0.5, others=["ALGLIB"]),
    Row("polynomial of order 3, 1e6 points", "polynomial", "GSL normal equations", 1.0, size="/3",
        others=["GSL SVD", "ALGLIB", "limit"]),
    Row("polynomial of order 5, 1e6 points", "polynomial", "GSL normal equations", 1.0, size="/5",
        others=["GSL SVD", "ALGLIB", "limit"]),
    Row("Akima, build on 1e5 points", "Akima build", "GSL", 1.2, others=["ALGLIB"]),
    Row("Akima, evaluate at 1e6 places", "Akima evaluate", "GSL", 0.4, others=["ALGLIB"]),
    Row("smoothing spline, 1e5 points", "smoothing spline", "SciPy", 0.02, others=["ALGLIB, a tenth of the knots"]),
    Row("simplex, 1e4 points, per call", "simplex", "GSL", 1.2, figure="per_call"),
    Row("simplex, typed formula, per call", "simplex", "GSL", 4.0, figure="per_call", plotkit="Plotkit, typed formula"),
    Row("sort 1e6 pairs", "sort", "std::sort", 1.0, others=["GSL"]),
    Row("sort 1e6 pairs that are sorted", "sort sorted", "std::sort", most=2.0),
]

DIGITS = [("polynomial", size, library) for size in ("/3", "/5")
          for library in ("Plotkit", "GSL SVD", "ALGLIB", "GSL normal equations")]

TABLES = {"numerics": NUMERICS}
