#include "ByteOrderMark.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr std::uint32_t REPLACEMENT_CHARACTER = 0xFFFD;

std::uint8_t byteAt(const std::string& bytes, std::size_t i) {
    return static_cast<std::uint8_t>(bytes[i]);
}

bool startsWith(const std::string& bytes, const char* mark, std::size_t length) {
    return bytes.size() >= length && bytes.compare(0, length, mark, length) == 0;
}

void appendUtf8(std::uint32_t c, std::string* out) {
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = REPLACEMENT_CHARACTER;
    if (c < 0x80) {
        out->push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out->push_back(static_cast<char>(0xC0 | (c >> 6)));
        out->push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        out->push_back(static_cast<char>(0xE0 | (c >> 12)));
        out->push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out->push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        out->push_back(static_cast<char>(0xF0 | (c >> 18)));
        out->push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
        out->push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out->push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

std::string decodeUtf16(const std::string& bytes, bool bigEndian) {
    std::string out;
    out.reserve(bytes.size() / 2);
    auto unitAt = [&](std::size_t i) -> std::uint32_t {
        const std::uint32_t a = byteAt(bytes, i), b = byteAt(bytes, i + 1);
        return bigEndian ? (a << 8) | b : (b << 8) | a;
    };
    const std::size_t end = bytes.size() & ~std::size_t{1};  // an odd last byte is cut short
    for (std::size_t i = 2; i < end; i += 2) {
        const std::uint32_t unit = unitAt(i);
        if (unit >= 0xD800 && unit <= 0xDBFF && i + 2 < end) {
            const std::uint32_t low = unitAt(i + 2);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                appendUtf8(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00), &out);
                i += 2;
                continue;
            }
        }
        appendUtf8(unit, &out);  // a lone surrogate becomes U+FFFD
    }
    return out;
}

std::string decodeUtf32(const std::string& bytes, bool bigEndian) {
    std::string out;
    out.reserve(bytes.size() / 4);
    for (std::size_t i = 4; i + 4 <= bytes.size(); i += 4) {
        std::uint32_t c = 0;
        for (int k = 0; k < 4; ++k) {
            const std::size_t at = bigEndian ? i + k : i + 3 - k;
            c = (c << 8) | byteAt(bytes, at);
        }
        appendUtf8(c, &out);
    }
    return out;
}

}  // namespace

TextEncoding detectByteOrderMark(const std::string& bytes) {
    if (startsWith(bytes, "\x00\x00\xFE\xFF", 4)) return TextEncoding::UTF32_BE;
    if (startsWith(bytes, "\xFF\xFE\x00\x00", 4)) return TextEncoding::UTF32_LE;
    if (startsWith(bytes, "\xFE\xFF", 2)) return TextEncoding::UTF16_BE;
    if (startsWith(bytes, "\xFF\xFE", 2)) return TextEncoding::UTF16_LE;
    if (startsWith(bytes, "\xEF\xBB\xBF", 3)) return TextEncoding::UTF8;
    return TextEncoding::BYTES;
}

std::string decodeByteOrderMark(const std::string& bytes, TextEncoding* encoding) {
    const TextEncoding found = detectByteOrderMark(bytes);
    if (encoding != nullptr) *encoding = found;
    switch (found) {
        case TextEncoding::UTF32_BE:
            return decodeUtf32(bytes, true);
        case TextEncoding::UTF32_LE:
            return decodeUtf32(bytes, false);
        case TextEncoding::UTF16_BE:
            return decodeUtf16(bytes, true);
        case TextEncoding::UTF16_LE:
            return decodeUtf16(bytes, false);
        case TextEncoding::UTF8:
            return bytes.substr(3);
        case TextEncoding::BYTES:
            break;
    }
    return bytes;
}
