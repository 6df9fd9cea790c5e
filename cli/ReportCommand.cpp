#include "ReportCommand.h"

#include <cstdlib>
#include <ostream>

#include "CairoCanvas.h"
#include "CalcCommand.h"
#include "CalculateModel.h"
#include "FileText.h"
#include "QualityCharts.h"
#include "ReadSpectraFile.h"
#include "SpectrumFile.h"

namespace {

// The J'a'b' table of the TM-30 samples is written by the same command.
constexpr const char* JAB_KIND = "jab";

int usageError(std::ostream& err, const std::string& message) {
    err << CLI_PROGRAM_NAME << " report: " << message << "\n"
        << "Run 'lumivar-cli report --help' for the usage.\n";
    return EXIT_USAGE;
}

bool parseSize(const std::string& text, int* width, int* height) {
    const std::size_t x = text.find('x');
    if (x == std::string::npos) return false;
    char* end = nullptr;
    const long w = std::strtol(text.c_str(), &end, 10);
    if (end != text.c_str() + x) return false;
    const long h = std::strtol(text.c_str() + x + 1, &end, 10);
    if (*end != '\0' || w < 50 || h < 50 || w > 10000 || h > 10000) return false;
    *width = static_cast<int>(w);
    *height = static_cast<int>(h);
    return true;
}

// Reads the first spectrum of a file onto the grid; false with the message on err.
bool readGridSpectrum(const std::string& file, double* grid, std::ostream& err) {
    const SpectraFileResult read = readSpectraFile(file);
    if (!read.ok) {
        err << file << ":" << (read.errorLine > 0 ? std::to_string(read.errorLine) + ":" : "")
            << " " << read.error << '\n';
        return false;
    }
    std::string error;
    if (!toGrid(read.spectra.front().data, grid, &error)) {
        err << file << ": " << error << '\n';
        return false;
    }
    if (read.spectra.size() > 1) {
        err << file << ": " << read.spectra.size() << " spectra, the picture shows the first ("
            << read.spectra.front().name << ")\n";
    }
    return true;
}

struct ReportArgs {
    std::string kind, file, output;
    QualityChartSettings settings;
    bool sizeGiven = false;
};

// Parses the options; returns -1 when all is well, else the exit status.
int parseArgs(const std::vector<std::string>& args, ReportArgs* r, std::ostream& out,
              std::ostream& err) {
    std::vector<std::string> positional;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "-h" || arg == "--help") {
            out << reportUsage();
            return EXIT_ALL_GOOD;
        }
        if (arg.size() < 2 || arg[0] != '-') {
            positional.push_back(arg);
            continue;
        }
        if (i + 1 == args.size()) return usageError(err, arg + " needs a value");
        const std::string& value = args[++i];
        TM30ReportOptions& report = r->settings.report;
        TM30ReportFields& fields = r->settings.fields;
        if (arg == "-o" || arg == "--output") {
            r->output = value;
        } else if (arg == "--type") {
            const char* types[3] = {"full", "intermediate", "simple"};
            report.reportType = -1;
            for (int t = 0; t < 3; ++t)
                if (value == types[t]) report.reportType = t;
            if (report.reportType < 0)
                return usageError(err, "--type must be full, intermediate or simple");
        } else if (arg == "--paper") {
            if (value != "letter" && value != "a4")
                return usageError(err, "--paper must be letter or a4");
            report.paperSize = value == "a4" ? 2 : 1;
        } else if (arg == "--scale") {
            if (value != "1" && value != "2" && value != "4")
                return usageError(err, "--scale must be 1, 2 or 4");
            report.scaleFactor = value[0] - '0';
        } else if (arg == "--size") {
            if (!parseSize(value, &r->settings.width, &r->settings.height))
                return usageError(err, "--size must be WIDTHxHEIGHT, 50 to 10000 pixels each");
            r->sizeGiven = true;
        } else if (arg == "--source") {
            fields.source = value;
        } else if (arg == "--manufacturer") {
            fields.manufacturer = value;
        } else if (arg == "--date") {
            fields.date = value;
        } else if (arg == "--model") {
            fields.model = value;
        } else if (arg == "--note") {
            fields.note = value;
        } else {
            return usageError(err, "unknown option '" + arg + "'");
        }
    }
    if (positional.size() != 2) return usageError(err, "needs a chart and one spectrum FILE");
    r->kind = positional[0];
    r->file = positional[1];
    return -1;
}

}  // namespace

