// The spectrum tables as the user edits them: paste, the delete key, the popup commands,
// inversion and the undo records behind the undo button.
#include <fxkeys.h>

#include <string>

#include "MainWindowFixture.h"

namespace {
class Tables : public MainWindow {
  protected:
    // The texts of column `col`, rows first..last, one per line.
    static std::string column(Table_zwk7* table, int col, int first, int last) {
        std::string all;
        for (int r = first; r <= last; ++r)
            all += std::string(table->getItemText(r, col).text()) + "\n";
        return all;
    }
    // A key press that reaches the table's target, as a typed key does.
    void pressKey(Table_zwk7* table, FXuint code) {
        FXEvent event;
        event.type = SEL_KEYPRESS;
        event.code = code;
        gui->onTableKeyPress(table, FXSEL(SEL_KEYPRESS, VantrelGUI::ID_TABLE), &event);
    }
    void undo() { gui->onCmdUndoTableEdit(nullptr, 0, nullptr); }
};
}  // namespace

TEST_F(Tables, UndoGivesBackTheExactTextBeforeEachKindOfEdit) {
    chooseRange(RANGE_360_830_5NM);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_5NM);
    paste(RANGE_360_830_5NM, "360\t1.5\n365\t2\n370\t\n375\t0.25\n380\t3e-2\n");
    const std::string before = column(table, 1, 0, 6);
    ASSERT_EQ(before, "1.5\n2\n\n0.25\n3e-2\n\n\n");

    // A paste over the block.
    table->setCurrentItem(1, 1);
    table->pasteText("9\n8\n7\n");
    EXPECT_EQ(column(table, 1, 0, 4), "1.5\n9\n8\n7\n3e-2\n");
    undo();
    EXPECT_EQ(column(table, 1, 0, 6), before);

    // A typed cell, accepted as a Return accepts it; the same text again records nothing.
    table->startInput(4, 1);
    FXTextField* editor = nullptr;
    for (FXWindow* child = table->getFirst(); child != nullptr; child = child->getNext())
        if (dynamic_cast<FXTextField*>(child) != nullptr) editor = static_cast<FXTextField*>(child);
    ASSERT_NE(editor, nullptr);
    editor->setText("42");
    table->acceptInput(TRUE);
    EXPECT_EQ(table->getItemText(4, 1), "42");
    const int records = gui->getTableUndoCount();
    table->startInput(4, 1);
    table->acceptInput(TRUE);
    EXPECT_EQ(gui->getTableUndoCount(), records);
    undo();
    EXPECT_EQ(column(table, 1, 0, 6), before);

    // The delete key over a selection.
    table->selectRange(0, 3, 1, 1);
    pressKey(table, KEY_Delete);
    EXPECT_EQ(column(table, 1, 0, 3), "0.000e+00\n0.000e+00\n0.000e+00\n0.000e+00\n");
    undo();
    EXPECT_EQ(column(table, 1, 0, 6), before);
    table->killSelection();

    // Zeroing from a cell to the end: empty cells stay empty.
    gui->setPopupCell(table, 1, 1);
    gui->onCmdZeroToEnd(nullptr, 0, nullptr);
    EXPECT_EQ(column(table, 1, 0, 6), "1.5\n0.000e+00\n\n0.000e+00\n0.000e+00\n\n\n");
    undo();
    EXPECT_EQ(column(table, 1, 0, 6), before);
    gui->onCmdZeroToBeginning(nullptr, 0, nullptr);
    EXPECT_EQ(column(table, 1, 0, 2), "0.000e+00\n0.000e+00\n\n");
    undo();

    // Inversion of a fixed table turns the whole value column, never the wavelengths.
    const std::string nm = column(table, 0, 0, table->getNumRows() - 1);
    gui->onCmdInvertValuesInTable(nullptr, 0, nullptr);
    EXPECT_EQ(table->getItemText(table->getNumRows() - 1, 1), "1.5");
    EXPECT_EQ(column(table, 0, 0, table->getNumRows() - 1), nm);
    undo();
    EXPECT_EQ(column(table, 1, 0, 6), before);
    // Left: the first paste, into the empty table.
    EXPECT_EQ(gui->getTableUndoCount(), 1);
    undo();
    EXPECT_EQ(column(table, 1, 0, 6), "\n\n\n\n\n\n\n");
    EXPECT_FALSE(gui->getUndoTableButton()->isEnabled());
}

