// Spectrometer and column files: the line reader, byte order marks, each import format against
// the two-column text of the same spectrum, units, the search limit, several spectra per file,
// and bad input of every kind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "ByteOrderMark.h"
#include "GetLine.h"
#include "ProcessSpectrometerFiles.h"
#include "ReadSpectraFile.h"

namespace {

using ::testing::HasSubstr;
using PSF = ProcessSpectrometerFiles;

const std::string DATA_DIR = std::string(LUMIVAR_TEST_DATA_DIR) + "/spectrometer/";

SpectrumData reference() {
    const SpectraFileResult r = readSpectraFile(DATA_DIR + "planck4000.txt");
    EXPECT_TRUE(r.ok) << r.error;
    return r.ok ? r.spectra.at(0).data : SpectrumData();
}

// --- GetLine -------------------------------------------------------------------------------

TEST(GetLine, EndsLinesAtLfCrOrCrLfAndSkipsEmptyLinesOnRequest) {
    struct Case {
        std::string text;
        bool skipEmpty;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        {"a\nbc\n", false, {"a", "bc"}},
        {"a\r\nbc", false, {"a", "bc"}},  // no end after the last line
        {"a\rbc\r", false, {"a", "bc"}},  // old Mac files
        {"a\r\r\nb", false, {"a", "", "b"}},
        {"a\n\n\r\nb\n", false, {"a", "", "", "b"}},
        {"a\n\n\r\nb\n", true, {"a", "b"}},
        {"\n\n", true, {}},
        {"", false, {}},
        {std::string("x\0y\nz", 5), false, {std::string("x\0y", 3), "z"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        std::vector<std::string> lines;
        long position = 0;
        std::string line;
        long length;
        while ((length = GetLine::getLine(c.text.data(), static_cast<long>(c.text.size()),
                                          &position, &line, c.skipEmpty)) >= 0) {
            EXPECT_EQ(length, static_cast<long>(line.size()));
            lines.push_back(line);
            ASSERT_LE(lines.size(), 10u) << "no progress";
        }
        EXPECT_EQ(lines, c.lines);
        EXPECT_EQ(position, static_cast<long>(c.text.size()));
        EXPECT_EQ(GetLine::getLine(c.text.data(), static_cast<long>(c.text.size()), &position,
                                   &line, c.skipEmpty),
                  -1);
    }
}

// --- Byte order marks ----------------------------------------------------------------------

std::string encode(const std::u32string& text, TextEncoding encoding) {
    std::string out;
    auto put = [&](std::uint32_t unit, int bytes, bool bigEndian) {
        for (int k = 0; k < bytes; ++k) {
            const int shift = 8 * (bigEndian ? bytes - 1 - k : k);
            out.push_back(static_cast<char>((unit >> shift) & 0xFF));
        }
    };
    const bool big = encoding == TextEncoding::UTF16_BE || encoding == TextEncoding::UTF32_BE;
    const int width =
        encoding == TextEncoding::UTF16_BE || encoding == TextEncoding::UTF16_LE ? 2 : 4;
    put(0xFEFF, width, big);
    for (char32_t c : text) {
        if (width == 2 && c >= 0x10000) {
            put(0xD800 + ((c - 0x10000) >> 10), 2, big);
            put(0xDC00 + ((c - 0x10000) & 0x3FF), 2, big);
        } else {
            put(c, width, big);
        }
    }
    return out;
}

TEST(ByteOrderMark, DecodesUtf16AndUtf32OfEitherOrderToUtf8) {
    const std::u32string text = U"400\t1,5 \u00B5W/nm \u20AC \U0001F600\r\n";
    const std::string utf8 = u8"400\t1,5 \u00B5W/nm \u20AC \U0001F600\r\n";
    for (TextEncoding e : {TextEncoding::UTF16_LE, TextEncoding::UTF16_BE, TextEncoding::UTF32_LE,
                           TextEncoding::UTF32_BE}) {
        TextEncoding found = TextEncoding::BYTES;
        EXPECT_EQ(decodeByteOrderMark(encode(text, e), &found), utf8);
        EXPECT_EQ(found, e);
    }
    EXPECT_EQ(decodeByteOrderMark("\xEF\xBB\xBF"
                                  "400 1"),
              "400 1");
    EXPECT_EQ(decodeByteOrderMark("400 1"), "400 1");
}

TEST(ByteOrderMark, DamagedUnitsBecomeReplacementCharactersNeverACrash) {
    const std::string replacement = "\xEF\xBF\xBD";
    const std::pair<std::string, std::string> cases[] = {
        {std::string("\xFF\xFE"
                     "1\0\x00\xD8"
                     "2\0",
                     8),
         "1" + replacement + "2"},  // lone high
        {std::string("\xFE\xFF\0"
                     "1\xDC\x00",
                     6),
         "1" + replacement},  // lone low
        {std::string("\xFF\xFE"
                     "1\0"
                     "2",
                     5),
         "1"},  // odd byte cut
        {std::string("\0\0\xFE\xFF\0\x11\0\0\0\0\0"
                     "7",
                     12),
         replacement + "7"},  // > U+10FFFF
        {std::string("\xFF\xFE\0\0"
                     "5\0\0\0"
                     "66",
                     10),
         "5"},  // unit cut short
        {std::string("\xFF\xFE", 2), ""},
    };
    for (const auto& [bytes, text] : cases) EXPECT_EQ(decodeByteOrderMark(bytes), text);
}

// --- Every format of one spectrum ----------------------------------------------------------

TEST(ProcessSpectrometerFiles, EveryFormatOfOneSpectrumReadsAsTheTwoColumnText) {
    const SpectrumData expected = reference();
    ASSERT_EQ(expected.wavelengths.size(), 95u);  // 360 to 830 nm in 5 nm
    const std::pair<const char*, int> files[] = {
        {"planck4000_utf16le.txt", PSF::TWO_COLUMNS_NM_FIRST},
        {"planck4000_utf16be.txt", PSF::TWO_COLUMNS_NM_FIRST},
        {"planck4000_semicolon.csv", PSF::TWO_COLUMNS_NM_FIRST},
        {"planck4000_intensity_first.dat", PSF::TWO_COLUMNS_NM_LAST},
        {"planck4000_spectrasuite.txt", PSF::SPECTRASUITE},
        {"planck4000.spdx", PSF::SPDX},
        {"planck4000.sp", PSF::SP},
        {"planck4000_specwin.isd", PSF::SPECWIN_ISD},
        {"planck4000_mole.isd", PSF::MOLE_ISD},
    };
    for (const auto& [file, type] : files) {
        SCOPED_TRACE(file);
        const SpectraFileResult r = readSpectraFile(DATA_DIR + file);
        ASSERT_TRUE(r.ok) << r.error << " (line " << r.errorLine << ")";
        EXPECT_EQ(r.fileType, type);
        ASSERT_EQ(r.spectra.size(), 1u);
        EXPECT_EQ(r.spectra[0].name, fileTitle(file));
        EXPECT_EQ(r.spectra[0].data.wavelengths, expected.wavelengths);
        EXPECT_EQ(r.spectra[0].data.values, expected.values);  // the very same doubles
        EXPECT_EQ(r.firstNegativeLine, 0);
    }
}

TEST(ProcessSpectrometerFiles, SpecWinUnitsScaleToWattsPerNanometre) {
    const SpectrumData watts = reference();
    const SpectraFileResult milli = readSpectraFile(DATA_DIR + "planck4000_specwin_mw.isd");
    ASSERT_TRUE(milli.ok) << milli.error;
    const std::vector<double>& values = milli.spectra.at(0).data.values;
    ASSERT_EQ(values.size(), watts.values.size());
    // The file holds 1000 x the W/nm figures to 6 digits: equal to 5e-6 relative.
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_NEAR(values[i], watts.values[i], 5e-6 * watts.values[i]) << i;
    }
    const std::pair<const char*, double> units[] = {
        {"Y-Unit=W/nm", 1.0},      {"Y-Unit = mW/nm", 1e-3},      {"y-unit=uW/nm", 1e-6},
        {"Y-Unit=\xB5W/nm", 1e-6}, {"Y-Unit=\xC2\xB5W/nm", 1e-6}, {"Y-Unit=counts", 1.0},
    };
    for (const auto& [unit, factor] : units) {
        SCOPED_TRACE(unit);
        const std::string text = std::string("[Head]\n") + unit + "\n[Data]\nData\n400 2\n500 4\n";
        PSF specWin, mole;
        ASSERT_TRUE(specWin.setText(text, "a.isd", PSF::SPECWIN_ISD)) << specWin.getError();
        EXPECT_EQ(specWin.getSpecWinUnitsConversionFactor(), factor);
        double nm[2], w[2];
        ASSERT_TRUE(specWin.getSpectrum(nm, w, specWin.getSpecWinUnitsConversionFactor(), 0));
        EXPECT_EQ(w[1], 4 * factor);
        ASSERT_TRUE(mole.setText(text, "a.isd", PSF::MOLE_ISD));
        EXPECT_EQ(mole.getSpecWinUnitsConversionFactor(), 1.0) << "Mole files are in W/nm";
    }
}

TEST(ProcessSpectrometerFiles, DetectsTheFormatByExtensionThenContent) {
    const struct {
        const char* name;
        const char* text;
        int type;
    } cases[] = {
        {"a.ISD", "[x]\nY-Unit=mW/nm\n[Data]\nData\n400 1\n", PSF::SPECWIN_ISD},
        {"a.isd", "[x]\n[Data]\nData\n400 1\n", PSF::MOLE_ISD},
        {"a.spdx", "<x/>", PSF::SPDX},
        {"a.SP", "SPECT", PSF::SP},
        {"a.txt", "head\n >>>>>Begin  Processed Spectral Data<<<<<\n", PSF::SPECTRASUITE},
        {"a.txt", "400 1\n500 2\n", PSF::TWO_COLUMNS_NM_FIRST},
        {"a.dat", ">>>>>Begin Processed\n", PSF::TWO_COLUMNS_NM_FIRST},  // only ".txt"
        {"dir.sp/a", "400 1", PSF::TWO_COLUMNS_NM_FIRST},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(detectSpectraFileType(c.text, c.name), c.type) << c.name << ": " << c.text;
    }
    EXPECT_EQ(PSF::fileTypeFromName("x.Isd", true), PSF::MOLE_ISD);
    EXPECT_EQ(PSF::fileTypeFromName("x.txt", false), PSF::SPECTRASUITE);
    EXPECT_EQ(PSF::fileTypeFromName("x.csv", false), PSF::UNKNOWN_TYPE);
}

// --- Where the data starts and ends, and how a row is read ---------------------------------

struct RowsCase {
    const char* name;
    std::string text;
    int type;
    std::vector<double> nm, values;
    int firstDataLine;
    std::string header;
};

TEST(ProcessSpectrometerFiles, TakesExactlyTheRowsBetweenStartAndEnd) {
    const RowsCase cases[] = {
        {"a.txt",
         "x\n>>>>>Begin Processed\n400 1\n500 2\n>>>>>End Processed\n600 3\n",
         PSF::SPECTRASUITE,
         {400, 500},
         {1, 2},
         3,
         ""},
        {"a.txt",
         "x\n>>>>>Begin Processed\n400 1\n500 2\n\n>>>>>End Processed\n",
         PSF::SPECTRASUITE,
         {400, 500},
         {1, 2},
         3,
         ""},  // a blank line ends the data
        {"a.isd",
         "[Data]\nData:\n400 1\n500 2\n \t\n[Results]\n",
         PSF::MOLE_ISD,
         {400, 500},
         {1, 2},
         3,
         ""},
        {"a.spdx",
         "<a>\n<SpectralData wavelength=\"400\">1</SpectralData>\n"
         " <spectraldata  wavelength=\"500.5\"> 2,5 </spectraldata>\n</SpectralDistribution>\n",
         PSF::SPDX,
         {400, 500.5},
         {1, 2.5},
         2,
         ""},
        {"a.dat",
         "nm W\n400 1\n500 2\n\n600 3\n",
         PSF::TWO_COLUMNS_NM_FIRST,
         {400, 500},
         {1, 2},
         2,
         "nm W"},
        {"a.dat", "400 1\n500 2\n1\n600 3\n", PSF::TWO_COLUMNS_NM_FIRST, {400, 500}, {1, 2}, 1, ""},
        {"a.dat",
         "# lamp\n\nnm\tW\n\n4e2\t+1.5E-3\n500\t2\n",
         PSF::TWO_COLUMNS_NM_FIRST,
         {400, 500},
         {1.5e-3, 2},
         5,
         "nm\tW"},
        {"a.dat", "1 400\n2 500\n", PSF::TWO_COLUMNS_NM_LAST, {400, 500}, {1, 2}, 1, ""},
        {"a.dat",
         "400\t1,5\r\n500  \t 2,25\r\n",
         PSF::TWO_COLUMNS_NM_FIRST,
         {400, 500},
         {1.5, 2.25},
         1,
         ""},  // "," is a decimal comma outside ".csv"
        {"a.dat", "400;1,5\n500;2\n", PSF::TWO_COLUMNS_NM_FIRST, {400, 500}, {1.5, 2}, 1, ""},
        {"a.csv",
         "nm;W\n400;1,5\n500 ; 2,25\n",
         PSF::TWO_COLUMNS_NM_FIRST,
         {400, 500},
         {1.5, 2.25},
         2,
         "nm;W"},
        {"a.CSV", "400,1.5\n500, 2\n", PSF::TWO_COLUMNS_NM_FIRST, {400, 500}, {1.5, 2}, 1, ""},
    };
    for (const RowsCase& c : cases) {
        SCOPED_TRACE(c.text);
        PSF reader;
        ASSERT_TRUE(reader.setText(c.text, c.name, c.type))
            << reader.getError() << " (line " << reader.getErrorLine() << ")";
        const int n = reader.getNumberOfPoints();
        ASSERT_EQ(n, static_cast<int>(c.nm.size()));
        std::vector<double> nm(n), values(n);
        ASSERT_TRUE(reader.getSpectrum(nm.data(), values.data(), 1.0, 0));
        EXPECT_EQ(nm, c.nm);
        EXPECT_EQ(values, c.values);
        EXPECT_EQ(reader.getFirstDataLine(), c.firstDataLine);
        EXPECT_EQ(reader.getHeaderStr(), c.header);
    }
}

TEST(ProcessSpectrometerFiles, HeadersAreTextLinesAndRowsAreNumbers) {
    const std::pair<const char*, bool> lines[] = {
        {"400\t1.5", false}, {"400;1,5", false}, {"-1 2", false},      {"4e2 1.5E-3", false},
        {"+400 1", false},   {"nm\tW/nm", true}, {"400 1 x", true},    {"---", true},
        {"", true},          {"400 \xB5", true}, {"Wavelength", true},
    };
    for (const auto& [line, header] : lines) {
        EXPECT_EQ(PSF::isDataLineAHeader(line), header) << line;
    }
    EXPECT_TRUE(PSF::isDataLineAHeader(std::string("400\0 1", 6)));
}

// --- The search limit ----------------------------------------------------------------------

std::string lines(int count, const char* text) {
    std::string out;
    for (int i = 0; i < count; ++i) out += text;
    return out;
}

TEST(ProcessSpectrometerFiles, LooksAtMost500LinesBeforeTheData) {
    const std::string rows = "400 1\n500 2\n\n>>>>>End Processed\n";
    const struct {
        std::string text;
        int type;
        int limit;
        bool ok;
    } cases[] = {
        {lines(499, "header\n") + ">>>>>Begin Processed\n" + rows, PSF::SPECTRASUITE, 0, true},
        {lines(500, "header\n") + ">>>>>Begin Processed\n" + rows, PSF::SPECTRASUITE, 0, false},
        {lines(500, "header\n") + rows, PSF::TWO_COLUMNS_NM_FIRST, 0, true},
        {lines(501, "header\n") + rows, PSF::TWO_COLUMNS_NM_FIRST, -5, false},
        {lines(500, "\n") + rows, PSF::TWO_COLUMNS_NM_FIRST, 0, true},
        {lines(501, "\n") + rows, PSF::TWO_COLUMNS_NM_FIRST, 0, false},
        {lines(498, "x\n") + "[Data]\nData\n" + rows, PSF::SPECWIN_ISD, 0, true},
        {lines(499, "x\n") + "[Data]\nData\n" + rows, PSF::SPECWIN_ISD, 0, false},
        {"a\nb\n" + rows, PSF::TWO_COLUMNS_NM_FIRST, 2, true},
        {"a\nb\nc\n" + rows, PSF::TWO_COLUMNS_NM_FIRST, 2, false},
    };
    for (const auto& c : cases) {
        PSF reader;
        reader.setMaxNumberOfLinesToReadBeforeFindingData(c.limit);
        EXPECT_EQ(reader.setText(c.text, "a.txt", c.type), c.ok)
            << "type " << c.type << ", " << c.text.size() << " bytes: " << reader.getError();
        if (!c.ok) {
            EXPECT_THAT(reader.getError(), HasSubstr("within the first"));
        }
    }
}

// --- Several spectra in one file ------------------------------------------------------------

TEST(ProcessSpectrometerFiles, EachExtraColumnOrSetIsASpectrumWithItsName) {
    const SpectrumData one = reference();
    const struct {
        const char* file;
        std::vector<std::string> names;
    } cases[] = {
        {"planck4000_columns.txt", {"Lamp A", "Lamp A x2"}},
        {"planck4000_columns.csv", {"#1", "#2"}},  // no header
        {"planck4000_two_sets.sp", {"planck4000_two_sets (#1)", "planck4000_two_sets (#2)"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const SpectraFileResult r = readSpectraFile(DATA_DIR + c.file);
        ASSERT_TRUE(r.ok) << r.error;
        ASSERT_EQ(r.spectra.size(), 2u);
        EXPECT_EQ(r.spectra[0].name, c.names[0]);
        EXPECT_EQ(r.spectra[1].name, c.names[1]);
        EXPECT_EQ(r.spectra[0].data.values, one.values);
        for (const NamedSpectrum& s : r.spectra) EXPECT_EQ(s.data.wavelengths, one.wavelengths);
        for (std::size_t i = 0; i < one.values.size(); ++i) {
            // The second spectrum is the first at twice the power, written to 6 digits.
            EXPECT_NEAR(r.spectra[1].data.values[i], 2 * one.values[i], 1e-5 * one.values[i]);
        }
    }
}

TEST(ProcessSpectrometerFiles, ColumnTitlesComeFromTabsOrCsvSeparators) {
    const struct {
        const char* name;
        const char* text;
        int type;
        std::vector<std::string> titles;
    } cases[] = {
        {"a.txt", "nm\tA one\t B \n400\t1\t2\n", PSF::TWO_COLUMNS_NM_FIRST, {"A one", "B"}},
        {"a.txt", "A\tB\n400\t1\t2\n", PSF::TWO_COLUMNS_NM_FIRST, {"A", "B"}},
        {"a.txt", "nm A B\n400 1 2\n", PSF::TWO_COLUMNS_NM_FIRST, {"", ""}},  // blanks: no titles
        {"a.csv", "nm;\"A\";B\n400;1;2\n", PSF::TWO_COLUMNS_NM_FIRST, {"A", "B"}},
        {"a.csv", "A,B,nm\n1,2,400\n", PSF::TWO_COLUMNS_NM_LAST, {"A", "B"}},
        {"a.txt", "nm\tA\tB\tC\n400\t1\t2\n", PSF::TWO_COLUMNS_NM_FIRST, {"", ""}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        PSF reader;
        ASSERT_TRUE(reader.setText(c.text, c.name, c.type)) << reader.getError();
        ASSERT_EQ(reader.getNumOfSpectraInFile(), 2);
        EXPECT_EQ(reader.getHeaderStr(0), c.titles[0]);
        EXPECT_EQ(reader.getHeaderStr(1), c.titles[1]);
        EXPECT_EQ(reader.getHeaderStr(2), "");
        double nm[1], w[1];
        ASSERT_TRUE(reader.getSpectrum(nm, w, 1.0, 1));
        EXPECT_EQ(nm[0], 400);
        EXPECT_EQ(w[0], 2);
        EXPECT_FALSE(reader.getSpectrum(nm, w, 1.0, 2));
        EXPECT_FALSE(reader.getSpectrum(nm, w, 1.0, -1));
    }
}

TEST(ProcessSpectrometerFiles, NegativeValuesReadAsZeroAfterTheUnitAndAreReported) {
    PSF reader;
    ASSERT_TRUE(reader.setText("nm a b\n400 1 -2\n500 -0 3\n600 -1e-300 4\n", "a.dat",
                               PSF::TWO_COLUMNS_NM_FIRST));
    EXPECT_EQ(reader.getFirstNegativeLine(), 2);
    double nm[3], w[3];
    ASSERT_TRUE(reader.getSpectrum(nm, w, 1e-3, 0));
    EXPECT_EQ(std::vector<double>(w, w + 3), std::vector<double>({1e-3, 0, 0}));
    EXPECT_FALSE(std::signbit(w[1]));
    ASSERT_TRUE(reader.getSpectrum(nm, w, 2.0, 1));
    EXPECT_EQ(std::vector<double>(w, w + 3), std::vector<double>({0, 6, 8}));
}

// --- Bad input -------------------------------------------------------------------------------

std::string randomBytes(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    return bytes;
}

const std::string SP_HEAD = "SPECT\nSPECTRAL_BANDS \"3\"\nNUMBER_OF_SETS 2\n";

TEST(ProcessSpectrometerFiles, RefusesBadInputWithItsLineAndReason) {
    const std::string longLine = "400 " + std::string(10000, '1') + "\n";
    const struct {
        std::string text;
        int type;
        const char* message;
        int line;
    } cases[] = {
        {"", PSF::TWO_COLUMNS_NM_FIRST, "file too short: 0 bytes", 0},
        {"1 2", PSF::SPECTRASUITE, "file too short: 3 bytes", 0},
        {"400 1\n500 2\n", PSF::UNKNOWN_TYPE, "file format not known", 0},
        {"400 1\n" + randomBytes(4000, 1), PSF::TWO_COLUMNS_NM_FIRST, "", 2},
        {std::string("400 1\n500\0 2\n", 12), PSF::TWO_COLUMNS_NM_FIRST, "NUL byte", 2},
        {">>>>>Begin Processed\n400 1\n500 2\n", PSF::SPECTRASUITE,
         "no \">>>>>End Processed\" line", 0},
        {"<SpectralData wavelength=\"400\">1</SpectralData>\n", PSF::SPDX,
         "no \"</SpectralDistribution\" line", 0},
        {"<SpectralData wavelength=\"400\">1</SpectralData>\n<x>2</x>\n</SpectralDistribution>",
         PSF::SPDX, "not a row <SpectralData", 2},
        {"<SpectralData wavelength=\"4OO\">1</SpectralData>\n</SpectralDistribution>", PSF::SPDX,
         "wavelength is not a number: \"4OO\"", 1},
        {"[Data]\n400 1\n", PSF::SPECWIN_ISD, "no line starting \"Data\" after \"[Data]\"", 0},
        {"Data\n400 1\n", PSF::MOLE_ISD, "no \"[Data]\" line", 0},
        {"[Data]\nData\n400 1\n500 2\n[Results]\n", PSF::MOLE_ISD, "only one column", 5},
        {"nm\n\n", PSF::TWO_COLUMNS_NM_FIRST, "no line of numbers", 0},
        {"400 1 2\n500 1\n", PSF::TWO_COLUMNS_NM_FIRST, "2 columns; the first data row has 3", 2},
        {"400\n500\n", PSF::TWO_COLUMNS_NM_FIRST, "only one column", 1},
        {">>>>>Begin Processed\n400 1 2\n", PSF::SPECTRASUITE, "3 columns; a row needs exactly", 2},
        {"400 1\n500 1e999\n", PSF::TWO_COLUMNS_NM_FIRST, "value is not a finite number", 2},
        {"400 1 2\n500 1 x\n", PSF::TWO_COLUMNS_NM_FIRST, "value of column 3 is not a number", 2},
        {"400 1\n" + longLine, PSF::TWO_COLUMNS_NM_FIRST, "line longer than 8192 characters", 2},
        {SP_HEAD + "BEGIN_DATA_FORMAT\nSPEC_400 SPEC_500\nBEGIN_DATA\n1 2\n3 4\n", PSF::SP,
         "SPECTRAL_BANDS is 3 but BEGIN_DATA_FORMAT has 2 SPEC_ fields", 5},
        {SP_HEAD + "BEGIN_DATA_FORMAT\nSPEC_400 SPEC_500 SPEC_600\nBEGIN_DATA\n1 2 3\nEND_DATA\n",
         PSF::SP, "NUMBER_OF_SETS is 2 but the data has 1 rows", 0},
        {SP_HEAD +
             "BEGIN_DATA_FORMAT\nSPEC_400 SPEC_500 SPEC_600\nBEGIN_DATA\n1 2 3\n1 2 3\n4 5 6\n",
         PSF::SP, "more rows than NUMBER_OF_SETS (2)", 9},
        {SP_HEAD + "BEGIN_DATA_FORMAT\nSPEC_400 SPEC_500 SPEC_600\nBEGIN_DATA\n1 2 3\n1 2\n",
         PSF::SP, "2 fields; BEGIN_DATA_FORMAT has 3", 8},
        {"SPECTRAL_BANDS x\nBEGIN_DATA\n", PSF::SP, "SPECTRAL_BANDS is not a count", 1},
        {"SPECTRAL_BANDS 3\nBEGIN_DATA\n", PSF::SP, "no NUMBER_OF_SETS count", 0},
        {"SPECTRAL_BANDS 3\nNUMBER_OF_SETS 1\n", PSF::SP, "no BEGIN_DATA line", 0},
        {"SPECTRAL_BANDS 1\nNUMBER_OF_SETS 4000001\nBEGIN_DATA_FORMAT\nSPEC_1\nBEGIN_DATA\n",
         PSF::SP, "more than 4000000 values", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.substr(0, 80));
        PSF reader;
        EXPECT_FALSE(reader.setText(c.text, "a.txt", c.type));
        EXPECT_THAT(reader.getError(), HasSubstr(c.message));
        EXPECT_FALSE(reader.getError().empty());
        EXPECT_EQ(reader.getErrorLine(), c.line) << reader.getError();
        EXPECT_EQ(reader.getNumberOfPoints(), 0);
        EXPECT_EQ(reader.getNumOfSpectraInFile(), 0);
        double nm[1], w[1];
        EXPECT_FALSE(reader.getSpectrum(nm, w, 1.0, 0));
    }
}

TEST(ReadSpectraFile, RefusesWavelengthsThatDoNotIncreaseAndFilesThatCannotBeRead) {
    const struct {
        std::string text;
        const char* name;
        const char* message;
        int line;
    } cases[] = {
        {">>>>>Begin Processed\n400 1\n500 2\n450 3\n>>>>>End Processed\n", "a.txt",
         "wavelengths must increase: 450 follows 500", 4},
        {"400 1 2\n500 1 2\n500 2 2\n", "a.dat", "wavelength 500 repeats", 3},
        {"nm W\n400 1\n500 x\n", "a.dat", "value is not a number: \"x\"", 3},  // strict reader
        {"", "a.dat", "You must enter spectral data.", 0},
        {"\xFF\xFE", "a.spdx", "file too short: 2 bytes", 0},
    };
    for (const auto& c : cases) {
        const SpectraFileResult r = readSpectraText(c.text, c.name);
        EXPECT_FALSE(r.ok) << c.text;
        EXPECT_TRUE(r.spectra.empty());
        EXPECT_THAT(r.error, HasSubstr(c.message));
        EXPECT_EQ(r.errorLine, c.line) << r.error;
    }
    EXPECT_THAT(readSpectraFile(DATA_DIR + "none.sp").error, HasSubstr("cannot open file"));
    EXPECT_EQ(readSpectraFile(DATA_DIR).error, "cannot read file: is a directory");
}

TEST(ReadSpectraFile, StopsAt64MegabytesAtOnce) {
    char path[] = "/tmp/lumivar-big-XXXXXX";
    const int fd = mkstemp(path);
    ASSERT_GE(fd, 0);
    close(fd);
    std::filesystem::resize_file(path, std::uintmax_t{100} << 20);  // 100 MB of NUL, sparse
    const auto start = std::chrono::steady_clock::now();
    const SpectraFileResult r = readSpectraFile(path);
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::filesystem::remove(path);
    EXPECT_EQ(r.error, "file larger than 64 MB");
    EXPECT_LT(seconds, 5.0);  // reads 64 MB at most, then gives up
}

TEST(ReadSpectraFile, ReadsIntensitiesFirstOnlyWhenTheFirstColumnIsNoWavelengths) {
    const struct {
        const char* text;
        int type;
        std::vector<double> nm;
    } cases[] = {
        {"0.5 400\n0.7 500\n0.6 600\n", PSF::TWO_COLUMNS_NM_LAST, {400, 500, 600}},
        {"1 400 0.5\n3 500 0.7\n2 600 0.6\n", PSF::TWO_COLUMNS_NM_FIRST, {1, 3, 2}},
        {"200 400\n300 500\n400 600\n", PSF::TWO_COLUMNS_NM_FIRST, {200, 300, 400}},  // ambiguous
        {"400 0.5\n500 0.7\n600 0.6\n", PSF::TWO_COLUMNS_NM_FIRST, {400, 500, 600}},
    };
    for (const auto& c : cases) {
        const SpectraFileResult r = readSpectraText(c.text, "a.dat");
        EXPECT_EQ(r.fileType, c.type) << c.text;
        if (c.type == PSF::TWO_COLUMNS_NM_LAST) {
            ASSERT_TRUE(r.ok) << r.error;
            EXPECT_EQ(r.spectra.at(0).data.wavelengths, c.nm);
            EXPECT_EQ(r.spectra.at(0).data.values, std::vector<double>({0.5, 0.7, 0.6}));
        }
    }
}

}  // namespace
