// Vantrel: the colorimetry engine.
//
// One object turns a spectrum on the fixed grid (360 to 830 nm in 2 nm steps, 236 points, W/nm
// or relative) into photometry and colour metrics. Every window, worker and test owns its own
// object: there is no shared state, but one object must not be used from two threads, since
// every call writes member state.
//
// Calling order: calcCCT (or calcAll) first, then color, then any further metric, which reads
// CCT and Duv from the getters. Results stay until overwritten; a metric that was not requested
// keeps its earlier value. The engine never fails aloud: "no value" is -1 (NO_VALUE), refused
// TM-30 results are -100, a NaN R value is -400.
#ifndef LUMIVAR_ENGINE_VANTREL_H
#define LUMIVAR_ENGINE_VANTREL_H

#include <cstdio>
#include <memory>
#include <vector>

#include "VantrelData.h"

// A colour in CIELAB, and the CIEDE2000 difference of two of them term by term.
struct CIELab {
    double L, a, b;
};
struct CIEDE2000Weights {
    double kL = 1.0, kC = 1.0, kH = 1.0;
};
struct CIEDE2000Terms {
    double C1, C2, G, ap1, ap2, Cp1, Cp2, hp1, hp2;
    double SL, SC, SH, T, RC, RT, dTheta;
    double dL, dC, dH, tL, tC, tH, dE;
};

class Vantrel {
  public:
    static constexpr int NUM_GRID_POINTS = VantrelData::NUM_GRID;        // 360-830 nm, 2 nm
    static constexpr int NUM_GRID_POINTS_IR = VantrelData::NUM_GRID_IR;  // 360-1050 nm, 2 nm
    static constexpr int NUM_LOCUS_POINTS = VantrelData::NUM_LOCUS;      // 360-830 nm, 1 nm
    static constexpr int NUM_SAMPLES = 16;  // column 0 the illuminant, 1 to 15 the samples
    static constexpr int NUM_CES = VantrelData::NUM_CES;
    static constexpr int NUM_OBSERVERS = 4;

    static constexpr double NO_VALUE = -1.0;
    static constexpr double TM30_REFUSED = -100.0;
    static constexpr double R_VALUE_NAN = -400.0;
    // At or below this X+Y+Z a spectrum has no chromaticity: get_xy_XYZ gives x = y = 0.
    static constexpr double MIN_XYZ_SUM = 1e-9;

    // CCT search limits (K) and the mired bracket of the exact search.
    static constexpr double MIN_CCT = 1000.0;
    static constexpr double MAX_CCT = 950000.0;

    Vantrel();
    ~Vantrel();
    Vantrel(const Vantrel&) = delete;
    Vantrel& operator=(const Vantrel&) = delete;

    // --- Observer selection -------------------------------------------------------------------
    // 0 CIE 1931 2°, 1 CIE 1964 10°, 2 CIE 2015 2°, 3 CIE 2015 10°; anything else selects 0.
    void setCIE_XYZ_bar_type(int type);
    int getCIE_XYZ_bar_type() const { return observer; }
    const char* getCIE_XYZ_bar_type_name() const;

    // --- Tristimulus core ---------------------------------------------------------------------
    void calcCCT(const double* spectrum, bool fast);
    void color(const double* spectrum, bool cieLabR, bool doQ, bool doGamut, bool doDomWL,
               bool cieLabCES);
    void color(const double* spectrum, bool cieLabR, bool cieLabCES);
    void color(const double* spectrum, bool cieLabR);
    // Deliberately honours only its first flag: Q, gamut and dominant wavelength always run,
    // CES Lab never. Combination runs depend on exactly this.
    void color(const double* spectrum, bool cieLabR, bool, bool, bool);
    void calcAll(const double* spectrum, bool fast, bool cieLabR);
    void calcAll(const double* spectrum, bool fast, bool cieLabR, bool cieLabCES);

    // numFactors 2 integrates a·observer, otherwise a·b·observer.
    void cie_XYZ(int numFactors, const double* a, const double* b, double* X, double* Y, double* Z,
                 double* x, double* y) const;
    // The integration rule of the whole engine: a plain sum over the grid plus half of each end
    // point, so the two end points weigh 1.5. Every tabulated constant was made with it.
    static double sum2Products(const double* a, const double* b);
    static double sum3Products(const double* a, const double* b, const double* c);
    static void get_xy_XYZ(double X, double Y, double Z, double* x, double* y);
    // Whether X, Y, Z have a chromaticity: a finite X+Y+Z above MIN_XYZ_SUM.
    static bool hasChromaticity(double X, double Y, double Z);

    void getXYZ(double* X, double* Y, double* Z) const;
    void getXYZ(int sample, double* X, double* Y, double* Z, int row, int qSet) const;
    double getScotopicLumens(const double* spectrum) const;
    // True trapezoid over n points of the given step.
    static double getSpectralWatts(int n, const double* spectrum, double stepNm);
    static void scaleSpectrum(double* spectrum, double watts, int n);
    void getWhiteXYZ(int type, const double* spectrum, double* X, double* Y, double* Z);
    void get_illumination_XYZ(int row, double* xyz) const;