const char* reportUsage() {
    static const std::string usage =
        "Usage: lumivar-cli report CHART FILE [-o OUT.pdf|OUT.svg|OUT.png] [OPTION...]\n"
        "\n"
        "Draws a quality chart of the first spectrum of FILE without a display. CHART is\n"
        "one of " +
        qualityChartNames() +
        "\n"
        "(tm30 is the one-page IES TM-30 report), or jab for the tab-delimited table of the\n"
        "TM-30 samples' J'a'b', Rf,i and Rf,h values. The file type follows the extension\n"
        "of OUT (default FILE_CHART.pdf in the current folder).\n"
        "\n"
        "  -o OUT              the file to write\n"
        "  --size WxH          pixels of a chart (default 800x600; not the report)\n"
        "  --type T            report: full (default), intermediate or simple\n"
        "  --paper P           report: letter (default) or a4\n"
        "  --scale N           report: 1 (default), 2 or 4 times the pixels\n"
        "  --source, --manufacturer, --date, --model, --note TEXT\n"
        "                      report: the texts of a full report (45, 40, 45, 45 and 600\n"
        "                      characters at most; longer texts are cut)\n"
        "\n"
        "Exit status: 0 when the file was written, 1 when the spectrum or the output\n"
        "failed (a report is still written for a spectrum without TM-30 values), 2 on\n"
        "wrong usage.\n";
    return usage.c_str();
}

int runReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    ReportArgs r;
    const int parsed = parseArgs(args, &r, out, err);
    if (parsed >= 0) return parsed;
    QualityChart chart = QualityChart::TM30_REPORT;
    const bool jab = r.kind == JAB_KIND;
    if (!jab && !qualityChartOfName(r.kind, &chart))
        return usageError(err, "unknown chart '" + r.kind + "'");
    if (r.output.empty()) {
        r.output =
            fileTitle(r.file) + "_" +
            (jab ? std::string("Jab_Rfi_values") : qualityChartFileTag(chart, r.settings.report)) +
            (jab ? ".xls" : ".pdf");
    }
    const ImageFileType type = imageFileTypeOfPath(r.output);
    if (!jab && type == ImageFileType::NONE)
        return usageError(err, "the output must end in .pdf, .svg or .png: '" + r.output + "'");

    double grid[Vantrel::NUM_GRID_POINTS];
    if (!readGridSpectrum(r.file, grid, err)) return EXIT_INPUT_PROBLEM;
    QualityPlotData data;
    const bool computed = gatherQualityPlotData(grid, fileTitle(r.file), &data);
    if (!computed)
        err << r.file << ": " << noChromaticityMessage(data.results.overflow).text << '\n';
    std::string error;
    if (jab) {
        if (!data.tm30Valid()) {
            if (computed) err << r.file << ": the TM-30 values are N/A for this spectrum\n";
            return EXIT_INPUT_PROBLEM;
        }
        if (!writeFileAtomically(r.output, tm30JabFileText(data), &error)) {
            err << CLI_PROGRAM_NAME << ": cannot write " << r.output << ": " << error << '\n';
            return EXIT_INPUT_PROBLEM;
        }
        return EXIT_ALL_GOOD;
    }
    if (!qualityChartHasData(chart, data)) {
        if (computed) err << r.file << ": the TM-30 values are N/A for this spectrum\n";
        return EXIT_INPUT_PROBLEM;
    }
    int width = 0, height = 0;
    qualityChartSize(chart, r.settings, &width, &height);
    // A report on paper: the PDF page is the real letter or A4 sheet.
    double pageWidth = 0;
    if (chart == QualityChart::TM30_REPORT)
        pageWidth = r.settings.report.paperSize == 2 ? 595.28 : 612.0;
    CairoCanvas canvas(type, width, height, pageWidth);
    const TM30ReportOutcome outcome = drawQualityChart(canvas, chart, data, r.settings);
    if (outcome.noteTooLong) err << r.file << ": " << TM30_NOTE_TOO_LONG << '\n';
    if (!canvas.save(r.output, &error)) {
        err << CLI_PROGRAM_NAME << ": cannot write " << r.output << ": " << error << '\n';
        return EXIT_INPUT_PROBLEM;
    }
    return computed ? EXIT_ALL_GOOD : EXIT_INPUT_PROBLEM;
}
