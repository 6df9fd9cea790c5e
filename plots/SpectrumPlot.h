// The spectrum plot: one spectrum and optionally a second "matching" curve on the 2 nm grid
// from 360 nm, drawn into an off-screen image that the window blits onto its canvas and the
// save-plot command writes to a file. Holds no widgets; a fresh plot serves each redraw.
#ifndef LUMIVAR_PLOTS_SPECTRUMPLOT_H
#define LUMIVAR_PLOTS_SPECTRUMPLOT_H

#include <fx.h>

#include <memory>
#include <vector>

// Everything one draw needs besides the data. The type codes are the main window's analysis
// types; they tell filter and colour spectra from light spectra.
struct SpectrumPlotOptions {
    int analysisType = 0;               // the window's current analysis type
    int filterInputType = 4;            // code of "filter input"
    int filterPlotType = 5;             // code of "plot filter"
    int colorInputType = 7;             // code of "colour input"
    int colorPlotType = 8;              // code of "plot colour"
    bool radiantPowerVariant = false;   // red main curve, "Radiant Power" title, legend on top
    FXFont* font = nullptr;             // labels and titles; null: the application's font
    FXFont* smallFont = nullptr;        // raised exponents; null: font
    bool hasMain = false;               // the main curve has data
    bool hasMatching = false;           // the matching curve has data
    bool showGridlines = false;         // a vertical grid line at each wavelength tick
    bool showBox = false;               // close the plot with top and right sides
    bool fullScale = false;             // filters and colours scale to 1 (or 100 %)
    bool inPercent = false;             // filter and colour values run from 0 to 100
    bool normalized = false;            // main and matching each divided by its own peak
    bool comma = false;                 // decimal comma in the axis numbers
    int legendPosition = 0;             // 0 top left, 1 top right, 2 bottom right, 3 bottom left
    bool fillLegendBackground = false;  // legend lines on a background-coloured band
    int rainbowMode = 0;                // 0 none, 1 under the curve, 2 whole background
    bool photonUnits = false;           // the data are photons/(s-nm)
    bool photonsAsUmol = false;         // show photons as umol/(s-nm)
    double mainPeak = -1.0;             // peak of the main data; below 0: found from the data
    double matchingPeak = -1.0;         // peak of the matching data; below 0: from the data
    bool diffCurve = false;             // dashed matching-minus-main curve about the middle
    bool writeCaption = false;          // photometry or filter/colour name on the plot
    FXString photometryCaption;         // photometry text of a light spectrum, lines by "\n"
    FXString filterColorName;           // name of the plotted filter or colour
    FXString mainTitle;                 // legend name of the main curve; empty: "Main"
    FXString matchingTitle;             // legend name of the matching curve; empty: "Matching"
    bool colorPeakLines = false;        // short coloured marks at the display primaries' peaks
    bool drawPatch = false;             // colour patch of a plotted filter or colour
    int matchingCurveType = 0;          // MATCHING_CURVE_TYPE
    bool blackBackground = false;       // white on black instead of black on white
};

class SpectrumPlot {
  public:
    enum MATCHING_CURVE_TYPE {
        MATCHING_THICK_BLACK = 0,  // thick black line
        MATCHING_THIN_RED = 1,     // thin red line
        MATCHING_THIN_BLUE = 2,    // thin blue line
    };
    enum RAINBOW_MODE {
        RAINBOW_NONE = 0,
        RAINBOW_UNDER_CURVE = 1,
        RAINBOW_BACKGROUND = 2,
    };

    explicit SpectrumPlot(FXTopWindow* owner);
    // Without a window, for saving plots and for tests.
    explicit SpectrumPlot(FXApp* app);
    ~SpectrumPlot();
    SpectrumPlot(const SpectrumPlot&) = delete;
    SpectrumPlot& operator=(const SpectrumPlot&) = delete;

    // Copies both arrays (either may be null) of numPoints values on the 2 nm grid from 360 nm.
    // A window that was the whole grid stays the whole (possibly longer) grid.
    void passData(int numPoints, const double* mainData, const double* matchingData);
    void setPatchColor(FXColor color);
    // The wavelength window; call after passData. The top is held to the end of the grid.
    void setPlotMinMax(double minNm, double maxNm);
    // Line widths and pads grow with the factor; below 1 becomes 1.
    void setScaleFactor(int factor);

    // Draws at width x height into a new image (the previous one is dropped). False, with the
    // old image kept, when the size is below 10 x 10 pixels.
    bool drawPlot(int width, int height, const SpectrumPlotOptions& options);

