// Stored spectra of the fixed rows of the LED list (far red, two IR LEDs, three whites).
#ifndef LUMIVAR_CORE_LEDCATALOGUEDATA_H
#define LUMIVAR_CORE_LEDCATALOGUEDATA_H

struct LedCatalogueRow {
    const char* name;
    bool hasIRpast830;       // more than 0.5% of the power beyond 830 nm
    double lumens;           // engine lumens of spectrum (CIE 1931 2°)
    double wattsVis;         // engine watts from 360 to 830 nm
    const double* spectrum;  // W/nm, Vantrel::NUM_GRID_POINTS_IR values from 360 nm in 2 nm
};

constexpr int NUM_LED_CATALOGUE_ROWS = 6;
// In list order: far red, IR 860 nm, IR 950 nm, white 2700 K, 4000 K, 5700 K.
extern const LedCatalogueRow LED_CATALOGUE_ROWS[NUM_LED_CATALOGUE_ROWS];

#endif  // LUMIVAR_CORE_LEDCATALOGUEDATA_H
