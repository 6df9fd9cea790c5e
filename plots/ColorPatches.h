// Sheets of test-colour patches: each sample seen under the reference illuminant (left) and
// under the light (right), for the CRI ('R'), CQS ('Q') and TM-30 ('T') samples.
#ifndef LUMIVAR_PLOTS_COLORPATCHES_H
#define LUMIVAR_PLOTS_COLORPATCHES_H

#include <string>
#include <vector>

#include "Canvas.h"
#include "QualityPlotData.h"

struct ColorPatchesOptions {
    bool showNames = true;        // the sample's name under its pair
    bool showValues = true;       // dE*ab (CRI, CQS) or Rf,i (TM-30) under its pair
    bool whiteBackground = true;  // else black
    bool separationLine = false;  // a line between the two halves of a pair
    double fontSize = 12.0;       // pixels
};

// Where a pair stands: the reference half is (x, y, w / 2, h), the test half beside it.
struct ColorPatchPlace {
    double x = 0, y = 0, w = 0, h = 0;
};

// The name of sample k (from 0) of a set: "TCS01".."TCS15", "VS1".."VS15", "CES1".."CES99".
std::string colorPatchName(char mode, int k);
// Draws the sheet over the whole canvas; places (one per sample, when not null) gets the pairs.
void drawColorPatches(Canvas& canvas, char mode, const QualityPlotData& data,
                      const ColorPatchesOptions& options,
                      std::vector<ColorPatchPlace>* places = nullptr);

#endif  // LUMIVAR_PLOTS_COLORPATCHES_H
