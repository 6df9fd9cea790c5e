// The photometry files after each Calculate, the field order dialog, the commands that open
// the files, printing of the CIE diagram and the usage record at quit.
#include <pwd.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <sstream>

#include "AppConstants.h"
#include "Fox_Fixes/TextField_zwk7.h"
#include "PhotometryFiles.h"
#include "SetOutputOrderForExcelFile.h"
#include "UserDialogs.h"
#include "ValueFormat.h"
#include "VantrelGUI.h"

namespace {
constexpr int NUM_USAGE_COUNTERS = 75;

std::string joinLines(const std::vector<std::string>& lines) {
    std::string all;
    for (std::size_t i = 0; i < lines.size(); ++i) all += (i ? "\n" : "") + lines[i];
    return all;
}

std::vector<std::string> splitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line))
        if (!line.empty()) lines.push_back(line);
    return lines;
}
}  // namespace

std::string VantrelGUI::photometryTextPath() const {
    if (photometryFolder.empty()) return paths.photometryFile;
    std::string folder = photometryFolder;
    if (folder.back() != '/') folder += '/';
    return folder + PHOTOMETRY_FILE_NAME;
}

std::string VantrelGUI::photometryTabPath() const { return tabFileName(photometryTextPath()); }

void VantrelGUI::writePhotometryFiles() {
    if (!settings.getBool("writeDataMenuItem")) return;
    PhotometryRun run = photometryRunFromSettings(lastOutcome, settings);
    run.individual = individualMode;
    const int type = resultAnalysisType;
    if (type == 2) {
        run.name = ValueFormat::format("Black body at %.0lfK",
                                       textToNumber.getValue(blackBodyTempField->getText().text()));
        run.title = run.name + "\n";
    } else if (type == 6) {
        run.name = ValueFormat::format("Reconstituted daylight at %.0lfK",
                                       textToNumber.getValue(daylightTempField->getText().text()));
        run.title = run.name + "\n";
    } else if (type == 1) {
        run.title = "Direct spectrum input\n";
        if (!mainCurveName.empty()) run.title += mainCurveName + "\n";
        run.name = mainCurveName.empty() ? "Direct spectrum input" : mainCurveName;
    } else {
        // The checked spectra with their inputs, one line each in the text file.
        const MixRows& rows = lastOutcome.rows;
        std::vector<std::string> names;
        for (std::size_t i = 0; i < rows.included.size() && i < ledRows.size(); ++i) {
            if (!rows.included[i]) continue;
            const ledTypeStruct& spectrum = model->spectra()[i];
            const std::string lpw =
                lastOutcome.mix.wallPlugKnown
                    ? ValueFormat::format("   LPW (wall-plug) = %s",
                                          ledRows[i].fields[5]->getText().text())
                    : std::string();
            const bool byLumens = i < rows.byLumens.size() && rows.byLumens[i];
            const std::string amount =
                byLumens ? std::string(ledRows[i].fields[1]->getText().text()) + " lm"
                         : std::string(ledRows[i].fields[2]->getText().text()) +
                               (settings.getInt("inputWattsUnits") == 0 ? " mW" : " W");
            if (spectrum.hasDomWL) {
                names.push_back(ValueFormat::format("%s: %s nm %s%s", spectrum.name,
                                                    ledRows[i].fields[0]->getText().text(),
                                                    amount.c_str(), lpw.c_str()));
            } else {
                names.push_back(
                    ValueFormat::format("%s: %s%s", spectrum.name, amount.c_str(), lpw.c_str()));
            }
        }
        for (const std::string& name : names) run.title += name + "\n";
        for (std::size_t k = 0; k < names.size(); ++k)
            run.name += (k ? LED_NAME_SEP : "") + names[k];
    }
    for (std::size_t f = 0; f < filterChecks.size() && f < filterSpectra.size(); ++f)
        if (filterChecks[f]->getCheck()) run.title += std::string(filterSpectra[f].name) + "\n";

    std::string failed;
    bool ok = appendPhotometryFiles(
        photometryTextPath(), run,
        !importing && (settings.getBool("writeAllToPhotometryExcelMenuItem") || individualMode),
        outputFields, outputOrder, photometryState, &failed);
    if (ok && settings.getBool("writeColors_upvp_ExcelMenuItem")) {
        double criU[2][15], criV[2][15], cqsU[2][15], cqsV[2][15];
        double* cu[2] = {criU[0], criU[1]};
        double* cv[2] = {criV[0], criV[1]};
        double* qu[2] = {cqsU[0], cqsU[1]};
        double* qv[2] = {cqsV[0], cqsV[1]};
        const Vantrel& engine = model->calculator().firstEngine();
        engine.get_CRI_uv_prime(cu, cv);
        engine.get_CQS_uv_prime(qu, qv);
        const std::string text = uvPrimeExport(run.name, criU, criV, cqsU, cqsV, run.commaDecimals,
                                               checkedUserColoursUV(engine));
        std::FILE* file = std::fopen(
            CRI_CQS_UPVP_FILENAME,
            photometryState.tabFileStarted || photometryState.photometryFileStarted ? "a" : "w");
        ok = file != nullptr && std::fputs(text.c_str(), file) >= 0;
        if (file != nullptr) ok = std::fclose(file) == 0 && ok;
        if (!ok) failed = CRI_CQS_UPVP_FILENAME;
    }
    if (ok) {
        photometryWriteErrorShown = false;
    } else if (!photometryWriteErrorShown) {
        // Once: a file held open by a spreadsheet would otherwise stop every Calculate.
        photometryWriteErrorShown = true;
        UserDialogs::error(this, "Write error", "%s", photometryWriteErrorText(failed).c_str());
    }
}