    void getPlotPadding(int* left, int* right, int* top, int* bottom) const;
    void getPlotBoundaries(int* left, int* right, int* top, int* bottom) const;
    FXImage* getImage() const { return image.get(); }
    // A pixel of the last drawing, read back from the display once per draw.
    FXColor getPixel(int x, int y);
    double getSpecPlotTick_nm() const { return 50.0; }
    double getTickNm() const { return tickNm; }
    double getMinNm() const { return minNm; }
    double getMaxNm() const { return maxNm; }
    // Wavelengths of the x-axis ticks in the current window, in drawing order.
    std::vector<double> getXTicks() const;
    // The y-axis top label of the last draw ("1.00", "100").
    const FXString& getYTopLabel() const { return yTopLabel; }
    // The y-axis title of the last draw; two lines are joined by "\n".
    const FXString& getYTitle() const { return yTitle; }

    // Rainbow colour of a wavelength, with brightness added.
    FXColor getSpectrumLineColor(double nm) const;
    // Colour and width of the matching curve for the current type.
    void getMatchingLine(FXColor* color, int* width) const;
    // Word for the menu text "%s line for matching spectrum".
    static const char* getMatchingLineColorName(int type);

    // The y-axis title: photons or watts, umol, transmission or reflectance, percent, the
    // power-of-ten multiplier, normalized curves, and the radiant power variant (two lines).
    static FXString getYAxisTitle(bool hasData, bool photons, bool umol, bool isFilter,
                                  bool isColor, bool inPercent, bool normalized, int exponent,
                                  bool radiantPowerVariant);
    // Power of ten of a value as printf's "%.1le" writes it (9.96 gives 1).
    static int getExponent(double value);
    // Wavelength under a cursor column of the canvas.
    static double getCursorNm(int cursorX, int leftPad, int plotWidth, double minNm, double maxNm);
    // One wheel step on the window: direction +1 zooms in, -1 out, about the cursor.
    static void wheelZoom(double cursorNm, int direction, double* minNm, double* maxNm,
                          double gridStart, double gridEnd);

  private:
    struct LegendEntry;
    void defineTerms();
    void getNumPoints();
    bool isFullWindow() const;
    void computeScale(const SpectrumPlotOptions& o);
    void computeLayout(const SpectrumPlotOptions& o, int width, int height);
    double curveY(double value) const;
    double plotWidthPx() const;
    double plotHeightPx() const;
    double nmToX(double nm) const;
    double valueAt(const std::vector<double>& data, double nm) const;
    void drawRainbow(FXDCWindow* dc, const SpectrumPlotOptions& o);
    void drawCurves(FXDCWindow* dc, const SpectrumPlotOptions& o);
    void drawColorPeakLines(FXDCWindow* dc);
    void drawGridlines(FXDCWindow* dc);
    void drawAxes(FXDCWindow* dc, const SpectrumPlotOptions& o);
    void setCurveStyle(FXDCWindow* dc, int kind, bool radiant);
    void drawYTitle(FXDCWindow* dc, const SpectrumPlotOptions& o);
    void drawCaptions(FXDCWindow* dc, const SpectrumPlotOptions& o);
    void drawLegendSample(FXDCWindow* dc, int kind, bool radiant, int x, int y);
    void drawPatchAt(FXDCWindow* dc, int x, int y);

    FXTopWindow* owner;
    FXApp* app;
    FXColor whiteColor, blackColor, gridColor, patchColor, matchingLineColor;
    FXColor backgroundColor, foregroundColor, mainLineColor, matchLineColorRaw;
    std::unique_ptr<FXImage> image;
    bool pixelsRead = false;
    bool useComma, fixedFullScale, isFullScale, inPercent, photonUnits;
    int brightness;
    int firstIndex, numPointsShown, numPoints;
    int topPad, leftPad, rightPad, bottomPad;
    bool showGridlines, showBox, drawPatch;
    int textHeight, lineWidth, scaleFactor, thickLineWidth, thinLineWidth, matchingLineWidth;
    int plotLeft, plotRight, plotBottom, plotTop;
    int matchingCurveType;
    std::vector<double> mainData, matchingData;
    double redEnd, greenEnd, blueEnd, darkRedStart, violetEnd;
    double minNm, maxNm, spanNm, tickNm, firstGridNm, gridStepNm, lastGridNm;
    // Of the last draw: top of the y scale, and what each curve's values are multiplied by
    // before they meet it (umol conversion or normalization).
    double scaleTop, mainFactor, matchingFactor;
    bool diffShown = false;
    FXFont* font = nullptr;
    FXFont* smallFont = nullptr;
    FXString yTopLabel, yTitle;
};

#endif  // LUMIVAR_PLOTS_SPECTRUMPLOT_H
