#include "SpectrumFileName.h"

#include <cctype>
#include <cstdlib>

namespace {

bool isNumberChar(char c) { return std::isdigit(static_cast<unsigned char>(c)) || c == '.'; }

double numberValue(const std::string& digits) {
    // A leading "0" without a point marks the decimals: "035" is 0.35.
    if (digits.size() > 1 && digits[0] == '0' && digits.find('.') == std::string::npos)
        return std::atof(("0." + digits.substr(1)).c_str());
    return std::atof(digits.c_str());
}

// Finds the first mark preceded by a number, takes the number out of *title and puts "^" in
// place of the mark. False, with *title unchanged, when there is none.
bool takeNumberBefore(std::string* title, const std::string& mark, double* value) {
    for (std::size_t at = title->find(mark); at != std::string::npos;
         at = title->find(mark, at + 1)) {
        std::size_t start = at;
        while (start > 0 && isNumberChar((*title)[start - 1])) --start;
        const std::string digits = title->substr(start, at - start);
        if (digits.empty() || digits.find_first_of("0123456789") == std::string::npos) continue;
        *value = numberValue(digits);
        title->replace(start, at - start + mark.size(), "^");
        return true;
    }
    return false;
}

bool takeEither(std::string* title, const std::string& mark, double* value) {
    return takeNumberBefore(title, mark + "_", value) || takeNumberBefore(title, mark, value);
}

}  // namespace

double TestDrive::electricalWatts() const {
    if (hasWatts) return watts;
    if (hasVolts && hasMilliamps) return 0.001 * milliamps * volts;
    return 0.0;
}

TestDrive parseSpecFilename(const std::string& title) {
    TestDrive drive;
    drive.title = title;
    drive.hasVolts = takeEither(&drive.title, "V", &drive.volts);
    drive.hasMilliamps = takeEither(&drive.title, "mA", &drive.milliamps);
    drive.hasWatts = takeEither(&drive.title, "W", &drive.watts);
    return drive;
}
