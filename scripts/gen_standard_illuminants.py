#!/usr/bin/env python3
"""Writes core/StandardIlluminantsData.cpp: the 25 CIE standard illuminants as texts of numbers.

Usage: scripts/gen_standard_illuminants.py TSV_FOLDER > core/StandardIlluminantsData.cpp

TSV_FOLDER holds the CIE tables (cie_illuminants_*_5nm.tsv, cie_daylight_s0_s1_s2_10nm.tsv).
Each illuminant goes onto the 2 nm grid from 360 to 830 nm by linear interpolation of its
table, 0 where the table has no value, and is scaled to 1 W (the sum of the values times 2 is
1). D50, D55 and D75 are made from the daylight components at the CIE's temperatures and checked
against their published 5 nm columns. The generated file is committed; the build never runs
this script. Python 3 standard library only.
"""

import math
import os
import sys

GRID = [360 + 2 * i for i in range(236)]
NAMES = (["A", "B", "C", "E", "D50", "D55", "D65", "D75"] +
         [f"F{i}" for i in range(1, 13)] + [f"HP{i}" for i in range(1, 6)])
# Nominal temperatures of the daylight illuminants, corrected to c2 = 1.4388e-2 m K as the CIE
# defined them.
DAYLIGHT_NOMINAL = {"D50": 5000, "D55": 5500, "D75": 7500}
# Largest accepted difference from the published columns, relative to the column's peak.
DAYLIGHT_CHECK_TOLERANCE = 2e-3
PER_LINE = 9


def read_table(path):
    header, rows = None, []
    with open(path, encoding="utf-8") as handle:
        for line in handle:
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            fields = line.split("\t")
            if header is None:
                header = fields
                continue
            rows.append([float(f) for f in fields])
    return {name: [(row[0], row[k]) for row in rows if not math.isnan(row[k])]
            for k, name in enumerate(header) if k > 0}


def interpolate(points, nm):
    """Linear interpolation of (nm, value) points; 0 outside them."""
    if nm < points[0][0] or nm > points[-1][0]:
        return 0.0
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        if x0 <= nm <= x1:
            return y0 + (nm - x0) / (x1 - x0) * (y1 - y0)
    return points[-1][1]


def daylight(components, nominal):
    """CIE 015 daylight at nominal * 1.4388 / 1.4380 K, M1 and M2 rounded to 3 decimals."""
    t = nominal * 1.4388 / 1.4380
    if t <= 7000:
        xd = -4.6070e9 / t**3 + 2.9678e6 / t**2 + 0.09911e3 / t + 0.244063
    else:
        xd = -2.0064e9 / t**3 + 1.9018e6 / t**2 + 0.24748e3 / t + 0.237040
    yd = -3.000 * xd * xd + 2.870 * xd - 0.275
    m = 0.0241 + 0.2562 * xd - 0.7341 * yd
    m1 = round((-1.3515 - 1.7703 * xd + 5.9114 * yd) / m, 3)
    m2 = round((0.0300 - 31.4424 * xd + 30.0717 * yd) / m, 3)
    s0, s1, s2 = components["S0"], components["S1"], components["S2"]
    return [(a[0], a[1] + m1 * b[1] + m2 * c[1]) for a, b, c in zip(s0, s1, s2)]


def check_daylight(name, points, published):
    peak = max(v for _, v in published)
    worst = max(abs(interpolate(points, nm) - v) / peak for nm, v in published if nm >= 360)
    print(f"{name}: largest difference from the published column {worst:.2e} of its peak",
          file=sys.stderr)
    if worst > DAYLIGHT_CHECK_TOLERANCE:
        sys.exit(f"{name} differs from its published column by {worst:.2e}")


def scaled_text(values):
    total = 2.0 * sum(values)
    numbers = [f"{v / total:.3e}" for v in values]
    lines = [" ".join(numbers[i:i + PER_LINE]) for i in range(0, len(numbers), PER_LINE)]
    return "\n".join(f'     "{line}{" " if k + 1 < len(lines) else ""}"'
                     for k, line in enumerate(lines))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = sys.argv[1]
    tables = {}
    for name in ["cie_illuminants_A_B_C_D50_D55_D65_D75_5nm.tsv",
                 "cie_illuminants_F1_F12_5nm.tsv", "cie_illuminants_HP1_HP5_5nm.tsv"]:
        tables.update(read_table(os.path.join(folder, name)))
    components = read_table(os.path.join(folder, "cie_daylight_s0_s1_s2_10nm.tsv"))

    spectra = {}
    for name in NAMES:
        if name == "E":
            points = [(360.0, 1.0), (780.0, 1.0)]  # equal energy where the others have data
        elif name in DAYLIGHT_NOMINAL:
            points = daylight(components, DAYLIGHT_NOMINAL[name])
            check_daylight(name, points, tables[name])
        else:
            points = tables[name]
        spectra[name] = [interpolate(points, nm) for nm in GRID]

    print("// CIE standard illuminants A, B, C, E, D50, D55, D65, D75, F1-F12 (FL1-FL12) and "
          "HP1-HP5.\n"
          "// Standard: CIE 015:2004 tables (B and HP1-HP5: CIE 015:2018); D50, D55, D75 from "
          "the\n"
          "// CIE daylight components at 5000, 5500, 7500 K times 1.4388 / 1.4380, with M1, M2 "
          "to 3\n"
          "// decimals. E is equal energy from 360 to 780 nm.\n"
          "// Grid: 360 to 830 nm in 2 nm steps (236 numbers) by linear interpolation of the "
          "5 nm and\n"
          "// 10 nm tables, 0 where the publication has no value. Units: W/nm, scaled to 1 W "
          "(the sum\n"
          "// of the values times 2 is 1), three decimals.\n//\n"
          "// Generated by scripts/gen_standard_illuminants.py; edit the generator, not this "
          "file.\n\n"
          '#include "StandardIlluminantsData.h"\n\n'
          "// clang-format off\n"
          "const StandardIlluminantText STANDARD_ILLUMINANT_TEXTS[NUM_STANDARD_ILLUMINANTS] = {")
    for name in NAMES:
        print(f'    {{"Standard illuminant {name}",\n{scaled_text(spectra[name])}}},')
    print("};\n// clang-format on")


if __name__ == "__main__":
    main()
