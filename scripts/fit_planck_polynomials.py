#!/usr/bin/env python3
"""Fit the fast polynomial Planck locus used inside the CCT optimizer loops.

Usage:  fit_planck_polynomials.py DATA_DIR [--given-breaks-only] [--no-sim]

DATA_DIR holds cie1931_2deg_cmf_1nm.tsv and cie2015_10deg_cmf_1nm.tsv.

The exact locus is the one the engine computes: Planck's law sampled on grid A
(360..830 nm, 2 nm), c2 = 14.388 mm*K written as 14.388 * urd / lambda[nm], plain
sums of the colour-matching functions, CIE 1960 u = 4X/(X+15Y+3Z), v = 6Y/(X+15Y+3Z).

What is fitted:
  u(urd), v(urd)  piecewise polynomials in raw powers of urd = 1e6/T, urd in [0.1, 10000],
                  one set for the CIE 2015 10 deg observer (engine observer 3) and one fitted
                  to CIE 1931 2 deg that serves every other observer.
  x(T), y(T)      CIE 1931 chromaticity of the Planckian radiator, 1000..20000 K.

Method: weighted minimax (Lawson's iteratively reweighted least squares) in a Chebyshev basis
on each piece's own scaled variable, with both interior ends of every piece pinned to the exact
locus so neighbouring pieces meet there. The Chebyshev series is then converted to raw powers
exactly with fractions, each coefficient is rounded once to the nearest double, and all errors
below are measured on the double Horner evaluation of those printed coefficients, exactly as
the C++ code evaluates them.

Weighting: a CCT is the urd at the foot of the perpendicular from the test colour to the locus,
so a locus error e along the locus moves the CCT by about e / |dP/durd| mired, and 0.5 K is
0.5e-6 * urd^2 mired. The value rows are therefore weighted by 1 / (|dP/durd| * 0.5e-6 urd^2)
with urd clipped to [50, 1000] (20000 K to 1000 K, the range the CCT search has to honour to
0.5 K); beyond that the weight is flat. An error slope e' tilts the locus normal, which moves
the foot point of a colour Duv off the locus by Duv * e' / |dP/durd|^2 mired, so slope rows with
that weight (Duv = 0.02) are held to the same minimax up to 1100 mired.

The report ends with a simulated CCT/Duv check: test colours are placed on the exact normal at
urd0 in [50, 1000] with Duv in [-0.02, 0.02] (so the exact CCT is urd0 and the exact Duv is the
offset), and the CCT on the polynomial locus is found by a global scan of [0.1, 10000] followed
by a golden-section refinement.
"""

import sys
from fractions import Fraction
from pathlib import Path

import numpy as np
from numpy.polynomial import chebyshev as cheb

# ---------------------------------------------------------------------------------------------
# Piece layout
# ---------------------------------------------------------------------------------------------
URD_MIN, URD_MAX = 0.1, 10000.0

# Break points of the long-standing piece layout (a value below a break uses the piece to its
# left).
U_BREAKS = [460, 2000, 3900, 5300, 6000, 7350]
V_BREAKS_OBS3 = [490, 800, 2750, 4700, 5800, 6600, 7400]
V_BREAKS_OTHER = [490, 660, 3100, 4600, 5900, 6900, 8000, 8200]

# Extra break points needed for the 0.5 K CCT tolerance. Near 20000 K the locus is close to the
# Rayleigh-Jeans limit, and the expansion of 1 / (exp(14.388 urd / lambda) - 1) in urd converges
# only out to 2 pi lambda / 14.388 ~ 160 mired at the short-wave end of grid A, so one degree-6
# piece over 0.1..460 mired
# cannot get below ~5e-6 in u and v, while 0.5 K at 20000 K needs ~1e-7 (and the slope of the
# error must stay below ~1e-8 per mired for colours 0.02 off the locus). Splitting at 50, 100,
# 200 and 1000 mired (20000, 10000, 5000 and 1000 K) brings every piece in the CCT range far
# below that.
U_EXTRA = [50, 100, 200, 1000]
V_EXTRA_OBS3 = [50, 100, 200, 1000]
V_EXTRA_OTHER = [50, 100, 200, 1000]

DEGREE = 6

# x(T), y(T) in kelvin.
X_BREAKS, X_DEGREES = [10000], [6, 5]
Y_BREAKS, Y_DEGREES = [9000], [6, 5]
T_MIN, T_MAX = 1000.0, 20000.0

