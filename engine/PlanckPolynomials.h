// Fast polynomial Planckian locus for the CCT optimizer loops.
//
// Computing a Planck point exactly costs 236 exponentials (Planck's law on grid A, weighted by
// the colour-matching functions). A CCT search evaluates the locus dozens of times per colour,
// so the optimizers use these piecewise polynomials instead. They reproduce the exact grid-A
// locus (c2 = 14.388 mm*K, plain sums over 360..830 nm in 2 nm steps) closely enough that a CCT
// found by minimising the CIE 1960 uv distance to them agrees with the exact locus to well
// under 0.5 K and 1e-5 in Duv for 1000..20000 K and |Duv| <= 0.02.
//
// The coefficient tables are produced by scripts/fit_planck_polynomials.py, which also prints
// the error report quoted next to each table.
//
// All functions are pure, allocation-free and thread-safe.
#pragma once

namespace planck_fit {

// CIE 1960 u of the Planckian radiator at reciprocal colour temperature urd = 1e6 / T (mired).
// observer 3 (CIE 2015 10 deg) has its own fit; every other observer uses the CIE 1931 2 deg
// fit. urd is clamped to [0.1, 10000] (10 MK down to 100 K).
//
// Note for CCT searches: with the CIE 2015 10 deg functions the locus turns back near
// 2950 mired (about 340 K; u and v both peak there) and heads towards the 830 nm end of the
// spectrum locus, so the uv distance is not unimodal over the whole clamp range. A bracket-free
// minimiser started on [0.1, 10000] walks into that cold tail, on these polynomials exactly as
// on the exact locus; bracket the search first (a coarse scan, or an upper end below 2900).
double locusU(int observer, double urd);

// CIE 1960 v of the Planckian radiator; same observer choice and clamping as locusU.
double locusV(int observer, double urd);

}  // namespace planck_fit
