// The chromaticity diagram of every window: spectrum locus with its colour fill, Planck, daylight
// and blended loci, CCT lines, wavelength markers, ticks and grid, the caller's points with
// labels and photometry text, gamuts and ellipses. It draws into its own image from what
// plotPoints and the setters hand over, and never reads a window; drawPlot blits the image.
//
// Diagram types travel as integers in settings and files:
//   0 CIE 1931 2 deg (x, y), 1 CIE 1960 2 deg (u, v), 2 CIE 1976 2 deg (u', v'),
//   3 CIE 2015 10 deg (x, y), 4 CIE 2015 10 deg (u', v').
#ifndef LUMIVAR_PLOTS_CIE_PLOT_H
#define LUMIVAR_PLOTS_CIE_PLOT_H

#include <fx.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "GamutClass.h"
#include "Vantrel.h"

// Everything one diagram shows, handed over in one plotPoints call. Point arrays hold x,y of
// CIE 1931 (or of the 2015 10 degree observer on types 3 and 4); an empty optional array means
// "not given".
struct CIE_PlotInput {
    int diagramType = 0;                 // 0 to 4, see CIE_Plot.h
    bool unfilled = false;               // no colour fill inside the locus
    int photometryAlignment = 0;         // 0 photometry text at the left, otherwise right
    bool showAllPointsMode = false;      // the window shows a series of points
    bool plotAllPoints = false;          // ... and all of them, not only the current one
    bool writePhotometry = false;        // draw the photometry string
    int locusType = 0;                   // 0 Planck, 1 + daylight, 2 switched, 3 blended, 4 none
    bool show2008Bins = false;           // ANSI C78.377-2008 quadrangles
    bool show2011Bins = false;           // ANSI C78.377-2011 quadrangles
    bool show2015Bins = false;           // ANSI C78.377-2015 quadrangles
    bool pureColorLines = false;         // join the points by lines (dominant wavelength)
    bool showWavelengthMarkers = false;  // ticks every 5 nm along the spectrum locus
    bool show100KLines = false;          // minor CCT lines every 100 K
    bool allPointsOverride = false;      // keep every point, none of them secondary
    std::vector<double> x;               // points, x (CIE 1931 or 2015 10 deg)
    std::vector<double> y;               // points, y
    std::vector<std::string> label;      // label per point (optional)
    bool labelInSymbolColor = false;     // labels take their symbol's colour
    std::string photometry;              // "\n" separated lines
    bool useComma = false;               // decimal comma in the axis labels
    std::vector<bool> gamutSelected;     // one flag per predefined gamut (optional)
    int defaultLabelPosition = 0;        // 0 no label, 1 top, 2 bottom, 3 right, 4 left
    std::vector<int> labelPosition;      // per point (optional)
    bool whiteBackground = true;         // white, otherwise black outside the locus
    bool solidGamutLines = false;        // predefined gamuts solid instead of dashed
    std::string userGamutX;              // user gamuts, values separated by "x"
    std::string userGamutY;              // user gamuts, y values
    std::vector<int> symbolType;         // 0 to 9 per point (optional)
    std::vector<FXColor> symbolColor;    // FOX colour per point (optional; argbColor converts)
    std::vector<bool> symbolVisible;     // per point (optional)
    std::vector<bool> macAdamAtPoint;    // ellipses at this point (optional)
    std::vector<bool> circleAtPoint;     // u'v' circles at this point (optional)
    int cctLabelType = 2;                // 0 none, 1 lines, 2 main labels, 3 more, 4 more zoomed
    int outOfGamutMode = 0;              // 0 normal, 1 gray, 2 dimmed, 3 background
    bool whiteText = false;              // texts in white
    int gridType = 0;                    // 0 over fill, 1 over fill when zoomed, 2 outside, 3 none
    bool drawGamutBoundary = false;      // gamut lines even while an out-of-gamut mode is on
};