    void returnRvalues(double* values) const;
    void returnQvalues(double* values) const;
    void returnLabRvalues(double L[2][NUM_SAMPLES], double a[2][NUM_SAMPLES],
                          double b[2][NUM_SAMPLES]) const;
    void returnLabQvalues(double L[2][NUM_SAMPLES], double a[2][NUM_SAMPLES],
                          double b[2][NUM_SAMPLES]) const;
    void returnLabCESvalues(double L[2][NUM_CES], double a[2][NUM_CES], double b[2][NUM_CES]) const;
    void get_CRI_uv_prime(double** u, double** v) const;
    void get_CQS_uv_prime(double** u, double** v) const;

    int getIndexOfTestColors() const { return 0; }
    int getIndexOfReferenceColors() const { return 1; }

    // --- Results of the last run --------------------------------------------------------------
    double getCCT() const { return cct; }
    double getLumens() const { return lumens; }
    double getWattsVis() const { return wattsVis; }
    double getXcoord() const { return xcoord; }
    double getYcoord() const { return ycoord; }
    double getUcoord() const { return ucoord; }
    double getVcoord() const { return vcoord; }
    double getUcoord_1976() const { return upcoord; }
    double getVcoord_1976() const { return vpcoord; }
    double getDeltaUV_cri() const { return deltaUV_cri; }
    double getDeltaUVPlanck() const { return deltaUVPlanck; }
    double getDeltaUpVpPlanck() const { return deltaUpVpPlanck; }
    double getDomWL() const { return domWL; }
    double getPurity() const { return purity; }
    double getFCI() const { return fci; }
    double getFSI() const { return fsi; }
    double getFSCI() const { return fsci; }
    double get_gamut_CRI_upvp() const { return gamutCRI_upvp; }
    double get_gamut_CQS_upvp() const { return gamutCQS_upvp; }
    double get_gamut_D65_upvp() const { return gamutD65_upvp; }
    double get_GAI_upvp() const { return gai_upvp; }
    double get_gamut_CRI_uv() const { return gamutCRI_uv; }
    double get_gamut_CQS_uv() const { return gamutCQS_uv; }
    double get_gamut_D65_uv() const { return gamutD65_uv; }
    double get_GAI_uv() const { return gai_uv; }
    double get_cri_gamut_area_upvp(int row) const { return criGamutArea_upvp[row & 1]; }
    double get_cqs_gamut_area_upvp(int row) const { return cqsGamutArea_upvp[row & 1]; }
    double get_cri_gamut_area_uv(int row) const { return criGamutArea_uv[row & 1]; }
    double get_cqs_gamut_area_uv(int row) const { return cqsGamutArea_uv[row & 1]; }
    double get_a_ellipse() const { return aEllipse; }
    double get_b_ellipse() const { return bEllipse; }
    double get_theta_radians_ellipse() const { return thetaEllipse; }
    double get_TM30_Rf() const { return tm30Rf; }
    double get_TM30_Rg() const { return tm30Rg; }
    double get_TM30_Rf_skin() const { return tm30RfSkin; }
    bool get_TM30Error() const { return tm30Error; }

    // --- Curves by grid index -----------------------------------------------------------------
    // Photopic curve: ȳ of the 2015 10° observer when that is selected, else of 1931 2°.
    double getPhotopicCurveData(int i) const;
    double getScotopicCurveData(int i) const;
    double get_xbar_CurveData(int i) const;
    double get_ybar_CurveData(int i) const;
    double get_zbar_CurveData(int i) const;
    double getPhotopicCurveData_1931_2_deg(int i) const;
    double get_xbar_CurveData_1931_2_deg(int i) const;
    double get_ybar_CurveData_1931_2_deg(int i) const;
    double get_zbar_CurveData_1931_2_deg(int i) const;
    double getPhotopicCurveData_1960_10_deg(int i) const;
    double get_xbar_CurveData_1960_10_deg(int i) const;
    double get_ybar_CurveData_1960_10_deg(int i) const;
    double get_zbar_CurveData_1960_10_deg(int i) const;
    double getPhotopicCurveData_2015_2_deg(int i) const;
    double get_xbar_CurveData_2015_2_deg(int i) const;
    double get_ybar_CurveData_2015_2_deg(int i) const;
    double get_zbar_CurveData_2015_2_deg(int i) const;
    double getPhotopicCurveData_2015_10_deg(int i) const;
    double get_xbar_CurveData_2015_10_deg(int i) const;
    double get_ybar_CurveData_2015_10_deg(int i) const;
    double get_zbar_CurveData_2015_10_deg(int i) const;

    // Writes the engine's tables to tab-separated files in the current folder, for checking.
    // Returns false when a file could not be written.
    bool printCoefficients();

