#!/usr/bin/env python3
"""Writes the small ASCII STL models that the slicer fixtures are made from.

box.stl       a 20 x 20 x 3 mm block
prism.stl     a 24-sided prism, 16 mm across and 3 mm high (a coarse cylinder)
ring.stl      a 20 x 20 x 2.4 mm square ring with a 10 x 10 mm hole
vase.stl      a 32-sided prism, 20 mm across and 12 mm high, for spiral (vase) prints
"""
import math
import pathlib
import sys


def facet(out, a, b, c):
    ux, uy, uz = (b[i] - a[i] for i in range(3))
    vx, vy, vz = (c[i] - a[i] for i in range(3))
    n = (uy * vz - uz * vy, uz * vx - ux * vz, ux * vy - uy * vx)
    length = math.sqrt(sum(v * v for v in n)) or 1.0
    out.append("  facet normal %g %g %g" % tuple(v / length for v in n))
    out.append("    outer loop")
    for p in (a, b, c):
        out.append("      vertex %g %g %g" % p)
    out.append("    endloop")
    out.append("  endfacet")


def prism(outline, holes, height):
    """Side walls of an extruded polygon: outline counter-clockwise, holes
    clockwise, so that every normal points out of the solid."""
    out = []

    def walls(ring):
        for i, (x0, y0) in enumerate(ring):
            x1, y1 = ring[(i + 1) % len(ring)]
            facet(out, (x0, y0, 0), (x1, y1, 0), (x1, y1, height))
            facet(out, (x0, y0, 0), (x1, y1, height), (x0, y0, height))

    walls(outline)
    for hole in holes:
        walls(hole)
    return out


def caps_convex(out, ring, height):
    c = (sum(p[0] for p in ring) / len(ring), sum(p[1] for p in ring) / len(ring))
    for i, p in enumerate(ring):
        q = ring[(i + 1) % len(ring)]
        facet(out, (c[0], c[1], height), (p[0], p[1], height), (q[0], q[1], height))
        facet(out, (c[0], c[1], 0), (q[0], q[1], 0), (p[0], p[1], 0))


def caps_ring(out, outer, inner, height):
    """Top and bottom of a band between two squares given as matching
    counter-clockwise corner lists."""
    for i in range(4):
        o0, o1 = outer[i], outer[(i + 1) % 4]
        i0, i1 = inner[i], inner[(i + 1) % 4]
        for z, flip in ((height, False), (0, True)):
            quad = [(o0[0], o0[1], z), (o1[0], o1[1], z), (i1[0], i1[1], z), (i0[0], i0[1], z)]
            tris = [(quad[0], quad[1], quad[2]), (quad[0], quad[2], quad[3])]
            for a, b, c in tris:
                facet(out, *((a, c, b) if flip else (a, b, c)))


def square(cx, cy, half):
    return [(cx - half, cy - half), (cx + half, cy - half), (cx + half, cy + half), (cx - half, cy + half)]


def polygon(sides, radius):
    """A regular polygon around (radius, radius), counter-clockwise."""
    return [(radius + radius * math.cos(2 * math.pi * i / sides), radius + radius * math.sin(2 * math.pi * i / sides))
            for i in range(sides)]


def write(path, name, lines):
    path.write_text("solid %s\n%s\nendsolid %s\n" % (name, "\n".join(lines), name))


def main(folder):
    folder = pathlib.Path(folder)
    box = square(10, 10, 10)
    lines = prism(box, [], 3)
    caps_convex(lines, box, 3)
    write(folder / "box.stl", "box", lines)

    circle = polygon(24, 8)
    lines = prism(circle, [], 3)
    caps_convex(lines, circle, 3)
    write(folder / "prism.stl", "prism", lines)

    circle = polygon(32, 10)
    lines = prism(circle, [], 12)
    caps_convex(lines, circle, 12)
    write(folder / "vase.stl", "vase", lines)

    outer, inner = square(10, 10, 10), square(10, 10, 5)
    lines = prism(outer, [inner[::-1]], 2.4)
    caps_ring(lines, outer, inner, 2.4)
    write(folder / "ring.stl", "ring", lines)


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent)