// One bin box: four corners, x values then y values, in the diagram's own coordinates.
struct CIE_PlotBin {
    double x[4];
    double y[4];
};

class CIE_Plot {
  public:
    static constexpr int NUM_DIAGRAM_TYPES = 5;
    static constexpr int MAX_TABLE_ROWS = 9000;
    static constexpr int NUM_LOCUS_POINTS = Vantrel::NUM_LOCUS_POINTS + 1;  // closed
    static constexpr int NUM_BLACK_BODY_POINTS = 901;
    static constexpr int NUM_DAYLIGHT_POINTS = 339;
    static constexpr int NUM_BLENDED_POINTS = 200;
    static constexpr int MAX_CCT_LINES = 50;
    static constexpr int MAX_MARKERS = 53;
    static constexpr int MAX_GRID_LINES = 50;
    static constexpr int NUM_ELLIPSE_POINTS = 64;  // arrays hold one more: first repeated
    static constexpr int NUM_STEP_FLAGS = 11;      // MacAdam steps / circle radii 0 to 10
    // The 10 degree locus is drawn only below this index and closed to its first point.
    static constexpr int LOCUS_CUT_2015 = 286;
    static constexpr double MIN_SPAN = 0.0025;

    // Left and right locus edge per 1/10000 of the vertical coordinate, in units of 1/10000.
    struct FillTable {
        int start[MAX_TABLE_ROWS];
        int end[MAX_TABLE_ROWS];
    };

    CIE_Plot(FXTopWindow* owner, int scaleFactor);
    ~CIE_Plot();
    CIE_Plot(const CIE_Plot&) = delete;
    CIE_Plot& operator=(const CIE_Plot&) = delete;

    void plotPoints(const CIE_PlotInput& in);

    // Drawing. makeImage renders into the owned image and returns false when nothing was drawn
    // (canvas or plot below 10 pixels); drawPlot renders at the canvas size and blits.
    void drawPlot(FXCanvas* canvas);
    bool makeImage(int width, int height);
    void makeImage(FXCanvas* canvas, int width, int height);
    void blank(FXCanvas* canvas);
    void blank(FXCanvas* canvas, bool whiteBackground);
    FXImage* getImage() const { return image; }
    // A pixel of the last rendered image (read back from the display once per render).
    FXColor getPixel(int x, int y);
    // The colour fill and background as computed, before any line or text.
    FXColor getFillPixel(int x, int y) const;

    // Range and zoom. Ranges are in the diagram's own coordinates.
    void setPlotBounds(int type, bool zoom, bool smartZoom);
    void setPlotBounds(int type, bool zoom, bool smartZoom, bool allPoints);
    void define_xy_plot_range(double xMin, double xMax, double yMin, double yMax);
    void get_xy_plot_range(double* xMin, double* xMax, double* yMin, double* yMax) const;
    // True when the range is acceptable: both spans at least MIN_SPAN, minima below maxima.
    static bool checkPlotBounds(double xMin, double xMax, double yMin, double yMax);
    // Zoom to the screen box between two corners (any order); false leaves the range.
    bool mapScreenTo_xy(int x1, int y1, int x2, int y2);
    // Pan by a screen distance (dy upward positive); false leaves the range.
    bool mapScreenTo_xy_pan(int dx, int dy);
    // Each half span times factor about the centre; false when refused or past both ends.
    bool clickZoom(double factor);
    void drawZoomBox(int x1, int y1, int x2, int y2);
    void drawPanLine(int x1, int y1, int x2, int y2);
    bool isZoomed() const;

    double x_to_screen(double x) const;
    double y_to_screen(double y) const;
    void getSize(int* width, int* height) const;
    // The canvas width at which the current range, drawn to scale, fills a canvas of this
    // height to its pads.
    int widthForHeight(int height);
    void getPlotPadding(int* left, int* right, int* top, int* bottom) const;
    // Frame of the plot in pixels.
    void getPlotBoundaries(int* left, int* top, int* right, int* bottom) const;
    // Box of the photometry text in diagram coordinates.
    void getPhototmetryStrPosition(double* left, double* top, double* right) const;

