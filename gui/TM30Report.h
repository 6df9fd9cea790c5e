// The "TM30 report" dialog: the texts of a full report (source, manufacturer, date, model and
// note, each with Clear and Restore), the report type, the plot options and the paper. Its
// answers go into the settings and the report page opens in a chart window.
#ifndef LUMIVAR_GUI_TM30REPORT_H
#define LUMIVAR_GUI_TM30REPORT_H

#include <fx.h>

#include <string>
#include <vector>

#include "TM30ReportPage.h"

class TM30Report : public FXDialogBox {
    FXDECLARE(TM30Report)

  public:
    enum {
        ID_CLEAR = FXDialogBox::ID_LAST,  // one per text: source, manufacturer, date, model, note
        ID_CLEAR_LAST = ID_CLEAR + 4,
        ID_RESTORE,
        ID_RESTORE_LAST = ID_RESTORE + 4,
        ID_NOW,
        ID_REPORT_TYPE,
        ID_LAST
    };
    // The most characters each text keeps, in the order of the texts.
    static constexpr int TEXT_LIMITS[5] = {45, 40, 45, 45, 600};

    TM30Report(FXWindow* owner);
    ~TM30Report() override;

    // Fills the dialog from the design's texts and the options.
    void setData(const TM30ReportFields& fields, const TM30ReportOptions& options);
    // The dialog's answers as the form's fields: the five texts, then the report type (0 to 2),
    // the paper (1 letter, 2 A4) and the two plot options ("0" or "1").
    std::vector<std::string> getFields() const;
    // The texts and options of such fields, each text cut to its limit.
    static void readFields(const std::vector<std::string>& fields, TM30ReportFields* texts,
                           TM30ReportOptions* options);

    long onCmdClear(FXObject*, FXSelector, void*);
    long onCmdRestore(FXObject*, FXSelector, void*);
    long onCmdNow(FXObject*, FXSelector, void*);
    long onCmdReportType(FXObject*, FXSelector, void*);

  protected:
    TM30Report() {}

  private:
    void enableFullReportTexts();

    FXTextField* texts[4] = {};  // source, manufacturer, date, model
    FXText* note = nullptr;
    std::string restore[5];
    FXint reportType = 0, paperSize = 1;
    FXDataTarget reportTypeTarget, paperTarget;
    FXCheckButton* standardLimits = nullptr;
    FXCheckButton* percentCircles = nullptr;
    FXGroupBox* textBox = nullptr;
};

#endif  // LUMIVAR_GUI_TM30REPORT_H
