#include "TM30Report.h"

#include <ctime>

FXDEFMAP(TM30Report)
TM30ReportMap[] = {
    FXMAPFUNCS(SEL_COMMAND, TM30Report::ID_CLEAR, TM30Report::ID_CLEAR_LAST,
               TM30Report::onCmdClear),
    FXMAPFUNCS(SEL_COMMAND, TM30Report::ID_RESTORE, TM30Report::ID_RESTORE_LAST,
               TM30Report::onCmdRestore),
    FXMAPFUNC(SEL_COMMAND, TM30Report::ID_NOW, TM30Report::onCmdNow),
    FXMAPFUNC(SEL_COMMAND, TM30Report::ID_REPORT_TYPE, TM30Report::onCmdReportType),
};
FXIMPLEMENT(TM30Report, FXDialogBox, TM30ReportMap, ARRAYNUMBER(TM30ReportMap))

constexpr int TM30Report::TEXT_LIMITS[5];

namespace {

constexpr const char* TEXT_LABELS[5] = {"Source (45 chars max)", "Manufacturer (40 chars max)",
                                        "Date (45 chars max)", "Model (45 chars max)",
                                        "Note (600 chars max)"};

}  // namespace

TM30Report::TM30Report(FXWindow* owner)
    : FXDialogBox(owner, "TM30 report", DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE | DECOR_RESIZE),
      reportTypeTarget(reportType, this, ID_REPORT_TYPE),
      paperTarget(paperSize) {
    FXVerticalFrame* top = new FXVerticalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    textBox = new FXGroupBox(top, "", FRAME_GROOVE | LAYOUT_FILL_X);
    FXMatrix* grid = new FXMatrix(textBox, 5, MATRIX_BY_COLUMNS | LAYOUT_FILL_X);
    for (int k = 0; k < 5; ++k) {
        new FXLabel(grid, TEXT_LABELS[k]);
        if (k < 4) {
            texts[k] = new FXTextField(grid, 45, nullptr, 0,
                                       FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_COLUMN);
        } else {
            new FXFrame(grid, 0);
        }
        new FXButton(grid, "Clear", nullptr, this, ID_CLEAR + k);
        new FXButton(grid, "Restore", nullptr, this, ID_RESTORE + k);
        if (k == 2) {
            new FXButton(grid, "Now", nullptr, this, ID_NOW);
        } else {
            new FXFrame(grid, 0);
        }
    }
    note = new FXText(textBox, nullptr, 0, TEXT_WORDWRAP | LAYOUT_FILL_X | LAYOUT_FIX_HEIGHT, 0, 0,
                      0, 90);

    FXHorizontalFrame* choices = new FXHorizontalFrame(top, LAYOUT_FILL_X);
    FXGroupBox* type = new FXGroupBox(choices, "Report type", FRAME_GROOVE);
    const char* types[3] = {"Full", "Intermediate", "Simple"};
    for (int k = 0; k < 3; ++k)
        new FXRadioButton(type, types[k], &reportTypeTarget, FXDataTarget::ID_OPTION + k);
    FXGroupBox* plots = new FXGroupBox(choices, "Plot options", FRAME_GROOVE);
    standardLimits = new FXCheckButton(plots, "Use standard limts for chroma and hue shift plots");
    percentCircles = new FXCheckButton(plots, "Show the +/- 20% circles on the distortion plot");
    FXGroupBox* paper = new FXGroupBox(choices, "Paper size", FRAME_GROOVE);
    new FXRadioButton(paper, "US letter (8.5\" x 11\")", &paperTarget, FXDataTarget::ID_OPTION + 1);
    new FXRadioButton(paper, "A4 (210 mm x 297 mm)", &paperTarget, FXDataTarget::ID_OPTION + 2);

    FXHorizontalFrame* buttons = new FXHorizontalFrame(top, LAYOUT_FILL_X);
    new FXButton(buttons, "Display Report", nullptr, this, FXDialogBox::ID_ACCEPT,
                 BUTTON_DEFAULT | BUTTON_INITIAL | BUTTON_NORMAL | LAYOUT_RIGHT);
    new FXButton(buttons, "Cancel", nullptr, this, FXDialogBox::ID_CANCEL,
                 BUTTON_NORMAL | LAYOUT_RIGHT);
}

TM30Report::~TM30Report() = default;

void TM30Report::setData(const TM30ReportFields& fields, const TM30ReportOptions& options) {
    const std::string values[4] = {fields.source, fields.manufacturer, fields.date, fields.model};
    for (int k = 0; k < 4; ++k) texts[k]->setText(values[k].c_str());
    note->setText(fields.note.c_str());
    reportType = options.reportType;
    paperSize = options.paperSize == 2 ? 2 : 1;
    standardLimits->setCheck(options.standardShiftLimits);
    percentCircles->setCheck(options.percentCircles);
    enableFullReportTexts();
}

std::vector<std::string> TM30Report::getFields() const {
    std::vector<std::string> fields;
    for (FXTextField* text : texts) fields.push_back(text->getText().text());
    fields.push_back(note->getText().text());
    fields.push_back(std::to_string(reportType));
    fields.push_back(std::to_string(paperSize));
    fields.push_back(standardLimits->getCheck() ? "1" : "0");
    fields.push_back(percentCircles->getCheck() ? "1" : "0");
    return fields;
}

void TM30Report::readFields(const std::vector<std::string>& fields, TM30ReportFields* texts,
                            TM30ReportOptions* options) {
    auto field = [&](std::size_t k) { return k < fields.size() ? fields[k] : std::string(); };
    std::string* targets[5] = {&texts->source, &texts->manufacturer, &texts->date, &texts->model,
                               &texts->note};
    // The note keeps its line breaks as blanks; every text is held to its limit.
    for (int k = 0; k < 5; ++k) *targets[k] = cleanReportText(field(k), TEXT_LIMITS[k]);
    const int type = std::atoi(field(5).c_str());
    options->reportType = type >= 0 && type <= 2 ? type : 0;
    options->paperSize = field(6) == "2" ? 2 : 1;
    options->standardShiftLimits = field(7) == "1";
    options->percentCircles = field(8) == "1";
}

void TM30Report::enableFullReportTexts() {
    // The texts belong to the full report only.
    const bool full = reportType == TM30_REPORT_FULL;
    for (FXTextField* text : texts) full ? text->enable() : text->disable();
    full ? note->enable() : note->disable();
    reportType == TM30_REPORT_SIMPLE ? standardLimits->disable() : standardLimits->enable();
}

long TM30Report::onCmdClear(FXObject*, FXSelector sel, void*) {
    const int k = FXSELID(sel) - ID_CLEAR;
    if (k < 4) {
        restore[k] = texts[k]->getText().text();
        texts[k]->setText("");
    } else {
        restore[k] = note->getText().text();
        note->setText("");
    }
    return 1;
}

long TM30Report::onCmdRestore(FXObject*, FXSelector sel, void*) {
    const int k = FXSELID(sel) - ID_RESTORE;
    if (k < 4) {
        texts[k]->setText(restore[k].c_str());
    } else {
        note->setText(restore[k].c_str());
    }
    return 1;
}

long TM30Report::onCmdNow(FXObject*, FXSelector, void*) {
    const std::time_t now = std::time(nullptr);
    char text[64];
    std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M", std::localtime(&now));
    texts[2]->setText(text);
    return 1;
}

long TM30Report::onCmdReportType(FXObject*, FXSelector, void*) {
    enableFullReportTexts();
    return 1;
}