    // Ellipses and circles.
    void setMacAdamsInfo(bool single, double x, double y, double userSteps,
                         const bool stepsEnabled[NUM_STEP_FLAGS], bool thick);
    void setUpVpCircleInfo(bool single, double x, double y, double userRadius,
                           const bool stepsEnabled[NUM_STEP_FLAGS], bool thick);
    // One flag per ANSI C78.376 ellipse (Vantrel::getNumANSIEllipses()), drawn at 4 steps.
    void setUpANSISEllipseInfo(const bool* enabled, bool thick);
    // An ellipse of the user's own a, b and theta (as the engine takes them) at x, y, by steps.
    void drawUserEllipse(bool show, double x, double y, double a, double b, double theta,
                         double steps);
    // Several user ellipses; n 0 switches them off.
    void drawUserEllipseArray(int n, const double* x, const double* y, const double* a,
                              const double* b, const double* theta, double steps);
    void setEllipseColor(int choice);
    void allowPlottingOfMacAdamsEllipsesOn10DegDiagrams(bool allow) { macAdamOn10Deg = allow; }

    // Copies count boxes with one filled flag each and redraws on canvas (when not null); a
    // count below 1 only hides the boxes.
    void defineBinBoxesAndPlot(FXCanvas* canvas, int count, const CIE_PlotBin* quads,
                               const bool* filled);
    void setOutlineDataPoint(bool on) { outline = on; }
    // The program's logo in the top right corner of the frame, on plots wide enough for it.
    void setLogo(bool show) { showLogo = show; }
    void changeFontSize(int points);
    int getFontSize() const;
    void changeSymbolSize(double size) { symbolSize = size < 4.0 ? 4.0 : size; }
    double getSymbolSize() const { return symbolSize; }
    int getDiagramType() const { return diagramType; }
    int getNumPoints() const { return numPoints; }
    // Point i in diagram coordinates.
    void getPoint(int i, double* x, double* y) const;
    bool isSecondaryPoint(int i) const;

    // Tick step and decimals for a span; not zoomed always 0.05 and 1 decimal.
    static void getTickMarkSpacing(bool zoomed, double span, int* decimals, double* step);
    // The locus edges of a diagram type, made once per process from the spectrum locus.
    static const FillTable& getFillTable(int type);
    // Rows of a type's table (vertical limit x 10000).
    static int getTableRows(int type);
    // Corners (x,y of CIE 1931, nominal CCT order) of the ANSI C78.377 quadrangles of an
    // edition (2008, 2011 or 2015); returns the number of quadrangles, 0 for another year.
    static int getAnsiQuadrangles(int edition, const double (**corners)[4][2], const int** nominal);
    // Fill colour (R, G, B 0 to 255) of a chromaticity x, y, as the colour fill makes it.
    void getFillColor(double x, double y, int* r, int* g, int* b) const;

    // A text the last drawing placed, with its box on the canvas (top-left and size).
    struct PlacedLabel {
        int x, y, w, h;
        std::string text;
    };
    // Every text of the last drawing: no two boxes overlap and every box lies on the canvas;
    // a label that would collide with one placed before it, or leave the canvas, is left out.
    const std::vector<PlacedLabel>& getPlacedLabels() const { return placedLabels; }

  private:
    struct Pt {
        double x, y;
    };

    // Parameters that follow the diagram type.
    void defineSomeDiagramParameters();
    void defineHorseShoe_xy();
    void defineLoci();
    void defineWavelengths();
    void defineCCTlines();
    void defineUserGamuts(const std::string& xs, const std::string& ys);
    Pt toDiagram(double x, double y) const;
    Pt toXY(double a, double b) const;

