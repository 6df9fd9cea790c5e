// The widget subclasses: spectrum table cells and paste, number fields, choice boxes by text.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ComboBox_zwk7.h"
#include "GroupBoxWithIcon.h"
#include "GuiTestWindow.h"
#include "ListBox_zwk7.h"
#include "Table_zwk7.h"
#include "TextField_zwk7.h"

namespace {
// A created table of rows x 2 under the shared window.
std::unique_ptr<Table_zwk7> makeTable(int rows, int cols = 2) {
    std::unique_ptr<Table_zwk7> table(new Table_zwk7(guiTestWindow()));
    table->create();
    table->setTableSize(rows, cols);
    return table;
}

// "360\t0.1\n365\t0.2\n..." : rows of wavelength (5 nm steps) and value.
FXString fiveNmSpectrum(int rows) {
    FXString text;
    for (int r = 0; r < rows; ++r) text += FXStringFormat("%d\t%.1f\n", 360 + 5 * r, 0.1 * (r + 1));
    return text;
}

std::unique_ptr<TextField_zwk7> makeField(FXuint opts, int columns = 10) {
    std::unique_ptr<TextField_zwk7> field(
        new TextField_zwk7(guiTestWindow(), columns, nullptr, 0, opts));
    field->create();
    return field;
}

// What the field answers when FOX asks whether text may stand in it (1 = refused).
long verify(TextField_zwk7* field, const char* text) {
    return field->handle(field, FXSEL(SEL_VERIFY, 0), const_cast<char*>(text));
}

class Objector : public FXObject {
    FXDECLARE(Objector)
  public:
    long onVerify(FXObject*, FXSelector, void*) { return 1; }
};
FXDEFMAP(Objector) ObjectorMap[] = {FXMAPFUNC(SEL_VERIFY, 0, Objector::onVerify)};
FXIMPLEMENT(Objector, FXObject, ObjectorMap, ARRAYNUMBER(ObjectorMap))
}  // namespace

TEST(Table_zwk7, CommaDecimalsAreWrittenAndReadBack) {
    auto table = makeTable(2);
    table->setUseCommaForDecimal(true);
    table->setItemText(0, 1, "1.500e-03");
    EXPECT_EQ(table->getItemText(0, 1), FXString("1,500e-03"));
    EXPECT_DOUBLE_EQ(table->toDouble(0, 1), 1.5e-3);
    EXPECT_DOUBLE_EQ(table->toDouble(1, 1), 0.0);  // empty
    EXPECT_TRUE(table->isEmpty(1, 1));
    EXPECT_TRUE(table->isValidDouble(0, 1));
    table->setUseCommaForDecimal(false);
    table->setItemText(1, 0, " -362 ");
    EXPECT_EQ(table->getItemText(1, 0), FXString(" -362 "));
    EXPECT_EQ(table->toInt(1, 0), -362);
    EXPECT_TRUE(table->isValidInteger(1, 0));
    table->setItemText(1, 1, "3.5");
    EXPECT_FALSE(table->isValidInteger(1, 1));
    table->setItemText(1, 1, "  ");
    EXPECT_TRUE(table->isEmpty(1, 1));
    EXPECT_FALSE(table->isValidInteger(1, 1));
}

TEST(Table_zwk7, AFiveNanometreSpectrumFillsItsTableExactly) {
    auto table = makeTable(95);
    table->pasteText(fiveNmSpectrum(95));
    EXPECT_FALSE(table->getSizeError());
    EXPECT_EQ(table->getNumRows(), 95);
    EXPECT_EQ(table->getItemText(0, 0), FXString("360"));
    EXPECT_EQ(table->getItemText(0, 1), FXString("0.1"));
    EXPECT_EQ(table->getItemText(94, 0), FXString("830"));
    EXPECT_EQ(table->getItemText(94, 1), FXString("9.5"));
}

TEST(Table_zwk7, PasteFromTheCurrentCellDropsWhatDoesNotFit) {
    auto table = makeTable(3);
    table->setCurrentItem(1, 1);
    table->pasteText("1\t2\t3\n4\t5\t6\n7\t8\t9\n");
    EXPECT_TRUE(table->getSizeError());
    EXPECT_EQ(table->getNumRows(), 3);
    EXPECT_EQ(table->getItemText(1, 1), FXString("1"));
    EXPECT_EQ(table->getItemText(2, 1), FXString("4"));
    EXPECT_TRUE(table->isEmpty(0, 1));
    EXPECT_TRUE(table->isEmpty(1, 0));
    table->resetSizeError();
    EXPECT_FALSE(table->getSizeError());
    int rows = 2, cols = 1;
    EXPECT_FALSE(table->checkPasteSize(&rows, &cols));
    EXPECT_FALSE(table->getSizeError());
}