CCT_URD_MIN, CCT_URD_MAX = 50.0, 1000.0
DUV_MAX = 0.02


# ---------------------------------------------------------------------------------------------
# Exact locus on grid A
# ---------------------------------------------------------------------------------------------
LAMBDA = 360.0 + 2.0 * np.arange(236)


def load_cmf_grid_a(path):
    """Even-nm rows of a 1 nm CMF table; zero where the table does not reach."""
    table = {}
    header_seen = False
    for line in Path(path).read_text().splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        if not header_seen:
            header_seen = True
            continue
        cols = line.split("\t")
        table[int(round(float(cols[0])))] = [float(c) for c in cols[1:4]]
    out = np.zeros((236, 3))
    for i, lam in enumerate(LAMBDA):
        if int(lam) in table:
            out[i] = table[int(lam)]
    return out


class ExactLocus:
    def __init__(self, cmf):
        self.cmf = cmf

    def _w(self, urd):
        a = np.outer(np.atleast_1d(np.asarray(urd, float)), 14.388 / LAMBDA)
        em1 = np.expm1(a)
        w = (1.0 / LAMBDA**5) / em1
        # d w / d urd = -(1/lambda^5) e^a / (e^a - 1)^2 * 14.388 / lambda
        dw = -w * (em1 + 1.0) / em1 * (14.388 / LAMBDA)
        return w, dw

    def xyz(self, urd):
        w, _ = self._w(urd)
        return w @ self.cmf

    def uv(self, urd):
        X, Y, Z = self.xyz(urd).T
        d = X + 15 * Y + 3 * Z
        return 4 * X / d, 6 * Y / d

    def uv_and_slope(self, urd):
        w, dw = self._w(urd)
        X, Y, Z = (w @ self.cmf).T
        dX, dY, dZ = (dw @ self.cmf).T
        d = X + 15 * Y + 3 * Z
        dd = dX + 15 * dY + 3 * dZ
        u, v = 4 * X / d, 6 * Y / d
        du = (4 * dX - u * dd) / d
        dv = (6 * dY - v * dd) / d
        return u, v, du, dv

    def xy(self, urd):
        X, Y, Z = self.xyz(urd).T
        s = X + Y + Z
        return X / s, Y / s


# ---------------------------------------------------------------------------------------------
# Fitting
# ---------------------------------------------------------------------------------------------
def fit_piece(t, f, w, a, b, deg, pin_a, pin_b, fa, fb, iters=600, df=None, dw=None):
    """Weighted minimax (Lawson) Chebyshev fit on [a, b], optionally interpolating the ends.

    With df/dw the slope error is held to the same minimax as the value error (rows stacked).
    """
    x = (2 * t - (a + b)) / (b - a)
    V = cheb.chebvander(x, deg)
    if df is not None:
        eye = np.eye(deg + 1)
        dV = np.array([cheb.chebval(x, cheb.chebder(eye[k])) * (2.0 / (b - a))
                       for k in range(deg + 1)]).T
        V = np.vstack([V, dV])
        f = np.concatenate([f, df])
        w = np.concatenate([w, dw])
        t = np.concatenate([t, t])
    rows, rhs = [], []
    if pin_a:
        rows.append(cheb.chebvander(np.array([-1.0]), deg)[0])
        rhs.append(fa)
    if pin_b:
        rows.append(cheb.chebvander(np.array([1.0]), deg)[0])
        rhs.append(fb)
    if rows:
        A = np.array(rows)
        cp = np.linalg.lstsq(A, np.array(rhs), rcond=None)[0]
        _, _, vt = np.linalg.svd(A)
        N = vt[len(rows):].T
    else:
        cp = np.zeros(deg + 1)
        N = np.eye(deg + 1)
    VN = V @ N
    g = f - V @ cp
    lw = np.full(len(t), 1.0 / len(t))
    best = None
    for _ in range(iters):
        s = np.sqrt(lw) * w
        z = np.linalg.lstsq(VN * s[:, None], g * s, rcond=None)[0]
        c = cp + N @ z
        r = (V @ c - f) * w
        m = np.abs(r).max()
        if best is None or m < best[0]:
            best = (m, c)
        lw = lw * np.abs(r)
        lw /= lw.sum()
    return best[1]


