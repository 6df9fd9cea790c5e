#include <sstream>
#include <string>

#include "FuzzTargets.h"
#include "ProgramSettings.h"
#include "UserDesign.h"

// Any bytes must read without a crash or a hang, and what was read, the design's rows with
// it, must write again.
void fuzzSettings(const std::uint8_t* data, std::size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    ProgramSettings settings;
    const ProgramSettings::ReadResult read = settings.read(in, (size & 1) != 0);
    const DesignData design = readDesignLines(read.otherLines);
    // Writing thousands of rows back only slows the search; the reading is what is under test.
    if (design.rows.size() > 600 || design.colorChecks.size() + design.filterChecks.size() > 600)
        return;
    settings.toText(true, designLines(design));
    ledTypeStruct spectrum{};
    spectrum.hasDomWL = 1;
    spectrum.lDom = 530;
    for (const DesignRow& row : design.rows) designRowTexts(row, spectrum, {});
}
