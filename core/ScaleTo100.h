// Keeps a set of percentages at a total of 100 when one of them is changed.
#ifndef LUMIVAR_CORE_SCALETO100_H
#define LUMIVAR_CORE_SCALETO100_H

class ScaleTo100 {
  public:
    // Scales the active entries other than changedIndex so that all add up to 100 within the
    // tolerance; the changed entry is never altered. A zero sum of the others is not guarded
    // (the caller keeps one above 0). Returns true.
    bool scaleValues(int n, int changedIndex, const bool* active, double* values,
                     double tolerance) const;
};

#endif  // LUMIVAR_CORE_SCALETO100_H
