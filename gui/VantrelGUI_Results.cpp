// The result tabs: every output field as a labelled read-only box, grouped by subject, and the
// highlight colour of the tab shown.
#include <numeric>

#include "ArgbColor.h"
#include "ValueFormat.h"
#include "VantrelGUI.h"

namespace {
constexpr double FIRST_NM = 360.0, LAST_NM = 830.0;
// Highlight colours of the result tabs (0xAARRGGBB), in tab order.
constexpr int TAB_HIGHLIGHTS[] = {static_cast<int>(0xFFFFF2B3), static_cast<int>(0xFFD5F5D0),
                                  static_cast<int>(0xFFD0E8FF), static_cast<int>(0xFFFFD9D0),
                                  static_cast<int>(0xFFE8DDFF)};

std::vector<int> fieldRange(int first, int last) {
    std::vector<int> v(last - first + 1);
    std::iota(v.begin(), v.end(), first);
    return v;
}

std::vector<int> joined(std::initializer_list<std::vector<int>> parts) {
    std::vector<int> all;
    for (const std::vector<int>& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}
}  // namespace

void VantrelGUI::layoutFieldsTab(FXTabBook* book, const char* title, const std::vector<int>& fields,
                                 int columns, int labelWidth, int fieldWidth) {
    resultTabItems.push_back(new FXTabItem(book, title));
    FXScrollWindow* scroll =
        new FXScrollWindow(book, FRAME_THICK | FRAME_RAISED | LAYOUT_FILL_X | LAYOUT_FILL_Y);
    FXVerticalFrame* page = new FXVerticalFrame(scroll, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    FXMatrix* grid = new FXMatrix(page, columns, MATRIX_BY_COLUMNS | LAYOUT_FILL_X);
    for (int index : fields) {
        FXGroupBox* box = new FXGroupBox(grid, outputFieldName(index).c_str(),
                                         GROUPBOX_TITLE_CENTER | FRAME_GROOVE | LAYOUT_FIX_WIDTH, 0,
                                         0, labelWidth, 0, 2, 2, 0, 2);
        resultFields[index] = new FXTextField(
            box, 8, nullptr, 0,
            TEXTFIELD_READONLY | JUSTIFY_CENTER_X | FRAME_SUNKEN | LAYOUT_FILL_X | LAYOUT_FIX_WIDTH,
            0, 0, fieldWidth, 0);
    }
}

FXTextField* VantrelGUI::resultField(const char* name) const {
    // Fields are named as the result tables name them; a name that is not there is a fault.
    const int index = outputFieldIndex(name);
    return index >= 0 ? resultFields[index] : nullptr;
}

void VantrelGUI::layoutMainResultsTab(FXTabBook* book, int labelWidth, int fieldWidth) {
    layoutFieldsTab(book, "Main", fieldRange(0, 32), 4, labelWidth, fieldWidth);
    resultField("Vis watt")
        ->setTipText(FXString().format(
            "Visible watts (calculated in the range of %.0lf - %.0lf nm).", FIRST_NM, LAST_NM));
    resultField("LER")->setTipText(
        FXString().format("Luminous Efficacy of Radiation\nLumens per visible watt (calculated "
                          "in the range of %.0lf - %.0lf nm).",
                          FIRST_NM, LAST_NM));
    resultField("LPW")->setTipText("Total LPW (wall-plug watts not visible or optical).");
    resultField("Elec. W")->setTipText("Electrical input watts (calculated from the total LPW).");
    resultField("Ext. lm")->setTipText(
        FXString().format("Extended lumens are the lumens with the eye sensitivity curve "
                          "extended down to %.0lf nm.\nThis is used with IR sources.",
                          FIRST_NM));
    resultField("Duv")->setTipText("Distance to the black body locus in CIE 1960 u-v space.");
    resultField("Du'v'")->setTipText("Distance to the black body locus in CIE 1976 u'-v' space.");
    resultField("umol/J (wp)")->setTipText("Photon flux per electrical watt (from the total LPW).");
    set_umol_sW_tooltip();
}

void VantrelGUI::set_umol_sW_tooltip() {
    // The photon figures follow "Limit umol/s and umol/J to 400 nm to 700 nm".
    const bool par = settings.getBool("constrain_uMol_sW_to_400_700nm");
    const FXString range =
        par ? "400 - 700 nm" : FXString().format("%.0lf - %.0lf nm", FIRST_NM, LAST_NM);
    const int flux = outputFieldIndex("umol/s"), perWatt = outputFieldIndex("umol/J (spec)");
    if (flux >= 0 && resultFields[flux] != nullptr)
        resultFields[flux]->setTipText(
            "Photon flux in micromoles per second (calculated in the range of " + range + ").");
    if (perWatt >= 0 && resultFields[perWatt] != nullptr)
        resultFields[perWatt]->setTipText(
            "Photon flux per visible watt in micromoles per joule (calculated in the range of " +
            range + ").");
}

void VantrelGUI::layoutTM30ResultsTab(FXTabBook* book, int labelWidth, int fieldWidth) {
    layoutFieldsTab(book, "TM-30", joined({fieldRange(65, 83), {149, 150}}), 4, labelWidth,
                    fieldWidth);
    resultField("W (G/R)")->setTipText("Green over red response of a tungsten (3200K) film.");
    resultField("D (G/R)")->setTipText("Green over red response of a daylight film.");
}

void VantrelGUI::layoutTM30_p2_ResultsTab(FXTabBook* book, int labelWidth, int fieldWidth) {
    // Hue shift and chroma shift of each hue bin side by side.
    std::vector<int> fields;
    for (int bin = 0; bin < Vantrel::TM30_NUM_BINS; ++bin) {
        fields.push_back(84 + bin);
        fields.push_back(100 + bin);
    }
    layoutFieldsTab(book, "TM-30 hue bins", fields, 4, labelWidth, fieldWidth);
}

void VantrelGUI::layoutCQSResultsTab(FXTabBook* book, int labelWidth, int fieldWidth) {
    // "max dE*" stands last: it is hidden outside binning runs and leaves no hole there.
    layoutFieldsTab(book, "CQS", joined({fieldRange(33, 56), fieldRange(58, 64), {57}}), 4,
                    labelWidth, fieldWidth);
    resultField("GA CRI")->setTipText(
        "Gamut area of the R1-R8 colors in the chosen diagram, times 100000.");
    resultField("GA CQS")->setTipText(
        "Gamut area of the Q1-Q15 colors in the chosen diagram, times 100000.");
    resultField("Blue watts")->setTipText("Watts of the blue peak (\"Subtract blue peak\").");
    resultField("Phos watts")->setTipText("Watts left after the blue peak is subtracted.");
    resultField("Total W")->setTipText(FXString().format(
        "Total watts (calculated in the range of %.0lf - %.0lf nm).", FIRST_NM, 1050.0));
    resultField("COI")->setTipText("Cyanosis Observation Index, defined from 3300K to 5300K.");
    // The Monte Carlo spread shows only in binning runs.
    resultField("max dE*")->getParent()->hide();
}

void VantrelGUI::layoutResultsTab4(FXTabBook* book, int labelWidth, int fieldWidth) {
    // Two wide columns: the gamut-area labels are long.
    layoutFieldsTab(book, "10\u00B0 && more", fieldRange(116, 148), 2, labelWidth + 80,
                    fieldWidth + 80);
    resultField("Photons/s")->setTipText("Photons per second over the whole spectrum.");
}

void VantrelGUI::setTabColors() {
    const bool highlight = settings.getBool("colorTabs");
    const FXint current = resultTabs->getCurrent();
    for (std::size_t t = 0; t < resultTabItems.size(); ++t) {
        const bool lit = highlight && static_cast<FXint>(t) == current;
        resultTabItems[t]->setBackColor(lit ? argbColor(TAB_HIGHLIGHTS[t % 5])
                                            : getApp()->getBaseColor());
    }
}

long VantrelGUI::onCmdResultTabs(FXObject*, FXSelector, void*) {
    setTabColors();
    return 1;
}