    // --- Reference data access ----------------------------------------------------------------
    void getTCSdata(double** rows) const;  // rows[1..15]
    void getVSdata(double** rows) const;   // rows[1..15]
    void getColorCheckerData(double** rows) const;
    void defineCESvalues(int* types, double** rows) const;
    void defineColorNameIndicies(int* types) const;
    void defineBlackBodyline(int* count4000K, int* count5000K, double* x, double* y) const;
    void defineBlackBodyline_2015_10Deg(int* count4000K, int* count5000K, double* x,
                                        double* y) const;
    void getHorseShoeData_xy(double* x, double* y) const;
    void getHorseShoeData_uv(double* u, double* v) const;
    void getHorseShoeData_upvp(double* up, double* vp) const;
    void getHorseShoeData_2015_10deg_xy(double* x, double* y) const;
    void getHorseShoeData_2015_10deg_uv(double* u, double* v) const;
    void getHorseShoeData_2015_10deg_upvp(double* up, double* vp) const;

    // --- Chromaticity conversions (plain formulas, inputs not checked) ------------------------
    static void get_uv_from_xy(double x, double y, double* u, double* v);
    static void get_xy_from_uv(double u, double v, double* x, double* y);
    static void get_upvp_from_xy(double x, double y, double* up, double* vp);
    static void get_upvp_from_uv(double u, double v, double* up, double* vp);
    static void get_uv_from_upvp(double up, double vp, double* u, double* v);
    static void get_xy_from_upvp(double up, double vp, double* x, double* y);
    static void get_XYZ_from_xylm(double x, double y, double lm, double* X, double* Y, double* Z);
    static void getXYZ_from_xylm(double x, double y, double lm, double* X, double* Y, double* Z);
    static void cie_1960_uvcd(double x, double y, double* u, double* v, double* c, double* d);
    // Distance between (u1, v1) and (u2, v2), negative when point 1 lies below point 2.
    static double getSignedDistance(double u1, double u2, double v1, double v2);

    // --- CCT and Duv --------------------------------------------------------------------------
    void getCCTdata(double u, double v, double* cct, bool fast);
    void getCCTdata_old(double u, double v, double* cct, bool fast);
    double getDuvFrom_urd(double u, double v, double urd, bool fast) const;
    double brent(double ax, double bx, double cx, double u, double v, bool fast) const;
    // Polynomial Planck locus in mired for optimizer loops (observer 3, or the 1931 fit).
    double get_u_new(double urd) const;
    double get_v_new(double urd) const;
    void calDeltaBlackBody(double cct, double x, double y, bool unused);
    void calDeltaBlackBody(double x, double y, bool fast);
    void calDeltaBlackBody_p1(double cct, double u, double v);
    void calDeltaUV_cri(double x, double y, bool fast);
    // Fast Duv to the 1931 Planck locus; -1 outside 1000 to 20000 K despite the name.
    double getDuvFromCCTxy_100Kto40kK(double cct, double x, double y) const;
    void get_xy_from_CCT_Duv(double cct, double duv, double* x, double* y);
    double getSlopeOfCCTLine_xy(double cct);
    double getSlopeOfCCTLine_xy(double x, double y);
    double getSlopeOfBlackBodyLine_xy(double cct);
    double getSlopeOfBlackBodyLine_xy(double x, double y);

    // --- Reference spectra --------------------------------------------------------------------
    static void getBlackBody(double* s, double T);
    static void getBlackBody(double* s, double T, int n);
    void getSyntheticDaylight(double* s, double T) const;
    // Daylight for 4999.99999 <= cct <= 25000, Planck otherwise.
    void getReferenceSpectrum(double cct, double* s) const;

    // Locus y as a function of x for drawing; 0 outside the fitted x range.
    double getBlackBody_Cy(double x) const;
    double getSyntheticDaylight_Cy(double x) const;
    double getTM30BlendedLocus_Cy(double x) const;

    // --- Dominant wavelength and purity -------------------------------------------------------
    void calcDomWL_purity(double x, double y);
    void calcDomWL_purity(const double* xs, const double* ys, const double* angles, double wx,
                          double wy, double x, double y);
    void setWhitePointForDomWL_purity(double wx, double wy);
    void calcDomWL_purity_user(double x, double y);
    void define_x_y_angle_for_Ldom(double* xs, double* ys, double* angles, double wx,
                                   double wy) const;
    void get_whitePoint_xy_for_Ldom_purity(double* wx, double* wy) const;

    // "N/A" beyond |Duv| 0.05, ">1,000,000", "<1000", else "%.0lf". buf holds at least 16 chars.
    static void getCCTstring(char* buf, double cct, double duv);
    void getCIEHorseShoe(double* x, double* y) const;

    // --- Spectrum utilities -------------------------------------------------------------------
    // Area-preserving resampling (a box filter) onto start..end in steps of step. outWl may be
    // null. False when step < 0.001, n < 3 or fewer than 5 output points.
    static bool resampleSpectrum(int n, const double* wl, const double* value, double start,
                                 double end, double step, double* outWl, double* outValue);

