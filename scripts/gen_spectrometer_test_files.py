#!/usr/bin/env python3
"""Writes tests/data/spectrometer/: one 4000 K Planck spectrum (W/nm, 360 to 830 nm in 5 nm,
the same numbers as the tests' two-column text) in every import format the program reads, plus
files of several spectra. Every file is made by this script for the tests; none comes from a
spectrometer program."""
import math
import os
import sys

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "data", "spectrometer")
NM = list(range(360, 831, 5))
MADE = "Made by scripts/gen_spectrometer_test_files.py for the Lumivar tests"


def planck(nm, kelvin, scale=1.0):
    # Relative Planck radiance, 1e-3 at 560 nm before the exponential, as the tests write it.
    return scale * 1e-3 / ((nm / 560.0) ** 5 * math.expm1(1.4388e7 / (nm * kelvin)))


def g(value):
    return "%.6g" % value


def write(name, text, encoding="ascii", newline="\n", bom=b""):
    data = text.replace("\n", newline).encode(encoding)
    with open(os.path.join(OUT, name), "wb") as f:
        f.write(bom + data)


def rows(sep="\t", scale=1.0, fmt=g):
    return "".join("%d%s%s\n" % (nm, sep, fmt(planck(nm, 4000, scale))) for nm in NM)


def main():
    os.makedirs(OUT, exist_ok=True)
    two = "# 4000 K Planck spectrum. " + MADE + "\nnm\tW/nm\n" + rows()
    write("planck4000.txt", two)
    write("planck4000_utf16le.txt", two, "utf-16-le", "\r\n", b"\xff\xfe")
    write("planck4000_utf16be.txt", two, "utf-16-be", "\n", b"\xfe\xff")
    comma = lambda v: g(v).replace(".", ",")
    write("planck4000_semicolon.csv", "# " + MADE + "\nnm;W/nm\n" + rows(";", fmt=comma), newline="\r\n")

    suite = ("Data from planck4000 Node\n" + MADE + "\nSpectrometers: TEST0001\n"
             "Integration Time (usec): 100000\nNumber of Pixels in Processed Spectrum: %d\n"
             ">>>>>Begin Processed Spectral Data<<<<<\n%s>>>>>End Processed Spectral Data<<<<<\n"
             % (len(NM), rows()))
    write("planck4000_spectrasuite.txt", suite)

    def isd(unit, scale, mole=False):
        head = "[Curve Information]\nName=planck4000\nComment=" + MADE + "\n"
        if not mole:
            head += "[Measurement Conditions]\nX-Unit=nm\nY-Unit=%s\n" % unit
        return head + "[Data]\nData of the curve\n" + rows(scale=scale) + "\n[Results]\nCCT=4000\n"
    write("planck4000_specwin.isd", isd("W/nm", 1.0), newline="\r\n")
    write("planck4000_specwin_mw.isd", isd("mW/nm", 1000.0), newline="\r\n")
    write("planck4000_mole.isd", isd(None, 1.0, mole=True), newline="\r\n")

    spdx = ('<?xml version="1.0" encoding="UTF-8"?>\n<!-- ' + MADE + ' -->\n<IESTM2714>\n'
            '  <SpectralDistribution>\n    <SpectralQuantity>W/nm</SpectralQuantity>\n' +
            "".join('    <SpectralData wavelength="%d">%s</SpectralData>\n' % (nm, g(planck(nm, 4000)))
                    for nm in NM) + '  </SpectralDistribution>\n</IESTM2714>\n')
    write("planck4000.spdx", spdx)

    def sp(kelvins):
        head = ('SPECT\n\nDESCRIPTOR "Planck spectra"\nORIGINATOR "' + MADE + '"\n'
                'SPECTRAL_BANDS "%d"\nSPECTRAL_START_NM "360"\nSPECTRAL_END_NM "830"\n'
                'NUMBER_OF_FIELDS %d\nBEGIN_DATA_FORMAT\n%s\nEND_DATA_FORMAT\n\n'
                'NUMBER_OF_SETS %d\nBEGIN_DATA\n'
                % (len(NM), len(NM), " ".join("SPEC_%d" % nm for nm in NM), len(kelvins)))
        data = "".join(" ".join(g(planck(nm, k, s)) for nm in NM) + "\n" for k, s in kelvins)
        return head + data + "END_DATA\n"
    write("planck4000.sp", sp([(4000, 1.0)]))
    write("planck4000_two_sets.sp", sp([(4000, 1.0), (4000, 2.0)]))

    # Several spectra as columns: 4000 K, then the same at twice the power.
    multi = "# " + MADE + "\nnm\tLamp A\tLamp A x2\n" + "".join(
        "%d\t%s\t%s\n" % (nm, g(planck(nm, 4000)), g(planck(nm, 4000, 2.0))) for nm in NM)
    write("planck4000_columns.txt", multi)
    write("planck4000_columns.csv", "".join(
        "%d,%s,%s\n" % (nm, g(planck(nm, 4000)), g(planck(nm, 4000, 2.0))) for nm in NM))
    write("planck4000_intensity_first.dat", "# " + MADE + "\n" + "".join(
        "%s\t%d\n" % (g(planck(nm, 4000)), nm) for nm in NM))
    return 0


if __name__ == "__main__":
    sys.exit(main())
