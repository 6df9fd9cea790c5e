// A coloured LED synthesised from up to ten Gaussian peaks on the 360 to 1050 nm grid, with its
// photometry from the engine.
#ifndef LUMIVAR_CORE_LED_H
#define LUMIVAR_CORE_LED_H

#include "Vantrel.h"

class LED : public Vantrel {
  public:
    static constexpr int MAX_PEAKS = 10;
    static constexpr int NAME_SIZE = 101;
    // sigma of a Gaussian over its full width at half maximum, 1 / (2 sqrt(2 ln 2)).
    static constexpr double SIGMA_PER_FWHM = 0.4246609;

    LED();
    virtual ~LED();

    // No peaks, a dark spectrum, no photometry and no name.
    void clear();
    // Peaks in nm (centres and full widths at half maximum) and relative heights, stored in
    // metres. More than MAX_PEAKS is refused with false; the count is then left at n with the
    // old peaks in place, deliberately without a clean-up: callers test the result.
    bool definePeak(int n, const double* centersNm, const double* fwhmNm, const double* heights);
    // Builds the spectrum as the sum of the peaks. The argument is not used: the curve depends
    // on the peaks alone.
    void defineSpectrum(double unused);
    // Full colour calculation of the spectrum: lumens and watts from 360 to 830 nm as the engine
    // gives them, watts from 360 to 1050 nm by the trapezoid rule.
    void calculateLumensWatts();

    // Copies Vantrel::NUM_GRID_POINTS_IR values.
    void getSpectrum(double* out) const;
    double getLumens() const { return lumens; }
    double getWattsVis() const { return wattsVis; }
    double getWattsVisIR() const { return wattsVisIR; }
    // Copies at most NAME_SIZE - 1 characters; null gives an empty name.
    void defineName(const char* text);
    const char* getName() const { return name; }
    bool getHasIntensityPast830nm() const { return hasIntensityPast830nm; }
    int getNumPeaks() const { return numPeaks; }

  protected:
    double peakCenter[MAX_PEAKS] = {};  // metres
    double peakFWHM[MAX_PEAKS] = {};    // metres
    double peakHeight[MAX_PEAKS] = {};
    int numPeaks = 0;
    double spectrum[NUM_GRID_POINTS_IR] = {};
    char name[NAME_SIZE] = {};
    double lumens = 0;
    double wattsVis = 0;
    double wattsVisIR = 0;
    bool hasIntensityPast830nm = false;
};

#endif  // LUMIVAR_CORE_LED_H