TEST(Table_zwk7, TheFreeFormatTableGrowsAndKeepsItsTitles) {
    auto table = makeTable(3);
    table->setAllowResizingOfRows(true);
    table->setColumnText(0, "Wavelength\n(nm)");
    table->setColumnText(1, "Spectrum\n(W/nm)");
    table->setItemText(2, 0, "model");
    table->pasteText("400\t1\n401\t2\n402\t3\n403\t4\n404\t5\n");
    EXPECT_FALSE(table->getSizeError());
    ASSERT_EQ(table->getNumRows(), 5);
    EXPECT_EQ(table->getColumnText(0), FXString("Wavelength\n(nm)"));
    EXPECT_EQ(table->getColumnText(1), FXString("Spectrum\n(W/nm)"));
    EXPECT_EQ(table->getItemText(4, 0), FXString("404"));
    EXPECT_EQ(table->getItemText(4, 1), FXString("5"));
}

TEST(Table_zwk7, PastedCommasAndLineEndsAreReadAndWrittenInTheUsersNotation) {
    auto table = makeTable(3);
    table->pasteText("360\t1,5\r\n362\t2,25\r\n");
    EXPECT_EQ(table->getItemText(0, 1), FXString("1.5"));
    EXPECT_EQ(table->getItemText(1, 1), FXString("2.25"));
    EXPECT_TRUE(table->isEmpty(2, 0));  // a Windows line end is one line end
    table->setUseCommaForDecimal(true);
    table->pasteText("360\t1.5\r364\t3.5");
    EXPECT_EQ(table->getItemText(0, 1), FXString("1,5"));
    EXPECT_EQ(table->getItemText(1, 0), FXString("364"));
    EXPECT_EQ(table->getItemText(1, 1), FXString("3,5"));
}

TEST(Table_zwk7, FixedWavelengthCellsKeepTheirTextOnPaste) {
    auto table = makeTable(2);
    for (int r = 0; r < 2; ++r) {
        table->setItemText(r, 0, FXStringVal(360 + 2 * r));
        table->disableItem(r, 0);
    }
    table->pasteText("999\t0.5\n998\t0.6\n");
    EXPECT_EQ(table->getItemText(0, 0), FXString("360"));
    EXPECT_EQ(table->getItemText(1, 0), FXString("362"));
    EXPECT_EQ(table->getItemText(1, 1), FXString("0.6"));
    EXPECT_FALSE(table->isItemEnabled(0, 0));
}

TEST(Table_zwk7, SelectionBoundsFallBackToTheCurrentCell) {
    auto table = makeTable(10);
    table->setCurrentItem(4, 1);
    EXPECT_EQ(table->startRow(), 4);
    EXPECT_EQ(table->endCol(), 1);
    table->selectRange(2, 6, 0, 1);
    EXPECT_EQ(table->startRow(), 2);
    EXPECT_EQ(table->endRow(), 6);
    EXPECT_EQ(table->startCol(), 0);
    EXPECT_EQ(table->endCol(), 1);
}

TEST(TextField_zwk7, RealFieldsTakeTheUsersDecimalAndSignsOnlyWhenAllowed) {
    auto field = makeField(TEXTFIELD_REAL);
    const struct {
        const char* text;
        bool accepted;
    } dotCases[] = {{"1.5", true}, {" 2 ", true},   {"1e-6", true},   {"2.5E+3", true},
                    {"", true},    {".", true},     {"1,5", false},   {"-1", false},
                    {"+1", false}, {"1.5x", false}, {"1.5.2", false}, {"1e5e", false}};
    for (const auto& c : dotCases)
        EXPECT_EQ(verify(field.get(), c.text), c.accepted ? 0 : 1) << c.text;
    field->setUseCommaForDecimal(true);
    field->setAllowNegNum(true);
    EXPECT_EQ(verify(field.get(), "-1,5"), 0);
    EXPECT_EQ(verify(field.get(), "1.5"), 1);
    // The target has the last word.
    Objector objector;
    field->setTarget(&objector);
    EXPECT_EQ(verify(field.get(), "1,5"), 1);
    field->setTarget(nullptr);
}

