#!/usr/bin/env python3
"""Writes arc_cup.gcode: a print with arcs, as arc-fitting slicers write them.

No slicer in Debian writes G2/G3, so the tests make their own: a round cup
40 mm across with a 12 mm hole, 8 layers of 0.2 mm. Each layer has two
outer perimeters of quarter arcs (G3, I/J form), a perimeter round the hole
as one full circle (G2, clockwise), a short wave of R-form arcs (R > 0 and
R < 0), straight infill lines between, travels with retraction and a
z-hop, relative extrusion on the odd layers. Deterministic: running it
again writes the same bytes."""
import math
import sys

CX, CY = 100.0, 100.0
FILAMENT_PER_MM = 0.0332  # 0.4 mm line, 0.2 mm layer, 1.75 mm filament


def fmt(v):
    text = f"{v:.3f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


class Writer:
    def __init__(self):
        self.lines = []
        self.e = 0.0
        self.relative = False
        self.x = self.y = None

    def emit(self, line):
        self.lines.append(line)

    def e_word(self, length):
        push = length * FILAMENT_PER_MM
        if self.relative:
            return fmt(push) if push >= 0.0005 else None
        self.e += push
        return fmt(self.e)

    def travel(self, x, y, z):
        self.emit(f"G1 E-0.8 F2400" if self.relative else f"G1 E{fmt(self.e - 0.8)} F2400")
        self.emit(f"G1 Z{fmt(z + 0.4)} F3000")
        self.emit(f"G0 X{fmt(x)} Y{fmt(y)} F9000")
        self.emit(f"G1 Z{fmt(z)} F3000")
        self.emit(f"G1 E0.8 F2400" if self.relative else f"G1 E{fmt(self.e)} F2400")
        self.x, self.y = x, y

    def line(self, x, y):
        length = math.hypot(x - self.x, y - self.y)
        self.emit(f"G1 X{fmt(x)} Y{fmt(y)} E{self.e_word(length)} F1800")
        self.x, self.y = x, y

    def arc(self, word, x, y, centre_x, centre_y, sweep, comment=""):
        r = math.hypot(self.x - centre_x, self.y - centre_y)
        e = self.e_word(r * sweep)
        self.emit(f"{word} X{fmt(x)} Y{fmt(y)} I{fmt(centre_x - self.x)} J{fmt(centre_y - self.y)} E{e}{comment}")
        self.x, self.y = x, y

    def arc_r(self, word, x, y, r, sweep):
        e = self.e_word(abs(r) * sweep)
        self.emit(f"{word} X{fmt(x)} Y{fmt(y)} R{fmt(r)} E{e}")
        self.x, self.y = x, y


def layer(w, n, z):
    w.emit(f";LAYER_CHANGE\n;Z:{fmt(z)}")
    w.relative = n % 2 == 1
    w.emit("M83" if w.relative else "M82")
    if not w.relative:
        w.emit("G92 E0")
        w.e = 0.0
    # Outer perimeters: quarter arcs, counter-clockwise.
    for radius in (20.0, 19.6):
        w.travel(CX + radius, CY, z)
        for q in range(1, 5):
            a = q * math.pi / 2
            w.arc("G3", CX + radius * math.cos(a), CY + radius * math.sin(a), CX, CY, math.pi / 2, " ;perimeter")
    # The hole: one full circle, clockwise.
    w.travel(CX + 6.0, CY, z)
    w.arc("G2", CX + 6.0, CY, CX, CY, 2 * math.pi, " ;hole")
    # A wave of R-form arcs: short ones up, a long one back.
    w.travel(CX - 16.0, CY - 8.0, z)
    for k in range(4):
        w.arc_r("G2" if k % 2 else "G3", CX - 16.0 + 3.0 * (k + 1), CY - 8.0, 1.5, math.pi)
    w.arc_r("G3", CX - 16.0, CY - 8.0, -7.0, 2 * math.pi - 2 * math.asin(6.0 / 7.0))
    # Straight infill between the hole and the wall.
    w.travel(CX - 8.0, CY + 8.0, z)
    for k in range(6):
        y = CY + 8.0 + k * 1.5
        w.line(CX + 8.0 if k % 2 == 0 else CX - 8.0, y)
        w.line(w.x, y + 1.5)


def main(path):
    w = Writer()
    w.emit("; arc cup, written by make_arc_print.py")
    w.emit("G21\nG90\nM82\nM104 S200\nG28\nG1 Z5 F5000\nM109 S200")
    for n in range(8):
        layer(w, n, 0.2 * (n + 1))
    w.emit("G1 Z10 F3000\nM104 S0\nM84")
    with open(path, "w", newline="\n") as out:
        out.write("\n".join(w.lines) + "\n")


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "arc_cup.gcode")
