#include "AddCommas.h"

#include "ValueFormat.h"

void AddCommas::useComma() {
    thousands = ',';
    decimal = '.';
}

void AddCommas::useDot() {
    thousands = '.';
    decimal = ',';
}

void AddCommas::setNumDecimalsForEFormat(int decimals) {
    numDecimalsForEFormat = decimals < 0 ? 0 : decimals;
}

std::string AddCommas::insertCommas(std::string text) const {
    int counter = 0;
    for (int index = static_cast<int>(text.size()); index >= 0; --index, ++counter) {
        if (counter % 3 == 0 && counter != 0 && index != 0) {
            text.insert(static_cast<size_t>(index), 1, thousands);
        }
    }
    return text;
}

std::string AddCommas::getStr(int value) const {
    return insertCommas(ValueFormat::format("%d", value));
}

std::string AddCommas::getStr(long value) const {
    return insertCommas(ValueFormat::format("%ld", value));
}

std::string AddCommas::getStr(unsigned long value) const {
    return insertCommas(ValueFormat::format("%lu", value));
}

std::string AddCommas::getStr(unsigned long long value) const {
    return insertCommas(ValueFormat::format("%llu", value));
}

std::string AddCommas::getStr(const std::string& text) const { return insertCommas(text); }

std::string AddCommas::getStr(double value) const {
    return insertCommas(ValueFormat::format("%.0lf", value));
}

std::string AddCommas::getStr(double value, int decimals) const {
    if (decimals < 0) decimals = 0;
    const std::string text = ValueFormat::format("%.*lf", decimals, value);
    if (decimals < 1) return insertCommas(text);
    const size_t point = text.find('.');
    const std::string fraction = point == std::string::npos ? "" : text.substr(point + 1);
    return insertCommas(ValueFormat::format("%.0lf", value)) + decimal + fraction;
}

std::string AddCommas::getStr(double value, double limit) const {
    if (limit >= 0 && value > limit) {
        return ValueFormat::format("%.*le", numDecimalsForEFormat, value);
    }
    return getStr(value);
}

std::string AddCommas::getStr(double value, int decimals, double limit) const {
    if (limit >= 0 && value > limit) {
        return ValueFormat::format("%.*le", numDecimalsForEFormat, value);
    }
    return getStr(value, decimals);
}
