#include "QualityPlotData.h"

#include "GetMonitorColors.h"

namespace {

// Screen colours of samples 1 to 15 of a set under the light.
void sampleColors(const Vantrel& engine, bool cqs, const double* spectrum, int (*rgb)[3]) {
    std::vector<std::vector<double>> rows(Vantrel::NUM_SAMPLES,
                                          std::vector<double>(Vantrel::NUM_GRID_POINTS, 0.0));
    std::vector<double*> rowPointers;
    for (auto& row : rows) rowPointers.push_back(row.data());
    if (cqs) {
        engine.getVSdata(rowPointers.data());
    } else {
        engine.getTCSdata(rowPointers.data());
    }
    const int n = Vantrel::NUM_SAMPLES - 1;
    std::vector<int> flat(3 * n);
    std::vector<int*> out;
    for (int k = 0; k < n; ++k) out.push_back(&flat[3 * k]);
    GetMonitorColors colors;
    colors.getColors(n, spectrum, rowPointers.data() + 1, out.data());
    for (int k = 0; k < n; ++k) {
        for (int c = 0; c < 3; ++c) rgb[k + 1][c] = flat[3 * k + c];
    }
}

void gatherTM30(const Vantrel& engine, QualityPlotData* data) {
    const int n = Vantrel::NUM_CES;
    data->jab.resize(n);
    data->rfi.resize(n);
    for (int k = 0; k < n; ++k) {
        for (int row = 0; row < 2; ++row) {
            for (int c = 0; c < 3; ++c)
                data->jab[k][3 * row + c] = engine.getTM30JabValues(k, row, c);
        }
        data->rfi[k] = engine.getTM30Rfi(k);
    }
    std::vector<int> rgb(static_cast<std::size_t>(n) * 6);
    engine.getTM30PatchColors(n, reinterpret_cast<int(*)[2][3]>(rgb.data()));
    data->patchRGB.resize(n);
    for (int k = 0; k < n; ++k) {
        for (int c = 0; c < 6; ++c) data->patchRGB[k][c] = rgb[6 * k + c];
    }
    engine.getTM30GamutAreaPolygonPoints(0, data->binTestA, data->binTestB);
    engine.getTM30GamutAreaPolygonPoints(1, data->binRefA, data->binRefB);
    engine.getTM30DistortionIconPoints(0, data->iconTestX, data->iconTestY);
    engine.getTM30DistortionIconPoints(1, data->iconRefX, data->iconRefY);
    engine.getTM30NumInHueBins(data->numInBin);
    engine.getTM30HueRGB(data->hueRGB[0], data->hueRGB[1], data->hueRGB[2]);
    data->tm30Reference.assign(Vantrel::NUM_GRID_POINTS, 0.0);
    engine.getTM30ReferenceSpectrum(data->results.cct, data->tm30Reference.data());
}

void gatherTLCI(const Vantrel& engine, const double* spectrum, QualityPlotData* data) {
    double r[2][24] = {}, g[2][24] = {}, b[2][24] = {};
    double* R[2] = {r[0], r[1]};
    double* G[2] = {g[0], g[1]};
    double* B[2] = {b[0], b[1]};
    data->tlciReference.assign(77, 0.0);
    int* sectors[12];
    for (int k = 0; k < 12; ++k) sectors[k] = data->tlciSectors[k];
    engine.getQa_TLCI_2012(spectrum, nullptr, data->results.cct, R, G, B,
                           data->tlciReference.data(), sectors, data->tlciInGamut, nullptr);
    for (int j = 0; j < 2; ++j) {
        for (int p = 0; p < 24; ++p) {
            data->tlciRGB[j][p][0] = r[j][p];
            data->tlciRGB[j][p][1] = g[j][p];
            data->tlciRGB[j][p][2] = b[j][p];
        }
    }
}

}  // namespace

bool gatherQualityPlotData(const double* spectrum, const std::string& name, QualityPlotData* data) {
    *data = QualityPlotData();
    data->name = name;
    data->spectrum.assign(spectrum, spectrum + Vantrel::NUM_GRID_POINTS);
    SpectrumCalculator calculator;
    data->results = calculator.calculate(spectrum);
    if (!data->results.hasChromaticity) return false;
    const Vantrel& engine = calculator.firstEngine();
    double L[2][Vantrel::NUM_SAMPLES], a[2][Vantrel::NUM_SAMPLES], b[2][Vantrel::NUM_SAMPLES];
    for (int set = 0; set < 2; ++set) {
        auto& lab = set == 0 ? data->labR : data->labQ;
        if (set == 0) {
            engine.returnLabRvalues(L, a, b);
        } else {
            engine.returnLabQvalues(L, a, b);
        }
        for (int row = 0; row < 2; ++row) {
            for (int k = 0; k < Vantrel::NUM_SAMPLES; ++k) {
                lab[0][row][k] = L[row][k];
                lab[1][row][k] = a[row][k];
                lab[2][row][k] = b[row][k];
            }
        }
    }
    sampleColors(engine, false, spectrum, data->rgbR);
    sampleColors(engine, true, spectrum, data->rgbQ);
    std::vector<double> reference(Vantrel::NUM_GRID_POINTS, 0.0);
    engine.getReferenceSpectrum(data->results.cct, reference.data());
    sampleColors(engine, false, reference.data(), data->rgbRref);
    sampleColors(engine, true, reference.data(), data->rgbQref);
    if (!data->results.tm30Error) gatherTM30(engine, data);
    gatherTLCI(engine, spectrum, data);
    return true;
}