    // --- Colour rendering (CIE 13.3, 15 samples) ----------------------------------------------
    // R[0] = Ra (mean of R1-R8), R[1..15]; a NaN R value becomes R_VALUE_NAN.
    void getRvalues(double* R, const double* cTest, const double* dTest, double cRef, double dRef,
                    const double* YTest, const double* YRef, const double* uRef,
                    const double* vRef) const;
    // R values of n user reflectances under the current CCT's reference; R[i] is colors[i].
    void getUserRvalues(int n, const double* const* colors, double* R, const double* spectrum);
    // "N/A" outside 1000 to 25000 K, else "%d". buf holds at least 16 characters.
    static void getCRIstring(char* buf, double cct, int value);
    void defineCIELabForRValues(const double* spectrum);
    void defineCIELABForCESColors(const double* spectrum);
    // Adaptation and CIELAB of one sample: adapt non-zero adapts from white row `row` to the
    // reference white by CMCCAT2000 at 1000 cd/m², else by the CIE 13.3 von Kries rule.
    void get_Lab(int adapt, int row, double Yt, double ut, double vt, double ct, double dt,
                 double cr, double dr, double spare1, double spare2, double spare3, double spare4,
                 double Xn, double Yn, double Zn, double X, double Y, double Z, double* L,
                 double* a, double* b) const;
    static void von_Kries_adapted_XYZ(double Y, double u, double v, double ct, double dt, double cr,
                                      double dr, double* X, double* Yout, double* Z);
    // CMCCAT2000 from sourceWhite to targetWhite at the given adapting luminance (cd/m²).
    static void CMCCAT_v(double X, double Y, double Z, const double* sourceWhite,
                         const double* targetWhite, double adaptLuminance, double* outXYZ);

    // --- Colour Quality Scale 9.1 (NIST CQS 9.0 samples) ---------------------------------------
    void getQvalues(double* Q, const double* testSpectrum, const double* referenceSpectrum,
                    double Xr, double Yr, double Zr);
    static void get_CQS_term(int k, double** a, double** b, double** L, double* chroma,
                             double* sumSquares, double* Qk);
    void getUserQvalues(int n, const double* const* colors, double* Q, const double* spectrum,
                        double** X, double** Y, double** Z, double** L, double** a, double** b,
                        double** x, double** y);
    double getUserQvaluesCQS() const { return userQa; }
    static int getCQSmajorVersion() { return 9; }
    static int getCQSminorVersion() { return 1; }
    // Heron's rule; *failed is set (and 0 returned) for a degenerate triangle.
    static double triangleArea(double x1, double y1, double x2, double y2, double x3, double y3,
                               bool* failed);

    // --- Colour spaces and colour difference ---------------------------------------------------
    static void get_CIELab_from_XYZ(double X, double Y, double Z, double Xn, double Yn, double Zn,
                                    double* L, double* a, double* b);
    static void get_XYZ_from_CIELab(double L, double a, double b, double Xn, double Yn, double Zn,
                                    double* X, double* Y, double* Z);
    static void get_xy_from_CIELab(double L, double a, double b, double Xn, double Yn, double Zn,
                                   double* x, double* y);
    static double varFunction(double t);
    static double varFunction_1(double t);
    static double get_dE_star_from_CIELab(double L1, double a1, double b1, double L2, double a2,
                                          double b2);
    // CIEDE2000 on value records: every term of the formula, for callers that show or trace
    // them. dL, dC, dH are the raw differences (first minus second) before k and S; tL, tC, tH
    // the scaled ones.
    static CIEDE2000Terms ciede2000(const CIELab& first, const CIELab& second,
                                    const CIEDE2000Weights& k = CIEDE2000Weights());
    // The 26 tab-separated trace fields of one difference, ending the line.
    static void writeCIEDE2000Trace(FILE* trace, const CIELab& first, const CIELab& second,
                                    const CIEDE2000Terms& t);
    // The same through the argument lists the calculators use; spare1 and spare2 are kept in
    // the argument list and written by nothing.
    static void get_CIEDE2000_from_CIELab(double L1, double a1, double b1, double L2, double a2,
                                          double b2, double kL, double kC, double kH,
                                          double* spare1, double* spare2, double* SL, double* SC,
                                          double* SH, double* dL, double* dC, double* dH,
                                          double* dE, FILE* trace);
    static void get_CIEDE2000_from_XYZ(int index, double X1, double Y1, double Z1, double X2,
                                       double Y2, double Z2, double Xn, double Yn, double Zn,
                                       double kL, double kC, double kH, double* SL, double* SC,
                                       double* SH, double* dL, double* dC, double* dH, double* dE,
                                       FILE* trace);
    // X, Y, Z on the 0 to 100 scale to 8-bit sRGB (D65).
    static void XYZ_to_sRGB_D65(double X, double Y, double Z, int* r, int* g, int* b);
    // Components 0 to 1, hue in degrees; a hue of -1 means none (black).
    static void RGBtoHSV(double r, double g, double b, double* h, double* s, double* v);
    static void HSVtoRGB(double h, double s, double v, double* r, double* g, double* b);
    static void RGBtoHSL(double r, double g, double b, double* h, double* s, double* l);
    static void HSLtoRGB(double h, double s, double l, double* r, double* g, double* b);
    static void HSVtoHSL(double h, double s, double v, double* hOut, double* sOut, double* l);
    static void HSLtoHSV(double h, double s, double l, double* hOut, double* sOut, double* v);
    static double HueToRgb(double p, double q, double t);

