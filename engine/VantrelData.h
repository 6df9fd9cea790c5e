// Fillers for the reference tables of colour science used by the engine.
//
// VantrelData has no data of its own: each operation writes published constants (or tables the
// engine derives from them) into arrays the caller owns. The published numbers themselves live in
// engine/data/, one file per standard, each naming its source, edition, grid and units.
//
// Grids:
//   A  236 points, 360 to 830 nm in 2 nm steps (the engine's grid)
//   B   77 points, 380 to 760 nm in 5 nm steps (TLCI-2012)
//   C  471 points, 360 to 830 nm in 1 nm steps (spectrum locus)
//   IR 346 points, 360 to 1050 nm in 2 nm steps
//
// Values off a publication's grid are linear interpolations between its rows; outside its range a
// table is 0 unless said otherwise.
#ifndef LUMIVAR_ENGINE_VANTRELDATA_H
#define LUMIVAR_ENGINE_VANTRELDATA_H

class VantrelData {
  public:
    static constexpr int NUM_GRID = 236;     // grid A
    static constexpr int NUM_GRID_IR = 346;  // grid A extended to 1050 nm
    static constexpr int NUM_TLCI = 77;      // grid B
    static constexpr int NUM_LOCUS = 471;    // grid C
    static constexpr int NUM_CES = 99;       // IES TM-30 colour evaluation samples
    static constexpr int NUM_TCS = 15;       // CRI test colour samples 1 to 15
    static constexpr int NUM_VS = 15;        // CQS samples VS1 to VS15
    static constexpr int NUM_FCI = 4;        // FCI test colours
    static constexpr int NUM_COLOR_CHECKER = 24;
    static constexpr int NUM_CCT_TABLE = 26;         // rows of defineCCTdata
    static constexpr int NUM_BLACK_BODY_LINE = 901;  // 1000 K to 10000 K in 10 K steps

    // Observers on grid A (x̄, ȳ, z̄ each NUM_GRID values).
    void define_cie_1931_2deg_XYZ_bar(double* xbar, double* ybar, double* zbar) const;
    // CIE 1964 10 degree, used from 380 to 780 nm only: zeros at 360-378 and 782-830 nm.
    void define_cie_1960_10deg_XYZ_bar(double* xbar, double* ybar, double* zbar) const;
    // CIE 170-2:2015 fundamentals-based observers, from 390 nm (zeros below).
    void define_cie_2015_2deg_XYZ_bar(double* xbar, double* ybar, double* zbar) const;
    void define_cie_2015_10deg_XYZ_bar(double* xbar, double* ybar, double* zbar) const;
    // CIE 1951 scotopic V'(λ), 380 to 780 nm, zeros outside.
    void define_scotopic_XYZ_bar(double* vPrime) const;

    // CIE daylight components S0, S1, S2 on grid A.
    void getDaylightCoefficients(double* S0, double* S1, double* S2) const;
    // The same components on grid B as EBU Tech 3355 tabulates them for TLCI-2012.
    void getDaylightCoefficients_TLCI(double* S0, double* S1, double* S2) const;
    // CIE 1931 2 degree observer on grid B.
    void get_xyz_bar_TLCI(double* xbar, double* ybar, double* zbar) const;
    // EBU Tech 3355 standard camera curves on grid B.
    void defineEBUvalues(double* rbar, double* gbar, double* bbar) const;
    // ColorChecker reflectances on grid B, patches[0..23][NUM_TLCI].
    void defineCHvalues(double** patches) const;

    // CIE 13.3 test colour samples 1 to 14 and the JIS skin sample 15 into rows[1..15][NUM_GRID].
    void defineTCSvalues(double** rows) const;
    // NIST CQS 9.0 samples VS1 to VS15 into rows[1..15][NUM_GRID].
    void defineVSvalues(double** rows) const;
    // IES TM-30-18 CES reflectances rows[0..98][NUM_GRID] and their type codes types[0..98].
    void defineCESvalues(int* types, double** rows) const;
    // The 99 CES type codes (1 Nature ... 7 Color system).
    void defineColorNameIndicies(int* types) const;
    // "Nature", "Skin", "Textiles", "Paints", "Plastic", "Printed", "Color system" or "unknown".
    const char* getCESColorTypeStr(int type) const;

    // The first n (at most 4) FCI test colours into colors[0..n-1][NUM_GRID].
    void define_FCI_colors(int n, double** colors) const;
    // Reflectance of blood at 100 % and 50 % oxygen saturation (COI), grid A.
    void define_Q100_Q50_COI(double* q100, double* q50) const;
    // Circadian V (macular), S (macular) and melanopsin Mc curves of the 2012 CLA model, grid A.
    void defineCircadianConstants(double* V, double* S, double* Mc) const;
    // WELL Building Standard v1 melanopic and visual curves, grid A.
    void define_Well_Buillding_Melanopic_and_Visual_curves(double* melanopic, double* visual) const;
    // The same rounded to six decimals (equivalent melanopic lux).
    void defineEMLcurves(double* melanopic, double* visual) const;
    // Film layer sensitivities, r, g, b in this order, grid A.
    void make_kodak_daylight_colors(double* R, double* G, double* B) const;
    void make_kodak_3200K_colors(double* R, double* G, double* B) const;
    // ȳ to 830 nm, continued falling to 1050 nm; NUM_GRID_IR values.
    void defineEyeSensitivityCurveIR(double* curve) const;

    // 26 Planck points (urd in mired, u, v) in falling urd; type 3 selects the 2015 10 degree
    // observer, any other value the 1931 2 degree observer.
    void defineCCTdata(int type, double* urd, double* u, double* v) const;
    // x, y of the Planck locus from 1000 K to 10000 K in 10 K steps (NUM_BLACK_BODY_LINE points);
    // count4000K and count5000K receive the point counts up to 4000 K (301) and 5000 K (401).
    void defineBlackBodyline(int* count4000K, int* count5000K, double* x, double* y) const;
    void defineBlackBodyline_2015_10Deg(int* count4000K, int* count5000K, double* x,
                                        double* y) const;
    // Appends NUM_LOCUS rows of the 1 nm colour matching functions at X + *count and advances
    // *count. The 2015 10 degree form repeats its 390 nm row for 360 to 389 nm.
    void getHorseShoeData_xy(int* count, double* X, double* Y, double* Z) const;
    void getHorseShoeData_2015_10deg_xy(int* count, double* X, double* Y, double* Z) const;
};

#endif  // LUMIVAR_ENGINE_VANTRELDATA_H