def cheb_to_raw(c, a, b):
    """Exact conversion of a Chebyshev series on [a, b] to raw powers of t (low power first)."""
    deg = len(c) - 1
    # Chebyshev polynomials T_k(x) as exact integer coefficient lists.
    T = [[Fraction(1)], [Fraction(0), Fraction(1)]]
    for k in range(2, deg + 1):
        nxt = [Fraction(0)] * (k + 1)
        for i, q in enumerate(T[k - 1]):
            nxt[i + 1] += 2 * q
        for i, q in enumerate(T[k - 2]):
            nxt[i] -= q
        T.append(nxt)
    px = [Fraction(0)] * (deg + 1)
    for k, ck in enumerate(c):
        fc = Fraction(float(ck))
        for i, q in enumerate(T[k]):
            px[i] += fc * q
    fa, fb = Fraction(float(a)), Fraction(float(b))
    alpha = Fraction(2) / (fb - fa)
    beta = -(fa + fb) / (fb - fa)
    raw = [Fraction(0)] * (deg + 1)
    # x^k = (alpha t + beta)^k
    power = [Fraction(1)]
    for k in range(deg + 1):
        for i, q in enumerate(power):
            raw[i] += px[k] * q
        new = [Fraction(0)] * (len(power) + 1)
        for i, q in enumerate(power):
            new[i] += beta * q
            new[i + 1] += alpha * q
        power = new
    return [float(q) for q in raw]  # correctly rounded to double


def horner(raw_high_first, t):
    r = np.zeros_like(np.asarray(t, float))
    for c in raw_high_first:
        r = r * t + c
    return r


class Piecewise:
    """Piecewise raw-power polynomial exactly as the C++ evaluates it."""

    def __init__(self, breaks, rows, break_goes_left=False):
        self.breaks = np.array(breaks, float)
        self.rows = rows  # high power first, padded with leading zeros to DEGREE + 1
        # u, v: a value below a break uses the left piece; x, y: a value at or below it does.
        self.side = "left" if break_goes_left else "right"

    def __call__(self, t):
        t = np.asarray(t, float)
        k = np.searchsorted(self.breaks, t, side=self.side)
        C = np.array(self.rows)[k]
        r = np.zeros_like(t)
        for j in range(C.shape[-1]):
            r = r * t + C[..., j]
        return r


def sample_grid(a, b, n=3000):
    # Denser towards the hot end of a piece, where the tolerance is tightest.
    s = np.linspace(0.0, 1.0, n)
    return np.unique(np.concatenate([a + (b - a) * s, a + (b - a) * s**2]))


def urd_weight(locus, t):
    """1 / (uv error that moves the CCT by 0.5 K); its slope counterpart for a colour Duv_max off."""
    c = np.clip(t, CCT_URD_MIN, CCT_URD_MAX)
    _, _, du, dv = locus.uv_and_slope(c)
    speed = np.hypot(du, dv)
    w = 1.0 / (speed * 0.5e-6 * c * c)
    # An error slope e' tilts the normal and moves the foot point of a colour Duv off the locus
    # by Duv * e' / |P'|^2 mired; only the CCT range (with a 10 % margin, where the foot points of
    # colours at 1000 K can land) needs that held down.
    wd = np.where(t <= 1.1 * CCT_URD_MAX, w * DUV_MAX / speed, 0.0)
    return w, wd


def fit_uv_component(locus, comp, breaks):
    edges = [URD_MIN] + list(breaks) + [URD_MAX]
    rows, pieces = [], []
    for p in range(len(edges) - 1):
        a, b = float(edges[p]), float(edges[p + 1])
        deg = DEGREE
        t = sample_grid(a, b)
        u, v, du, dv = locus.uv_and_slope(t)
        f, df = (u, du) if comp == 0 else (v, dv)
        w, wd = urd_weight(locus, t)
        scale = max(w.max(), wd.max())
        fa = locus.uv(a)[comp][0]
        fb = locus.uv(b)[comp][0]
        c = fit_piece(t, f, w / scale, a, b, deg, p > 0, p < len(edges) - 2, fa, fb,
                      df=df, dw=wd / scale)
        raw = cheb_to_raw(c, a, b)[::-1]
        rows.append([0.0] * (DEGREE - deg) + raw)
        pieces.append((a, b, deg))
    return Piecewise(breaks, rows), pieces