    // --- Mixing and photons --------------------------------------------------------------------
    // Lumens of three sources (xs, ys) that mix to x, y at `lumens`; false when two sources
    // cannot be told apart. Negative solutions are returned as they are.
    static bool mix3Colors(double x, double y, double lumens, const double* xs, const double* ys,
                           double* outLumens);
    static void getCxCyFromMix(int n, const double* x, const double* y, const double* lumens,
                               double* outX, double* outY);
    static double convert_to_Photons_Sec_from_Watts_nm(double watts, double nm);
    static double convert_to_Watts_nm_from_Photons_Sec(double photons, double nm);

    // --- Spectrum tools ------------------------------------------------------------------------
    static void linearInterpolateTo2nm(int n, const double* wl, const double* value, int outN,
                                       double* out);
    // Full width at half maximum over [first, last); -1 when a half-height crossing is missing.
    static double getFWHM(int first, int last, const double* wl, const double* value);
    // Centroid (nm) of a 2 nm spectrum from 360 nm; reads NUM_GRID_POINTS_IR values.
    static double getPeakCentroid(const double* spectrum);
    static void convolute(const double* a, int na, const double* kernel, int nk, double* out);
    static double getRMSdiff(int n, const double* a, const double* b, const double* weight);
    static void getMinMaxForDiagram(int type, double* xMax, double* yMax);

    // --- IES TM-30-18 -----------------------------------------------------------------------
    static constexpr int TM30_NUM_BINS = 16;
    static constexpr int TM30_BIN_COLUMNS = 18;
    static const char* getTM30_version() { return "TM-30-18"; }
    // The 99 CES; refused (Rf, Rg, Rf,skin at TM30_REFUSED and get_TM30Error true) when
    // |duv| > 0.1. duv and cct come from the caller's earlier calcCCT and color.
    void calculate_TM30(double duv, double cct, const double* spectrum);
    // n user reflectances in place of the CES when colors is not null and n >= 1.
    void calculate_TM30(double duv, double cct, const double* spectrum, int n,
                        const double* const* colors);
    // J', a', b' (component 0 to 2) of a colour, row 0 test, 1 reference.
    double getTM30JabValues(int color, int row, int component) const;
    double getTM30Rfi(int color) const;
    // Screen colours of the samples, rgb[color][row][channel], 0 to 255.
    void getTM30PatchColors(int n, int (*rgb)[2][3]) const;
    void getTM30PatchColors(int (*rgb)[2][3]) const { getTM30PatchColors(NUM_CES, rgb); }
    void getTM30PatchColorsUser(int n, int (*rgb)[2][3]) const { getTM30PatchColors(n, rgb); }
    // The 16 hue-bin colours of the graphics.
    void getTM30HueRGB(double* r, double* g, double* b) const;
    void getTM30ChromaShiftsAsPercent(double* out) const;
    void getTM30HueShifts(double* out) const;
    int getTM30NumInHueBin(int bin) const;
    void getTM30NumInHueBins(int* out) const;
    // Rf,hj of the 16 bins, rounded as trunc(0.5 + value).
    void getTM30RfByHue(double* out) const;
    // which != 0: the reference bin means, else the test bin means (16 points each).
    void getTM30GamutAreaPolygonPoints(int which, double* x, double* y) const;
    // which != 0: the unit circle at the bin hues, else the shifted points.
    void getTM30DistortionIconPoints(int which, double* x, double* y) const;
    // Planck to 4000 K, CIE daylight from 5000 K, blended between.
    void getTM30ReferenceSpectrum(double cct, double* s) const;
    void cleanUpTM30();
    static void XYZ2RGB(const double* XYZ, double Xw, double Yw, double Zw, int* r, int* g, int* b);
    // CIECAM02 with CAM02-UCS under the fixed TM-30 viewing conditions; Jab = J', a', b'.
    static void CalcCAM02(double Xw, double Yw, double Zw, double X, double Y, double Z,
                          double* Jab);
    static void Calc_DeltaE(int n, const double (*Jab)[2][3], double* dE, double* sum);
    // Shoelace area of the closed polygon of n rows of a bin table.
    static double polygonArea(const double (*table)[TM30_BIN_COLUMNS], int xColumn, int yColumn,
                              int n);