TEST_F(Tables, TheTwentyFirstEditDropsTheOldest) {
    chooseRange(RANGE_360_830_2NM);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    // Edit k writes "k" into row 0.
    for (int k = 1; k <= VantrelGUI::TABLE_UNDO_LEVELS + 1; ++k) {
        table->setCurrentItem(0, 1);
        table->pasteText(std::to_string(k).c_str());
        EXPECT_TRUE(gui->getUndoTableButton()->isEnabled());
    }
    EXPECT_EQ(gui->getTableUndoCount(), VantrelGUI::TABLE_UNDO_LEVELS);
    for (int k = VantrelGUI::TABLE_UNDO_LEVELS; k >= 1; --k) {
        undo();
        EXPECT_EQ(std::string(table->getItemText(0, 1).text()), std::to_string(k));
    }
    // The record of the first paste (the empty cell before "1") is gone.
    undo();
    EXPECT_EQ(table->getItemText(0, 1), "1");
    EXPECT_FALSE(gui->getUndoTableButton()->isEnabled());
}

TEST_F(Tables, PasteReadsDecimalCommasMixedSeparatorsAndSurvivesBinary) {
    chooseRange(RANGE_FREE_FORMAT);
    Table_zwk7* table = gui->getInputTable(RANGE_FREE_FORMAT);
    // With comma decimals off, "," is the decimal point of a cell pasted alone.
    table->setCurrentItem(0, 1);
    table->pasteText("1,5");
    EXPECT_EQ(table->getItemText(0, 1), "1.5");
    EXPECT_DOUBLE_EQ(table->toDouble(0, 1), 1.5);
    // Tabs and line ends of every kind.
    paste(RANGE_FREE_FORMAT, "400\t0.5\r\n402\t0.75\r404\t1\n");
    EXPECT_EQ(column(table, 1, 0, 2), "0.5\n0.75\n1\n");
    // Binary noise: no crash, the rows stay rows, and undo takes it back.
    paste(RANGE_FREE_FORMAT, std::string("\x01\xff\x7f\t\x80\n\x02", 7));
    undo();
    EXPECT_EQ(column(table, 1, 0, 2), "0.5\n0.75\n1\n");
    // A block wider than the table is cut to fit and tells of it.
    table->resetSizeError();
    paste(RANGE_FREE_FORMAT, "1\t2\t3\t4\n");
    EXPECT_TRUE(table->getSizeError());
    EXPECT_EQ(table->getNumColumns(), 2);
}

TEST_F(Tables, InvertingAHundredFilledRowsOfTheFreeTableTurnsOnlyThose) {
    chooseRange(RANGE_FREE_FORMAT);
    Table_zwk7* table = gui->getInputTable(RANGE_FREE_FORMAT);
    ASSERT_EQ(table->getNumRows(), 2048);
    std::string text;
    for (int r = 0; r < 100; ++r)
        text += std::to_string(830 - 2 * r) + "\t" + std::to_string(r) + "\n";
    paste(RANGE_FREE_FORMAT, text);
    gui->onCmdInvertValuesInTable(nullptr, 0, nullptr);
    EXPECT_EQ(table->getItemText(0, 0), "632");
    EXPECT_EQ(table->getItemText(0, 1), "99");
    EXPECT_EQ(table->getItemText(99, 0), "830");
    EXPECT_EQ(table->getItemText(99, 1), "0");
    EXPECT_TRUE(table->isEmpty(100, 0));
    EXPECT_TRUE(table->isEmpty(2047, 1));
    EXPECT_EQ(table->getNumRows(), 2048);
    // A paste longer than the table grows it, and undo shrinks it again.
    std::string longText;
    for (int r = 0; r < 2100; ++r) longText += "1\t1\n";
    paste(RANGE_FREE_FORMAT, longText);
    EXPECT_EQ(table->getNumRows(), 2100);
    undo();
    EXPECT_EQ(table->getNumRows(), 2048);
    EXPECT_EQ(table->getItemText(0, 0), "632");
}