def fit_xy_component(locus, comp, breaks, degrees):
    edges = [T_MIN] + list(breaks) + [T_MAX]
    rows, pieces = [], []
    for p in range(len(edges) - 1):
        a, b = float(edges[p]), float(edges[p + 1])
        deg = degrees[p]
        T = np.linspace(a, b, 4000)
        f = np.array(locus.xy(1e6 / T)[comp])
        fa = locus.xy(1e6 / a)[comp][0]
        fb = locus.xy(1e6 / b)[comp][0]
        c = fit_piece(T, f, np.ones_like(T), a, b, deg, p > 0, p < len(edges) - 2, fa, fb)
        raw = cheb_to_raw(c, a, b)[::-1]
        rows.append([0.0] * (DEGREE - deg) + raw)
        pieces.append((a, b, deg))
    return Piecewise(breaks, rows, break_goes_left=True), pieces


# ---------------------------------------------------------------------------------------------
# Checks
# ---------------------------------------------------------------------------------------------
def dense_urd(a, b):
    return np.unique(np.concatenate([np.geomspace(a, b, 40001), np.linspace(a, b, 40001)]))


def max_err_in(poly, locus, comp, a, b):
    t = dense_urd(a, b)
    e = np.abs(poly(t) - locus.uv(t)[comp])
    return e.max(), t[np.argmax(e)]


def continuity_gaps(poly):
    out = []
    for bk in poly.breaks:
        left = Piecewise([], [poly.rows[np.searchsorted(poly.breaks, bk, side="left")]])
        right = Piecewise([], [poly.rows[np.searchsorted(poly.breaks, bk, side="right")]])
        out.append((bk, abs(left(np.array([bk]))[0] - right(np.array([bk]))[0])))
    return out


def horner_rounding(poly, edges, n=60):
    """Largest difference between the double Horner sum and the exact value of the same rows."""
    worst = 0.0
    for k in range(len(edges) - 1):
        row = [Fraction(c) for c in poly.rows[k]]
        for t in np.linspace(edges[k], edges[k + 1], n)[:-1]:
            ft = Fraction(float(t))
            exact = Fraction(0)
            for c in row:
                exact = exact * ft + c
            worst = max(worst, abs(float(exact) - float(poly(np.array([t]))[0])))
    return worst


def golden_refine(fun, lo, hi, iters=90):
    """Vectorised golden-section search for the minimum of fun on [lo, hi]."""
    g = (np.sqrt(5.0) - 1.0) / 2.0
    for _ in range(iters):
        x1 = hi - g * (hi - lo)
        x2 = lo + g * (hi - lo)
        left = fun(x1) < fun(x2)
        hi = np.where(left, x2, hi)
        lo = np.where(left, lo, x1)
    return 0.5 * (lo + hi)


def simulate_cct(locus, upoly, vpoly, n_urd=700, duvs=None):
    """Largest CCT (K) and Duv errors of the polynomial-locus search, plus spurious minima."""
    if duvs is None:
        duvs = np.linspace(-DUV_MAX, DUV_MAX, 9)
    urd0 = np.unique(
        np.concatenate([np.linspace(CCT_URD_MIN, CCT_URD_MAX, n_urd), 1e6 / np.linspace(1000, 20000, n_urd)])
    )
    u0, v0, du, dv = locus.uv_and_slope(urd0)
    s = np.hypot(du, dv)
    nu, nv = -dv / s, du / s  # unit normal (left of the direction of increasing urd)
    U = (u0[:, None] + duvs[None, :] * nu[:, None]).ravel()
    Vv = (v0[:, None] + duvs[None, :] * nv[:, None]).ravel()
    t_true = np.repeat(urd0, len(duvs))
    d_true = np.tile(duvs, len(urd0))

    grid = np.unique(np.concatenate([np.geomspace(URD_MIN, URD_MAX, 6000), np.arange(1.0, 3000.0, 0.5)]))
    gu, gv = upoly(grid), vpoly(grid)
    eu, ev = locus.uv(grid)
    t_est = np.empty_like(U)
    spurious = 0
    chunk = 2000
    for i in range(0, len(U), chunk):
        sl = slice(i, i + chunk)
        d2 = (U[sl, None] - gu[None, :]) ** 2 + (Vv[sl, None] - gv[None, :]) ** 2
        d2e = (U[sl, None] - eu[None, :]) ** 2 + (Vv[sl, None] - ev[None, :]) ** 2
        k = np.argmin(d2, axis=1)

        def nmin(d):
            return ((d[:, 1:-1] < d[:, :-2]) & (d[:, 1:-1] <= d[:, 2:])).sum(axis=1)

        spurious += int(np.sum(nmin(d2) > nmin(d2e)))
        lo = grid[np.maximum(k - 1, 0)]
        hi = grid[np.minimum(k + 1, len(grid) - 1)]
        Us, Vs = U[sl], Vv[sl]
        t_est[sl] = golden_refine(lambda t: (Us - upoly(t)) ** 2 + (Vs - vpoly(t)) ** 2, lo, hi)
    pu, pv = upoly(t_est), vpoly(t_est)
    dist = np.hypot(U - pu, Vv - pv)
    # Side of the locus: sign of the offset along the exact normal at the found point.
    _, _, du2, dv2 = locus.uv_and_slope(t_est)
    side = np.sign((U - pu) * (-dv2) + (Vv - pv) * du2)
    side[side == 0] = 1.0
    duv_est = side * dist
    dT = np.abs(1e6 / t_est - 1e6 / t_true)
    dD = np.abs(duv_est - d_true)
    worst = np.argmax(dT)
    return dict(
        max_dT=dT.max(),
        at_T=1e6 / t_true[worst],
        at_duv=d_true[worst],
        max_dDuv=dD.max(),
        spurious=spurious,
        n=len(U),
    )


