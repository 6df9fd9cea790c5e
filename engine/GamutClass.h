// GamutClass: the standard colour-space gamuts in CIE 1931 xy for drawing and testing, and the
// parser of user-entered gamuts.
//
// Built complete in the constructor and read-only after that, but for the user entry. It owns
// a Vantrel for the polygon tests, which makes it a heavy object: keep one per window.
#ifndef LUMIVAR_ENGINE_GAMUTCLASS_H
#define LUMIVAR_ENGINE_GAMUTCLASS_H

#include <memory>
#include <string>

class Vantrel;

class GamutClass {
  public:
    static constexpr int NUM_GAMUTS = 12;
    static constexpr int USER_GAMUT = 11;
    static constexpr int MAX_POINTS = 35;
    static constexpr int MAX_DASHES = 8;
    static constexpr int MIN_USER_POINTS = 3;
    static constexpr int MAX_USER_POINTS = 50;
    static constexpr int DEFAULT_USER_POINTS = 40;

    GamutClass();
    ~GamutClass();
    GamutClass(const GamutClass&) = delete;
    GamutClass& operator=(const GamutClass&) = delete;

    // 11 standard gamuts; with the user gamut 12.
    int getNumberOfStandardGamuts() const { return NUM_GAMUTS - 1; }
    int getNumPredefinedGamuts() const { return NUM_GAMUTS; }

    // An index outside 0 to 11 reads gamut 0 in every call below.
    const char* getGamutName(int gamut) const;
    int getNumPointsInGamut(int gamut) const;
    // False (x, y untouched) when point is outside the gamut's point list.
    bool getGamutPoint(int gamut, int point, double* x, double* y) const;
    // Writes getNumPointsInGamut(gamut) points.
    void getGamutPoints(int gamut, double* x, double* y) const;
    int getNumDahsesInGamutLine(int gamut) const;
    // Writes getNumDahsesInGamutLine(gamut) dash lengths (pixels).
    void getGamutLineStyleParameters(int gamut, char* dashes) const;
    void getGamutCentroid(int gamut, double* x, double* y) const;

    // Inside the stored gamut: the bounding box first, then a fan about the stored centroid.
    bool isPointInStandardGamut(int gamut, double x, double y) const;
    // Any polygon; fewer than 3 points count as inside.
    bool isPointInGamut(int n, const double* xs, const double* ys, double x, double y) const;

    // Parses two lists of numbers separated by getUserGamutSeperationSym() ("," taken as the
    // decimal point). A point counts when both values lie strictly between 5e-05 and 1; a run
    // of valid points is one gamut, a run of one point is dropped. False when the lists hold
    // different numbers of separators.
    //   count        number of gamuts found
    //   pointCounts  points per gamut (may be null)
    //   firstPoints  index in the entered lists of each gamut's first point (may be null), so
    //                that a list can point back at what the user typed
    //   xOut, yOut   each gamut's values joined with the separator (may be null)
    // Arrays need room for (separators + 2) / 2 gamuts.
    bool getNumbersForUserGamuts(const std::string& xs, const std::string& ys, int* count,
                                 int* pointCounts, int* firstPoints, std::string* xOut,
                                 std::string* yOut) const;
    static const char* getUserGamutSeperationSym() { return "x"; }

    // 3 to 50 points, anything else sets 40 (the starting value).
    void setMaxNumPtsInUserGamut(int n);
    int getMaxNumPtsInUserGamut() const { return maxUserPoints; }

  private:
    struct Gamut {
        std::string name;
        int numPoints = 0;
        double x[MAX_POINTS] = {};
        double y[MAX_POINTS] = {};
        int numDashes = 0;
        char dashes[MAX_DASHES] = {};
        double cx = 0, cy = 0;
        double xMin = 0, xMax = 0, yMin = 0, yMax = 0;
    };

    void define(int index, const char* name, int n, const double* xy, int numDashes,
                const char* dashes);
    const Gamut& at(int gamut) const;

    Gamut gamuts[NUM_GAMUTS];
    std::unique_ptr<Vantrel> vantrel;
    int maxUserPoints = DEFAULT_USER_POINTS;
};

#endif  // LUMIVAR_ENGINE_GAMUTCLASS_H