TEST_F(Tables, TheWavelengthsAndTheDisplayTableStayOutOfReach) {
    chooseRange(RANGE_360_830_5NM);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_5NM);
    table->selectRange(0, 3, 0, 0);
    pressKey(table, KEY_Delete);
    EXPECT_EQ(table->getItemText(0, 0), "360");
    EXPECT_EQ(gui->getTableUndoCount(), 0);
    table->killSelection();

    // The popup: on the value column of an input table, not on the wavelengths.
    EXPECT_TRUE(gui->tablePopupEntries(table, 0, 0).empty());
    const std::vector<std::string> entries = gui->tablePopupEntries(table, 0, 1);
    const std::vector<std::string> expected = {
        "Replace cells from this one to the beginning with 0.0",
        "Replace cells from this one to the end with 0.0",
        "Invert values in table",
        "Paste selection from clipboard",
        "Undo changes to table",
        "Cancel"};
    EXPECT_EQ(entries, expected);
    EXPECT_TRUE(gui->isEditableTableColumn(table, 1));
    EXPECT_FALSE(gui->isEditableTableColumn(table, 0));
    EXPECT_TRUE(gui->isEditableTableColumn(gui->getInputTable(RANGE_FREE_FORMAT), 0));

    // The display table of a mix is read-only until matching gives it a third column.
    chooseAnalysis(0);
    Table_zwk7* display = gui->getDisplayTable();
    EXPECT_TRUE(gui->tablePopupEntries(display, 10, 1).empty());
    EXPECT_FALSE(gui->isEditableTableColumn(display, 1));
    gui->getSettings().setBool("enableMatchingMenuItem", true);
    const std::vector<std::string> matching = gui->tablePopupEntries(display, 10, 2);
    ASSERT_EQ(matching.size(), 7u);
    EXPECT_EQ(matching[2], "Copy spectrum into the matching column");
}

TEST_F(Tables, CopyAndPasteThroughTheClipboardKeepTheWavelengthsAndCanBeUndone) {
    chooseRange(RANGE_360_830_5NM);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_5NM);
    paste(RANGE_360_830_5NM, "360\t1.5\n365\t2\n370\t2.5\n");
    table->selectRange(0, 2, 0, 1);
    table->handle(table, FXSEL(SEL_COMMAND, FXTable::ID_COPY_SEL), nullptr);
    table->killSelection();
    table->setCurrentItem(10, 0);
    table->handle(table, FXSEL(SEL_COMMAND, FXTable::ID_PASTE_SEL), nullptr);
    EXPECT_EQ(column(table, 1, 10, 12), "1.5\n2\n2.5\n");
    EXPECT_EQ(table->getItemText(10, 0), "410");  // the fixed wavelength stays
    undo();
    EXPECT_EQ(column(table, 1, 10, 12), "\n\n\n");

    // Where the user may not type, the paste is refused.
    chooseAnalysis(0);
    Table_zwk7* display = gui->getDisplayTable();
    display->setCurrentItem(10, 1);
    const int records = gui->getTableUndoCount();
    display->handle(display, FXSEL(SEL_COMMAND, FXTable::ID_PASTE_SEL), nullptr);
    EXPECT_EQ(display->getItemText(10, 1), "");
    EXPECT_EQ(gui->getTableUndoCount(), records);
}
