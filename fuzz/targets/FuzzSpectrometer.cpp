#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "FuzzTargets.h"
#include "ProcessSpectrometerFiles.h"
#include "ReadSpectraFile.h"

namespace {

// Names whose extensions steer the readers: the CSV separators and each branch of detection.
const char* const NAMES[] = {"f.txt", "f.csv", "f.isd", "f.spdx", "f.sp", "f.dat"};
constexpr int NUM_NAMES = sizeof NAMES / sizeof NAMES[0];

// A broken promise of the readers is a fault even when nothing crashed.
void check(bool promise) {
    if (!promise) std::abort();
}

void checkValues(const std::vector<double>& nm, const std::vector<double>& values) {
    check(nm.size() == values.size() && !nm.empty());
    for (std::size_t p = 0; p < nm.size(); ++p) {
        check(std::isfinite(nm[p]) && std::isfinite(values[p]) && values[p] >= 0);
    }
}

void readAsEveryType(const std::string& bytes) {
    for (int type = 0; type <= ProcessSpectrometerFiles::UNKNOWN_TYPE; ++type) {
        ProcessSpectrometerFiles reader;
        // A short search now and then, so that the line limit's edges get their share.
        reader.setMaxNumberOfLinesToReadBeforeFindingData(bytes.size() % 7 == 0 ? 2 : 0);
        const bool ok = reader.setText(bytes, NAMES[(bytes.size() + type) % 2], type);
        const int points = reader.getNumberOfPoints(), spectra = reader.getNumOfSpectraInFile();
        check(ok == (points > 0 && spectra > 0));
        check(ok != !reader.getError().empty());
        if (!ok) continue;
        std::vector<double> nm(points), values(points);
        for (int i = 0; i < spectra; ++i) {
            check(reader.getSpectrum(nm.data(), values.data(), 1.0, i));
            checkValues(nm, values);
            reader.getHeaderStr(i);
        }
        check(!reader.getSpectrum(nm.data(), values.data(), 1.0, spectra));
    }
}

}  // namespace

// Every file type forced in turn on the same bytes, then the detection of the command line.
void fuzzSpectrometer(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    readAsEveryType(bytes);
    const SpectraFileResult result = readSpectraText(bytes, NAMES[size % NUM_NAMES]);
    check(result.ok == !result.spectra.empty());
    check(result.ok == result.error.empty());
    for (const NamedSpectrum& spectrum : result.spectra) {
        checkValues(spectrum.data.wavelengths, spectrum.data.values);
        for (std::size_t p = 1; p < spectrum.data.wavelengths.size(); ++p) {
            check(spectrum.data.wavelengths[p] > spectrum.data.wavelengths[p - 1]);
        }
    }
}