    // Drawing passes.
    void layout(int width, int height, bool* drawable);
    void setTickMarkSpacing();
    // Left and bottom pads for the current type, range and font.
    void computePads(int* left, int* bottom);
    void recordGridPositions();
    void makeColorCIE();
    bool isOutOfGamut(double x, double y) const;
    void get_XYZ_RGB(double x, double y, double* r, double* g, double* b) const;
    static void constrain_RGB(double* r, double* g, double* b);
    static void normalize_RGB(double* r, double* g, double* b);
    void drawLayers(FXDCWindow& dc);
    void drawSpectrumLocus(FXDCWindow& dc);
    void drawPureColorLines(FXDCWindow& dc);
    void drawLocusLines(FXDCWindow& dc);
    void drawCCTlines(FXDCWindow& dc);
    void drawGridLines(FXDCWindow& dc);
    void drawGamuts(FXDCWindow& dc);
    void drawSymbols(FXDCWindow& dc);
    void drawSymbol(FXDCWindow& dc, int type, int cx, int cy, double s);
    void drawLabel(FXDCWindow& dc, int i, int cx, int cy, double s);
    void drawEllipses(FXDCWindow& dc, bool macAdam);
    void drawUserEllipses(FXDCWindow& dc);
    void drawANSIEllipses(FXDCWindow& dc);
    void drawAnsiQuadrangles(FXDCWindow& dc);
    void drawBinBoxes(FXDCWindow& dc);
    void drawPhotometry(FXDCWindow& dc);
    void drawCaptions(FXDCWindow& dc);
    // Draws text with its baseline at y when its box (in font f) fits on the canvas, inside
    // bounds when given, and meets no label placed before; true when it was drawn.
    bool placeLabel(FXDCWindow& dc, int x, int y, const FXString& text, FXFont* f = nullptr,
                    const int* bounds = nullptr);
    // Boxes of the axis numbers and titles, placed first so that they always show.
    void reserveAxisLabels();
    void drawMasks(FXDCWindow& dc);
    void drawTicks(FXDCWindow& dc);
    void drawAxisTitles(FXDCWindow& dc);
    void drawWavelengthMarkers(FXDCWindow& dc);
    void drawFrame(FXDCWindow& dc);
    void drawLogo(FXDCWindow& dc);
    void drawPolyline(FXDCWindow& dc, const Pt* p, int n);
    void drawEllipseXY(FXDCWindow& dc, const double* xs, const double* ys);
    void makeOverlay();
    FXColor backgroundColor() const { return whiteBackground ? whiteColor : blackColor; }
    FXColor contrastColor() const { return whiteBackground ? blackColor : whiteColor; }
    FXColor textColor() const { return whiteText || !whiteBackground ? whiteColor : blackColor; }
    std::string tickLabel(double value) const;

    FXTopWindow* parentWindow;
    FXFont* font = nullptr;
    FXFont* boldFont = nullptr;
    FXFont* subscriptFont = nullptr;
    std::vector<FXColor> pixels;
    FXImage* image = nullptr;
    FXImage* logoImage = nullptr;  // made at the first draw that shows it
    bool showLogo = true;
    FXImage* overlayImage = nullptr;
    bool overlayReady = false;
    bool imageRestored = false;

    FXColor whiteColor, blackColor, gridColor, markerLabelColor, zoomBoxColor, markerLabelColorDark,
        ellipseColor;

    Vantrel vantrel;
    GamutClass gamut;

    int diagramType = 0;
    int lastDiagramType = -1;
    bool useComma = false;
    std::vector<bool> secondaryPoint;
    bool zoomBoxPending = false, panLinePending = false, unfilled = false;
    bool whiteBackground = true, solidGamutLines = false, diagramChanged = true;
    bool plotAllPoints = false, showAllPointsMode = false, labelInSymbolColor = false;
    bool grayOutOfGamut = false, dimOutOfGamut = false, backgroundOutOfGamut = false;
    bool whiteText = false, extended2015Locus = false, gamutColoringAllowed = true;
    bool drawGamutBoundary = false, outline = true, macAdamOn10Deg = false;
    bool writePhotometry = false, pureColorLines = false, showWavelengthMarkers = false;
    bool show100KLines = false;
    std::array<bool, GamutClass::NUM_GAMUTS> gamutSelected{};