TEST(TextField_zwk7, TypingGoesThroughTheFieldsOwnRules) {
    auto field = makeField(TEXTFIELD_REAL);
    field->setUseCommaForDecimal(true);
    field->setText("1");
    field->setCursorPos(1);
    // FOX's own check would refuse the comma.
    field->handle(field.get(), FXSEL(SEL_COMMAND, FXTextField::ID_INSERT_STRING),
                  const_cast<char*>(",5"));
    EXPECT_EQ(field->getText(), FXString("1,5"));
    EXPECT_DOUBLE_EQ(field->toDouble(), 1.5);
    field->handle(field.get(), FXSEL(SEL_COMMAND, FXTextField::ID_INSERT_STRING),
                  const_cast<char*>("x"));
    EXPECT_EQ(field->getText(), FXString("1,5"));
}

TEST(TextField_zwk7, IntegerAndLimitedFields) {
    auto integer = makeField(TEXTFIELD_INTEGER);
    EXPECT_EQ(verify(integer.get(), " 12 "), 0);
    EXPECT_EQ(verify(integer.get(), "1.5"), 1);
    EXPECT_EQ(verify(integer.get(), "-3"), 1);
    integer->setAllowNegNum(true);
    EXPECT_EQ(verify(integer.get(), "-3"), 0);
    integer->setValue(-42);
    EXPECT_EQ(integer->toInt(), -42);
    EXPECT_DOUBLE_EQ(integer->toDouble(), -42.0);

    auto limited = makeField(TEXTFIELD_LIMITED, 3);
    EXPECT_EQ(verify(limited.get(), "abc"), 0);
    EXPECT_EQ(verify(limited.get(), "abcd"), 1);
}

TEST(TextField_zwk7, APlainFieldReadsAsZero) {
    auto plain = makeField(TEXTFIELD_NORMAL);
    plain->setText("12.5");
    EXPECT_DOUBLE_EQ(plain->toDouble(), 0.0);
    auto real = makeField(TEXTFIELD_REAL);
    real->setDecimalSymbol(',');
    real->setValue(2.5);
    EXPECT_EQ(real->getText(), FXString("2,5"));
    EXPECT_DOUBLE_EQ(real->toDouble(), 2.5);
}

TEST(ChoiceBoxes, ItemsAreFoundByTheirWholeText) {
    std::unique_ptr<ComboBox_zwk7> combo(new ComboBox_zwk7(guiTestWindow(), 10));
    combo->appendItem("LED A");
    combo->appendItem("LED");
    combo->create();
    EXPECT_EQ(combo->getCurrentItem("LED"), 1);
    EXPECT_EQ(combo->getCurrentItem("led"), -1);
    EXPECT_TRUE(combo->setCurrentItem(FXString("LED")));
    EXPECT_EQ(combo->getCurrentItem(), 1);
    EXPECT_EQ(combo->getCurrentItemText(), FXString("LED"));
    EXPECT_FALSE(combo->setCurrentItem(FXString("LED B")));
    EXPECT_EQ(combo->getCurrentItem(), 1);

    std::unique_ptr<ListBox_zwk7> list(new ListBox_zwk7(guiTestWindow()));
    list->create();
    EXPECT_EQ(list->getCurrentItemText(), FXString(""));
    list->appendItem("Red");
    list->appendItem("Green");
    EXPECT_TRUE(list->setCurrentItem(FXString("Green")));
    EXPECT_EQ(list->getCurrentItemText(), FXString("Green"));
}

TEST(GroupBoxWithIcon, TitleTextTravelsByMessageAndATallIconMakesRoom) {
    std::unique_ptr<GroupBoxWithIcon> box(
        new GroupBoxWithIcon(guiTestWindow(), "Spectrum", nullptr, GROUPBOX_NORMAL | FRAME_GROOVE));
    box->create();
    const FXint plainHeight = box->getDefaultHeight();
    FXIcon icon(guiTestApp(), nullptr, 0, IMAGE_OWNED, 8, 40);
    box->setIcon(&icon);
    EXPECT_GE(box->getDefaultHeight(), plainHeight + 40 - box->getFont()->getFontHeight());
    box->setIconPosition(ICON_AFTER_TEXT);
    EXPECT_EQ(box->getIconPosition(), static_cast<FXuint>(ICON_AFTER_TEXT));
    box->setIconPosition(12345);
    EXPECT_EQ(box->getIconPosition(), static_cast<FXuint>(ICON_BEFORE_TEXT));

    box->handle(nullptr, FXSEL(SEL_COMMAND, FXWindow::ID_SETVALUE), const_cast<char*>("Fit"));
    FXString title;
    box->handle(nullptr, FXSEL(SEL_COMMAND, FXWindow::ID_GETSTRINGVALUE), &title);
    EXPECT_EQ(title, FXString("Fit"));
    box->setIcon(nullptr);
}
