#include "DesignCalculation.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "ValueFormat.h"

namespace {

constexpr const char* USER_FILE_ERROR = "User file error";

DesignCalculation failure(const std::string& title, const std::string& text) {
    DesignCalculation result;
    result.messages.push_back({title, text});
    return result;
}

}  // namespace

MixSettings mixSettingsFromOptions(const ProgramSettings& settings, int analysisType) {
    MixSettings s;
    s.analysisType = analysisType;
    s.includeIR = settings.getBool("irChk");
    s.wattsInMilliwatts = settings.getInt("inputWattsUnits") == 0;
    s.useOriginalIntensities = settings.getBool("useOriginalIntensititesMenuItem");
    s.defaultSpecUnits = settings.getInt("defaultSpecUnits");
    s.limitUmolTo400_700 = settings.getBool("constrain_uMol_sW_to_400_700nm");
    s.subtractBluePeak = settings.getBool("removeBluePeakChk");
    s.ssiReference = std::clamp(settings.getInt("_referenceSpectrumForSSI"), 0, 2);
    return s;
}

FieldFormat fieldFormatFromOptions(const ProgramSettings& settings) {
    FieldFormat format;
    format.numDecimals = settings.getInt("numDecimalsFor_xyDuv_etc") == 6 ? 6 : 4;
    // Power in the chosen units (milliwatts by default).
    format.wattsFactor = settings.getInt("inputWattsUnits") == 0 ? 1000.0 : 1.0;
    format.gamutInUV = settings.getInt("gamutType") == 1;
    return format;
}

ledInputDataStruct defaultRowTexts(const ledTypeStruct& spectrum) {
    ledInputDataStruct row;
    if (spectrum.lDom > 1) row.lDom = ValueFormat::format("%.0lf", spectrum.lDom);
    if (spectrum.hasDomWL) row.binWidth = ValueFormat::format("%.1lf", spectrum.binShift);
    if (spectrum.lpw > 1e-9) row.lpw = ValueFormat::getValueAsString(spectrum.lpw);
    return row;
}

bool mixNeedsIR(const std::vector<ledInputDataStruct>& rows,
                const std::vector<ledTypeStruct>& spectra, const ProgramSettings& settings) {
    if (!settings.getBool("autoCheckIRForIRLEDs_Chk")) return false;
    for (std::size_t i = 0; i < rows.size() && i < spectra.size(); ++i)
        if (rows[i].checked && spectra[i].hasIRpast830) return true;
    return false;
}

void roundToTableText(double* spectrum, int numPoints) {
    char text[40];
    for (int i = 0; i < numPoints; ++i) {
        std::snprintf(text, sizeof text, "%.*le", 3, spectrum[i]);
        spectrum[i] = std::strtod(text, nullptr);
    }
}

DesignCalculation calculateDesign(const std::string& path, CalculateModel& model,
                                  const std::vector<ledTypeStruct>& filters) {
    ProgramSettings settings;
    const ProgramSettings::ReadResult read = settings.read(path, false);
    if (read.status != ProgramSettings::ReadStatus::OK || settings.fileVersion() <= 0)
        return failure(USER_FILE_ERROR,
                       "The file could not be read - it may be from a version that was too old");
    const DesignData design = readDesignLines(read.otherLines);
    const int type = settings.getInt("analysisType");

    DesignCalculation result;
    result.analysisType = type;
    MixSettings mix = mixSettingsFromOptions(settings, type);
    const FieldFormat format = fieldFormatFromOptions(settings);
    const std::vector<ledTypeStruct>& spectra = model.spectra();
    if (type == 0) {
        std::vector<ledInputDataStruct> rows(spectra.size());
        for (std::size_t i = 0; i < spectra.size(); ++i) {
            rows[i] = defaultRowTexts(spectra[i]);
            if (i < design.rows.size())
                rows[i] = designRowTexts(design.rows[i], spectra[i], rows[i]);
        }
        mix.includeIR = mix.includeIR || mixNeedsIR(rows, spectra, settings);
        std::vector<bool> checked(filters.size());
        for (std::size_t f = 0; f < filters.size(); ++f)
            checked[f] = f < design.filterChecks.size() && design.filterChecks[f] == 1;
        double product[Vantrel::NUM_GRID_POINTS_IR];
        filterProduct(filters, checked, product);
        result.outcome = model.calculateMix(rows, mix, product, format);
        result.ok = result.outcome.ok;
        result.messages = result.outcome.rows.messages;
        return result;
    }
    if (type == 2 || type == 6) {
        const bool blackBody = type == 2;
        double kelvin =
            settings.getInt(blackBody ? "blackBodyTemperatureK_TF" : "syntheticDaylightType_TF");
        CalcMessage message;
        if (blackBody ? checkBlackBodyTemperature(&kelvin, &message)
                      : checkDaylightTemperature(&kelvin, &message))
            return failure(message.title, message.text);
        const int n = mix.includeIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
        std::vector<double> spectrum(Vantrel::NUM_GRID_POINTS_IR, 0.0);
        if (blackBody) {
            blackBodySpectrum(kelvin, n, spectrum.data());
        } else {
            // Daylight fills the visible range of the window's table only.
            daylightSpectrum(model.calculator().firstEngine(), kelvin, n, spectrum.data());
            std::fill(spectrum.begin() + Vantrel::NUM_GRID_POINTS, spectrum.end(), 0.0);
        }
        // The window reads the spectrum back from its table.
        roundToTableText(spectrum.data(), n);
        result.outcome = model.calculateSpectrum(spectrum.data(), mix, format);
        result.ok = result.outcome.ok;
        result.messages = result.outcome.rows.messages;
        return result;
    }
    return failure("Data error",
                   ValueFormat::format("The design (analysis type %d) holds no spectrum to "
                                       "calculate: only mixes of spectra, black body and daylight "
                                       "designs can be calculated from the file.",
                                       type));
}