# ---------------------------------------------------------------------------------------------
# Output
# ---------------------------------------------------------------------------------------------
def fmt(c):
    s = "%.17g" % c
    if "e" not in s and "." not in s:
        s += ".0"
    return s


def cpp_table(name, breaks, poly, legend):
    lines = ["// " + l if l else "//" for l in legend]
    lines.append("constexpr double %sBreaks[] = {%s};" % (name, ", ".join(fmt(b) for b in breaks)))
    lines.append("constexpr double %sCoeffs[][kTerms] = {" % name)
    for row in poly.rows:
        cells = [fmt(c) for c in row]
        lines.append("    {" + ", ".join(cells[:3]) + ",")
        lines.append("     " + ", ".join(cells[3:]) + "},")
    lines.append("};")
    return "\n".join(lines)


def degree_text(pieces):
    degs = [p[2] for p in pieces]
    if len(set(degs)) == 1:
        return "degree %d in every piece" % degs[0]
    return "degrees " + ", ".join(str(d) for d in degs)


def main(argv):
    args = [a for a in argv[1:] if not a.startswith("--")]
    flags = {a for a in argv[1:] if a.startswith("--")}
    if len(args) != 1:
        print(__doc__)
        return 2
    data = Path(args[0])
    given_only = "--given-breaks-only" in flags
    obs0 = ExactLocus(load_cmf_grid_a(data / "cie1931_2deg_cmf_1nm.tsv"))
    obs3 = ExactLocus(load_cmf_grid_a(data / "cie2015_10deg_cmf_1nm.tsv"))

    def layout(given, extra):
        return sorted(set(given) | (set() if given_only else set(extra)))

    report = []
    tables = []

    # Long-standing first u row for the 1931 set, checked against the exact locus.
    old_u = [-7.10072781479329e-18, 1.30621339504104e-14, -8.90674316076927e-12, 2.18775205936745e-9,
             3.33687761555243e-7, 5.50642805507806e-5, 0.180069325701198]
    t = dense_urd(URD_MIN, 460.0)
    e = np.abs(horner(old_u, t) - obs0.uv(t)[0])
    m50 = t >= CCT_URD_MIN
    report.append("old u row (1931, urd < 460): max |du| %.3g overall, %.3g in 50..460 mired"
                  % (e.max(), e[m50].max()))
    old_x = [-4.149460729809e-24, 1.409819113403e-19, -1.795358599458e-15, 9.62774539454e-12,
             -6.346890488067e-9, -0.0001510423912026, 0.8017588276219]
    T = np.linspace(1000.0, 10000.0, 90001)
    e = np.abs(horner(old_x, T) - obs0.xy(1e6 / T)[0])
    report.append("old x_bb row (1000..10000 K): max |dx| %.3g at %.0f K" % (e.max(), T[np.argmax(e)]))

    sets = [
        ("kU2015_10", obs3, 0, layout(U_BREAKS, U_EXTRA), "CIE 2015 10 deg (observer 3)", "u"),
        ("kV2015_10", obs3, 1, layout(V_BREAKS_OBS3, V_EXTRA_OBS3), "CIE 2015 10 deg (observer 3)", "v"),
        ("kU1931", obs0, 0, layout(U_BREAKS, U_EXTRA), "CIE 1931 2 deg (all other observers)", "u"),
        ("kV1931", obs0, 1, layout(V_BREAKS_OTHER, V_EXTRA_OTHER), "CIE 1931 2 deg (all other observers)", "v"),
    ]
    polys = {}
    for name, locus, comp, breaks, obsname, cname in sets:
        poly, pieces = fit_uv_component(locus, comp, breaks)
        polys[name] = poly
        e_in, t_in = max_err_in(poly, locus, comp, CCT_URD_MIN, CCT_URD_MAX)
        e_lo, _ = max_err_in(poly, locus, comp, URD_MIN, CCT_URD_MIN)
        e_hi, t_hi = max_err_in(poly, locus, comp, CCT_URD_MAX, URD_MAX)
        gaps = continuity_gaps(poly)
        gmax = max(g for _, g in gaps)
        rounding = horner_rounding(poly, [URD_MIN] + list(breaks) + [URD_MAX])
        report.append("%s %s: max |d%s| %.2e in 50..1000 mired (at %.1f), %.2e below 50, %.2e above 1000 "
                      "(at %.0f); largest gap at a break %.1e"
                      % (name, obsname, cname, e_in, t_in, e_lo, e_hi, t_hi, gmax))
        per_piece = []
        for a, b, deg in pieces:
            ee, _ = max_err_in(poly, locus, comp, a, b)
            per_piece.append("  [%g, %g) deg %d: %.1e" % (a, b, deg, ee))
        report.extend(per_piece)
        report.append("  gaps: " + ", ".join("%g: %.1e" % g for g in gaps))
        report.append("  double Horner vs exact rational evaluation of the printed coefficients: %.1e"
                      % rounding)
        legend = [
            "%s(urd) on the CIE 1960 Planckian locus, fitted to %s." % (cname, obsname),
            "Row k is the piece [break k-1, break k) mired (urd clamped to [0.1, 10000]), coefficients",
            "of urd^6 .. urd^0, %s. Max |error| against the exact locus on grid A:" % degree_text(pieces),
            "%.1e at 1000..20000 K (50..1000 mired), %.1e above 20000 K, %.1e below 1000 K." % (e_in, e_lo, e_hi),
            "Neighbouring pieces agree within %.0e at the breaks." % max(gmax, 1e-16),
        ]
        tables.append(cpp_table(name, breaks, poly, legend))

    # Polynomials in T of the classic layout (x broken at 10000 K, y at 9000 K, degree 6 and 5)
    # are only reported: they cannot follow the locus better than a few 1e-4, so the engine's
    # fast Duv reads the mired locus above instead.
    T = np.linspace(T_MIN, T_MAX, 190001)
    for name, comp, breaks, degrees in [("x_bb", 0, X_BREAKS, X_DEGREES), ("y_bb", 1, Y_BREAKS, Y_DEGREES)]:
        poly, _ = fit_xy_component(obs0, comp, breaks, degrees)
        e = np.abs(poly(T) - obs0.xy(1e6 / T)[comp])
        report.append("%s polynomial in T (not used): max |d%s| %.2e (at %.0f K)"
                      % (name, "xy"[comp], e.max(), T[np.argmax(e)]))

    if "--no-sim" not in flags:
        for label, locus, un, vn in [("observer 0 (1931 set)", obs0, "kU1931", "kV1931"),
                                     ("observer 3 (2015 10 deg set)", obs3, "kU2015_10", "kV2015_10")]:
            r = simulate_cct(locus, polys[un], polys[vn])
            report.append("CCT search, %s, %d test colours 1000..20000 K, |Duv| <= 0.02: max |dCCT| "
                          "%.3g K (at %.0f K, Duv %+.3f), max |dDuv| %.2e, extra local minima: %d"
                          % (label, r["n"], r["max_dT"], r["at_T"], r["at_duv"], r["max_dDuv"], r["spurious"]))

    print("// ---- C++ tables ----")
    print("\n\n".join(tables))
    print()
    print("# ---- error report ----")
    print("\n".join(report))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