    // --- TLCI-2012 (EBU Tech 3355) -------------------------------------------------------------
    static constexpr double TLCI_FAILED = -1000.0;
    double getQa_TLCI_2012(const double* spectrum, const double* reference, double cct) const;
    // R, G, B [2][24] gamma-encoded camera values (written only if all three are given),
    // referenceOut 77 values, sectors [12][3], inGamut 24 flags, trace a stream; each may be null.
    double getQa_TLCI_2012(const double* spectrum, const double* reference, double cct, double** R,
                           double** G, double** B, double* referenceOut, int** sectors,
                           bool* inGamut, FILE* trace) const;
    static int getNumColors_TLCI_2012() { return 24; }
    static int getUnknown_TLCI_2012() { return static_cast<int>(TLCI_FAILED); }
    // Colour offset D from Duv (with the 4000 to 5000 K allowance).
    static double getD_TLCI_2012(double cct, double duv);
    static void getTLCI_2012_hue_name_4_char(int sector, char* name);
    static bool convert2nmTo5nm_TLCI(const double* in, double* out);
    static void blackBody_TLCI(double T, double* s);
    static void getSyntheticDaylight_TLCI(const double* S0, const double* S1, const double* S2,
                                          double* s, double T);
    static void getXYZ_TLCI(const double* spectrum, const double* reflectance, const double* xbar,
                            const double* ybar, const double* zbar, double* X, double* Y,
                            double* Z);
    static double sum3Products_5nm(const double* a, const double* b, const double* c);
    static void cameraMatrix(double R, double G, double B, double* Rm, double* Gm, double* Bm);
    static void forceIntoGamut(double* v);
    static void saturation_TLCI(double R, double G, double B, double* Rs, double* Gs, double* Bs);
    static void get_RpcGpcBpc_TLCI(double v, double* out);
    static void XYZ_from_display_TLCI(double R, double G, double B, double* X, double* Y,
                                      double* Z);
    static int getHueSector_TLCI_2012(double R, double G, double B, int* reference);

    // --- Gamut areas, GAI, Class A and polygons ------------------------------------------------
    // Step of color(): gamut of R1 to R8 in u'v' and uv, its ratios, "Gamut D65" and GAI.
    // Fills criU/criVp of both rows (column k = sample k) from the sample u, v.
    void calcCRIGamutAreas();
    // Class A colour rendering (ASSIST/LRC 2010): GAI (u'v') 80 to 100 and Ra >= 80.
    bool meetsASSIST2ColorMetric() const;
    static bool meetsASSIST2ColorMetric(double gai, double ra);
    // LRC Class A white line at cct (2700 to 6500 K); x = y = 0 and false outside.
    static bool getLRCWhitePoint(double cct, double* x, double* y);
    // x, y within 4 MacAdam steps of the white line point at cct.
    bool meetsLRCWhite(double cct, double x, double y);
    // Sorts the points by angle about their centroid (descending: clockwise from 360°). False,
    // with the arrays untouched, when a coordinate is negative. Three-argument form: descending.
    static bool orderGamut(int n, double* x, double* y);
    static bool orderGamut(bool descending, int n, double* x, double* y);
    // Share of gamut 1 covered by gamut 2 on a grid x grid raster of gamut 1's box; when gamut 1
    // lies wholly inside, the ratio of gamut 2's hits to gamut 1's in that box.
    static double commonGamutArea(int grid, int n1, const double* x1, const double* y1, int n2,
                                  const double* x2, const double* y2);
    // Fewer than 3 points count as inside.
    static bool isPointInGamut(int n, const double* xs, const double* ys, double x, double y);
    static bool pointInTriangle(double x, double y, double x1, double y1, double x2, double y2,
                                double x3, double y3);
    static double sign(double x1, double y1, double x2, double y2, double x3, double y3);

    // --- FCI, SSI, FSI/FSCI, COI and film terms ------------------------------------------------
    // Feeling of Contrast Index after Nayatani's chromatic adaptation; stored, read by getFCI.
    void calcFCI(const double* spectrum);
    // Spectrum Similarity Index of test against reference (0 to 100). False when a bin of the
    // reference plus the mean is zero (ssi is still written) or when resampling fails (ssi 0).
    bool getSSIValues(const double* test, const double* reference, int* ssi);
    // The 32 SSI bins: 30 bins of 10 nm from 375 nm at indices 1 to 30, summing to 1.
    bool getBinValuesForSSI(const double* spectrum, double* bins);
    // Full-spectrum index and its colour form; both -1 when resampling fails.
    void calculateFullSpectrumIndicies(const double* spectrum);
    // Cyanosis Observation Index (AS/NZS 1680.2.5): blood Q100 and Q50; smaller is better.
    double getCOI(const double* spectrum);
    // Film exposures: the spectrum integrated with the three curves of the stock.
    void calc_kodak_daylight_values(const double* spectrum, double* r, double* g, double* b) const;
    void calc_kodak_3200K_values(const double* spectrum, double* r, double* g, double* b) const;

