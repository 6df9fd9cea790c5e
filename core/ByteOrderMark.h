// Text files written by spectrometer programs on Windows often start with a byte order mark and
// hold UTF-16 or UTF-32. The readers work on 8-bit text, so such files are turned into UTF-8
// first; numbers and markers are plain ASCII in every encoding, and only they matter.
#ifndef LUMIVAR_CORE_BYTEORDERMARK_H
#define LUMIVAR_CORE_BYTEORDERMARK_H

#include <string>

enum class TextEncoding {
    BYTES,     // no mark: the bytes are taken as they are
    UTF8,      // EF BB BF
    UTF16_BE,  // FE FF
    UTF16_LE,  // FF FE
    UTF32_BE,  // 00 00 FE FF
    UTF32_LE,  // FF FE 00 00
};

// The encoding that the first bytes announce. FF FE 00 00 is taken as UTF-32 rather than as
// UTF-16 starting with a NUL character, which no text file holds.
TextEncoding detectByteOrderMark(const std::string& bytes);

// The text of bytes as UTF-8, without its mark. A UTF-16 surrogate without its partner, a code
// point beyond U+10FFFF and a code unit cut short at the end become U+FFFD (or are dropped,
// for a cut unit), so a damaged file still decodes and then fails where its numbers are read.
std::string decodeByteOrderMark(const std::string& bytes, TextEncoding* encoding = nullptr);

#endif  // LUMIVAR_CORE_BYTEORDERMARK_H