    int overlayRect[4] = {0, 0, 0, 0};
    int leftPad = 0, rightPad = 0, topPad = 0, bottomPad = 0;
    int plotWidth = 0, plotHeight = 0, canvasWidth = 0, canvasHeight = 0;
    int gridType = 0, numPoints = 0, numMajorCCTLines = 0, numAllCCTLines = 0;
    bool show2008Bins = false, show2011Bins = false, show2015Bins = false;
    int cctLabelType = 2, lastCctLabelType = -1, locusType = 0, lastLocusType = -1;
    bool last100K = false;
    int firstMarkerNm = 440, markerStepNm = 5, numMarkers = 53;
    int lineWidth = 1, scaleFactor = 1, numGridX = 0, numGridY = 0;
    int photometryAlignment = 0;

    double symbolSize = 10.0;
    double xMin = 0, xMax = 0.8, yMin = 0, yMax = 0.9, xLimit = 0.8, yLimit = 0.9;
    int gridPixelX[MAX_GRID_LINES] = {}, gridPixelY[MAX_GRID_LINES] = {};
    double tickStep = 0.05;
    int tickDecimals = 1;
    double photometryBox[3] = {0, 0, 0};
    std::vector<PlacedLabel> placedLabels;
    std::vector<PlacedLabel> axisLabels;  // the axis numbers among them

    // Loci in diagram coordinates.
    Pt horseShoe[NUM_LOCUS_POINTS];
    Pt blackBody[NUM_BLACK_BODY_POINTS];
    int bbSwitch4000K = 0, bbSwitch5000K = 0;
    Pt daylight[NUM_DAYLIGHT_POINTS];
    int daylightStartIndex = 0;
    Pt blended[NUM_BLENDED_POINTS];
    struct CCTLine {
        int cct;
        double slope, intercept;
        Pt end1, end2;  // diagram coordinates
        bool major;
    };
    CCTLine cctLines[MAX_CCT_LINES];
    struct Marker {
        int nm;
        Pt locus, far;
        bool left;
    };
    Marker markers[MAX_MARKERS];

    // User gamuts in x,y, each closed.
    std::string lastUserGamutX, lastUserGamutY;
    std::vector<std::vector<Pt>> userGamuts;

    // Points in diagram coordinates and their options.
    std::vector<Pt> points;
    std::vector<int> symbolType, labelPosition;
    std::vector<FXColor> symbolColor;
    std::vector<bool> symbolVisible, macAdamAtPoint, circleAtPoint;
    std::vector<std::string> label;
    std::string photometry;

    struct EllipseInfo {
        bool single = false;
        double x = 0, y = 0, user = 0;
        bool steps[NUM_STEP_FLAGS] = {};
        bool thick = false;
    };
    EllipseInfo macAdamInfo, circleInfo;
    static void setEllipseInfo(EllipseInfo* info, bool single, double x, double y, double user,
                               const bool stepsEnabled[NUM_STEP_FLAGS], bool thick);
    std::vector<bool> ansiEllipseEnabled;
    bool ansiThick = false;
    bool showBinBoxes = false;
    std::vector<CIE_PlotBin> binBoxes;
    std::vector<bool> binFilled;
    struct UserEllipse {
        double x, y, a, b, theta;
    };
    bool drawUserEllipseFlag = false, drawUserEllipseArrayFlag = false;
    UserEllipse userEllipse{};
    std::vector<UserEllipse> userEllipses;
    double userEllipseSteps = 1.0, userEllipseArraySteps = 1.0;
};

#endif  // LUMIVAR_PLOTS_CIE_PLOT_H
