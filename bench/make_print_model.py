#!/usr/bin/env python3
"""Writes the ASCII STL of the benchmarks' big print: a 96-sided prism, a
coarse cylinder, of the given radius and height in mm.

usage: make_print_model.py OUT.stl RADIUS HEIGHT
"""
import math
import pathlib
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "data" / "models"))
import make_models  # noqa: E402


def main(out, radius, height):
    sides = 96
    circle = [(radius + radius * math.cos(2 * math.pi * i / sides), radius + radius * math.sin(2 * math.pi * i / sides))
              for i in range(sides)]
    lines = make_models.prism(circle, [], height)
    make_models.caps_convex(lines, circle, height)
    make_models.write(pathlib.Path(out), "cylinder", lines)


if __name__ == "__main__":
    main(sys.argv[1], float(sys.argv[2]), float(sys.argv[3]))