    // --- MacAdam ellipses and ANSI quadrangles -------------------------------------------------
    // Friele-MacAdam-Chickering metric at x, y; stores the one-step a, b, θ of the ellipse.
    void macAdam_xy(double x, double y, double* g11, double* g12, double* g22);
    // The same at the stored chromaticity of the last run.
    void macAdam();
    void macAdamAll(double x, double y, double* a, double* b, double* theta, double* g11,
                    double* g12, double* g22);
    // n points, the last repeating the first, of an ellipse scaled by steps about x0, y0.
    static void getEllipsePoints(int n, double steps, double x0, double y0, double a, double b,
                                 double theta, double* xs, double* ys);
    void getMacAdamEllipseArray_xy(int n, double steps, double x0, double y0, double* xs,
                                   double* ys, double* a, double* b, double* theta, double* g11,
                                   double* g12, double* g22);
    // ANSI C78.376 ellipses; an index past the end gives zeros.
    static void macAdam_ANSI_C78_376(int index, double* x, double* y, double* a, double* b,
                                     double* theta, double* g11, double* g12, double* g22);
    static int getNumANSIEllipses();
    static void getANSIEllipseName(int index, char* name);
    static void getANSIMacAdamEllipseArray_xy(int index, int n, double steps, double* xs,
                                              double* ys);
    static void getUserdefinedMacAdamEllipseArray_xy(int n, double steps, double x0, double y0,
                                                     double a, double b, double theta, double* xs,
                                                     double* ys);
    // Circles of steps·0.0011 in u′v′: centre and points in u′v′, in xy, or xy centre and CIE
    // 1960 uv points.
    static void getUpVpEllipseArray_upvp(int n, double steps, double u0, double v0, double* us,
                                         double* vs);
    static void getUpVpEllipseArray_xy(int n, double steps, double x0, double y0, double* xs,
                                       double* ys);
    static void getUpVpEllipseArray_uv(int n, double steps, double x0, double y0, double* us,
                                       double* vs);
    // Largest distance of n points from x0, y0 in MacAdam steps (0 for n = 0); overwrites the
    // stored ellipse with the one at x0, y0.
    double getMacAdamForBinning(int n, double x0, double y0, double* xs, double* ys);
    double getMacAdamForBinning(double x0, double y0, double x, double y);
    // Largest u′v′ distance of n points in steps of 0.0011; fewer than 2 points give 0.
    static double getUpVpForBinning(int n, double x0, double y0, double* xs, double* ys);

    // --- Circadian and melanopic metrics -------------------------------------------------------
    // Circadian light and stimulus (Rea et al. 2012) at the given illuminance; false below
    // 0.001 lx or when a response integral vanishes.
    bool getCircadian_CLA(const double* spectrum, double lux, double* cla, double* cs);
    static void getCircadianTerms(double scale, double mc, double s, double v, double vPrime,
                                  double* cla, double* cs);
    // Illuminance at which the spectrum reaches targetCS (strictly between 0.01 and 1.0).
    bool getCircadianCritical(const double* spectrum, double targetCS, double* lux);
    // WELL v1 melanopic ratio; -1 when the visual sum is 0.
    double getWellBuildingMelanopicRatio(const double* spectrum);
    void get_Well_Buillding_Melanopic_and_Visual_curves(double* melanopic, double* visual);
    // Equivalent melanopic lux ratio; 0 when the visual sum is not positive.
    double getNormalizedEML(const double* spectrum);
    // Lumens through the 360-1050 nm eye curve, trapezoid rule.
    double getEquivalenceLm(int n, const double* spectrum, double stepNm);