long VantrelGUI::onCmdSetOrderExcel(FXObject*, FXSelector, void*) {
    SetOutputOrderForExcelFile dialog(this);
    dialog.setData(outputFields, outputOrder, settings.getInt("colorsFiltersUnits") == 1);
    // As a form, the dialog's answer is the output list, one entry a line.
    std::vector<std::string> fields = {joinLines(dialog.outputNames())};
    if (!UserDialogs::runForm(&dialog, &fields, [&dialog]() {
            return std::vector<std::string>{joinLines(dialog.outputNames())};
        }))
        return 1;
    if (UserDialogs::getScript() != nullptr) {
        dialog.setOutputNames(splitLines(fields[0]));
        dialog.onCmdOK(nullptr, 0, nullptr);
        if (!dialog.wasAccepted()) return 1;
    }
    dialog.getData(outputFields, outputOrder);
    if (!writeOrderToFile(OUTPUT_ORDER_FILE_NAME, outputFields, outputOrder)) {
        UserDialogs::error(this, "Write error", "Cannot open file \"%s\" for writting.",
                           OUTPUT_ORDER_FILE_NAME);
    }
    return 1;
}

long VantrelGUI::onCmdOpenTxtFile(FXObject*, FXSelector sel, void*) {
    openWithDesktop(FXSELID(sel) == ID_OPEN_ASA_OUT_FILE ? std::string("asa_out.txt")
                                                         : photometryTextPath());
    return 1;
}

long VantrelGUI::onCmdOpenXlsFile(FXObject*, FXSelector, void*) {
    openWithDesktop(photometryTabPath());
    return 1;
}

std::vector<UserColourUV> VantrelGUI::checkedUserColoursUV(const Vantrel& engine) const {
    // Each checked colour under the light and under its CRI reference at the same CCT.
    std::vector<UserColourUV> colours;
    std::vector<double> reference(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    engine.getReferenceSpectrum(engine.getCCT(), reference.data());
    const auto upvp = [](double x, double y, double* u, double* v) {
        const double d = -2.0 * x + 12.0 * y + 3.0;
        *u = 4.0 * x / d;
        *v = 1.5 * 6.0 * y / d;
    };
    for (std::size_t c = 0; c < colorChecks.size() && c < colorSpectra.size(); ++c) {
        if (!colorChecks[c]->getCheck()) continue;
        UserColourUV entry;
        entry.name = colorSpectra[c].name;
        const double* sources[2] = {mixedSpectrum.data(), reference.data()};
        for (int j = 0; j < 2; ++j) {
            double X, Y, Z, x, y;
            engine.cie_XYZ(3, sources[j], colorSpectra[c].spectrum, &X, &Y, &Z, &x, &y);
            upvp(x, y, &entry.u[j], &entry.v[j]);
        }
        colours.push_back(entry);
    }
    return colours;
}

long VantrelGUI::onCmdPrint(FXObject*, FXSelector, void*) {
    FXPrintDialog dialog(this, "Print Document");
    if (!dialog.execute(PLACEMENT_OWNER)) return 1;
    FXPrinter printer;
    dialog.getPrinter(printer);
    if (!printCIEDiagram(printer)) UserDialogs::error(this, "Printer Error", "Unable to print");
    return 1;
}

bool VantrelGUI::printCIEDiagram(FXPrinter& printer) {
    FXDCPrint pdc(getApp());
    if (ciePlotCanvas == nullptr || !pdc.beginPrint(printer)) return false;
    // The diagram as the screen shows it, on one page.
    const int w = ciePlotCanvas->getWidth(), h = ciePlotCanvas->getHeight();
    FXImage image(getApp(), nullptr, IMAGE_KEEP, w, h);
    image.create();
    {
        FXDCWindow dc(&image);
        dc.drawArea(ciePlotCanvas, 0, 0, w, h, 0, 0);
    }
    image.restore();
    pdc.beginPage(1);
    pdc.drawImage(&image, 0, 0);
    pdc.endPage();
    return pdc.endPrint() != 0;
}

void VantrelGUI::writeToLogfile() {
    // Off unless a shared folder is configured; some users (the developers) are left out.
    const std::string folder = settings.getString("usageLogFolder");
    if (folder.empty()) return;
    const passwd* pw = ::getpwuid(::getuid());
    const std::string user = pw != nullptr && pw->pw_name != nullptr ? pw->pw_name : "unknown";
    std::istringstream excluded(settings.getString("usageLogExcludedUsers"));
    std::string name;
    while (excluded >> name)
        if (name == user) return;
    char when[64] = "";
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::strftime(when, sizeof when, "%a %d-%b-%Y at %H:%M:%S", &local);
    std::string record =
        ValueFormat::format("%s\t%s\tv%d.%02d\t", user.c_str(), when, VERSION_MAJOR, VERSION_MINOR);
    for (int i = 0; i < NUM_USAGE_COUNTERS; ++i)
        record += ValueFormat::format(
            "%d\t", i < static_cast<int>(usageCounters.size()) ? usageCounters[i] : 0);
    record += "\n";
    const std::string path = folder + (folder.back() == '/' ? "" : "/") + "vt_logfile.txt";
    std::FILE* file = std::fopen(path.c_str(), "a");
    if (file == nullptr) return;  // a shared folder out of reach is no reason to bother anyone
    std::fputs(record.c_str(), file);
    std::fclose(file);
}