  private:
    struct Reference;
    struct Tables;
    // The read-only tables of the process, built on first use (thread-safe) and never freed.
    static const Reference& sharedReference();
    // getBlackBody at T, kept until a different T is asked for: one calculation serves the CRI
    // reference, the Duv and the TM-30 reference of a run, which all want the one at the CCT.
    const double* blackBodyAt(double T) const;
    static std::unique_ptr<Reference> buildReference();
    static void buildTLCIReference(const VantrelData& data, Reference* r);
    // x, y and angle about the white wx, wy of each grid point of the spectrum locus.
    static void locusAngles(const double* xb, const double* yb, const double* zb, double wx,
                            double wy, double* xs, double* ys, double* angles);
    // Fixed points of the exact CCT search (mired): the two end tests and the start.
    enum SearchPoint {
        SEARCH_1001K,
        SEARCH_1000K,
        SEARCH_949999K,
        SEARCH_950000K,
        SEARCH_START,
        NUM_SEARCH_POINTS
    };
    static constexpr double CCT_SEARCH_URD[NUM_SEARCH_POINTS] = {
        999.000999000999, 1000.0, 1.0526326869817757, 1.0526315789473684, 400.0};
    static void exactLocusUV(const Reference& t, int observer, double urd, double* u, double* v);
    static double distanceTo(double u, double v, double ub, double vb);
    double duvAtSearchPoint(double u, double v, int point, bool fast) const;
    double brentFrom(double ax, double bx, double cx, double fbx, double u, double v,
                     bool fast) const;
    // Index of the Planck table of the old CCT walk for the current observer.
    int cctTableIndex() const { return observer == 3 ? 1 : 0; }
    // M1 and M2 of CIE daylight at T (x_D branch at 7000 K, unrounded).
    static void daylightFactors(double T, double* M1, double* M2);
    void labOfSamples(const double* spectrum, const double (*reflectances)[NUM_GRID_POINTS],
                      int first, int count, double* const* L, double* const* a,
                      double* const* b) const;
    void integrateSamples(int row, const double* normalized);
    void integrateQSamples(int row, const double* spectrum);
    void referenceRow(bool doQ);
    void colorFromSamples(double watts, bool doQ, bool doGamut, bool doDomWL);
    void qValuesFromSamples(double* Q);
    // TM-30 in steps: refusal and sizing (false when refused), the reference row, the test row
    // from its spectrum, and what follows from the sample XYZ of both rows.
    bool beginTM30(double duv, int n);
    void tm30Row(int row, const double* spectrum, int n, const double* const* colors);
    void finishTM30(int n, bool user);
    // Batch evaluation of mixes reads and fills the run state directly.
    friend class MixEvaluator;

    const Reference* ref;
    std::unique_ptr<Tables> tab;
    VantrelData data;
    int observer = 0;

    // Headline results.
    double cct = NO_VALUE;
    double lumens = 0, wattsVis = 0;
    double xcoord = 0, ycoord = 0, ucoord = 0, vcoord = 0, upcoord = 0, vpcoord = 0;
    double deltaUV_cri = 0;
    double deltaUVPlanck = 1, deltaUpVpPlanck = 1;
    double domWL = 0, purity = 0;

    // Sample tristimulus [row][column]: row 0 test, 1 reference; column 0 the illuminant.
    double sX[2][NUM_SAMPLES] = {}, sY[2][NUM_SAMPLES] = {}, sZ[2][NUM_SAMPLES] = {};
    double sx[2][NUM_SAMPLES] = {}, sy[2][NUM_SAMPLES] = {};
    double su[2][NUM_SAMPLES] = {}, sv[2][NUM_SAMPLES] = {};
    double sc[2][NUM_SAMPLES] = {}, sd[2][NUM_SAMPLES] = {};
    double qX[2][NUM_SAMPLES] = {}, qY[2][NUM_SAMPLES] = {}, qZ[2][NUM_SAMPLES] = {};
    double whiteXYZ[2][3] = {};

    // Metrics filled by the rendering, gamut and quality calculations.
    double rValues[NUM_SAMPLES] = {};
    double qValues[NUM_SAMPLES] = {};
    double labR_L[2][NUM_SAMPLES] = {}, labR_a[2][NUM_SAMPLES] = {}, labR_b[2][NUM_SAMPLES] = {};
    double labQ_L[2][NUM_SAMPLES] = {}, labQ_a[2][NUM_SAMPLES] = {}, labQ_b[2][NUM_SAMPLES] = {};
    double criU[2][NUM_SAMPLES] = {}, criVp[2][NUM_SAMPLES] = {};
    double cqsU[2][NUM_SAMPLES] = {}, cqsVp[2][NUM_SAMPLES] = {};
    double criGamutArea_upvp[2] = {}, cqsGamutArea_upvp[2] = {};
    double criGamutArea_uv[2] = {}, cqsGamutArea_uv[2] = {};
    double gamutCRI_upvp = 0, gamutCQS_upvp = 0, gamutD65_upvp = 0, gai_upvp = 0;
    double gamutCRI_uv = 0, gamutCQS_uv = 0, gamutD65_uv = 0, gai_uv = 0;
    double fci = 0, fsi = -1, fsci = -1;
    double aEllipse = 0, bEllipse = 0, thetaEllipse = 0;
    double userQa = 0;
    // TM-30 run state; the per-colour arrays are resized only when the colour count changes.
    int tm30Count = 0;
    std::vector<double> tm30Jab;  // [count][2][3]
    std::vector<double> tm30Rfi;  // [count]
    std::vector<double> tm30XYZ;  // [count][2][3], for the screen colours
    double tm30White[2][3] = {};  // Xw, Yw, Zw of test and reference
    double tm30Bins[TM30_NUM_BINS][TM30_BIN_COLUMNS] = {};
    double tm30HueShift[TM30_NUM_BINS] = {};
    bool tm30Error = false;
    double tm30Rf = TM30_REFUSED, tm30Rg = TM30_REFUSED, tm30RfSkin = TM30_REFUSED;
};

#endif  // LUMIVAR_ENGINE_VANTREL_H
