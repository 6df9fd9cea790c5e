// The stateless toolbox that the windows share: flag and int conversions, the value pairs of
// the settings file, rounding and number display, name matching and legal names, a table dump,
// image saving, clipboard copies and the program's own "save as" dialog loop.
// Every operation is static, so a window may hold the class by value or call it by name.
#ifndef LUMIVAR_GUI_UTILITIES_ZWK7_H
#define LUMIVAR_GUI_UTILITIES_ZWK7_H

#include <fx.h>

class Utilities_zwk7 {
  public:
    // Characters that no file name may hold: \ : / * ? " < > | and tab.
    static constexpr int NUM_ILLEGAL_FILENAME_CHARS = 10;
    static const char illegalCharFilenameArray[NUM_ILLEGAL_FILENAME_CHARS];

    // Red plus green plus blue of a colour field at which its text turns from white to black.
    static int getRGBBlackWhiteTextCutoff() { return 360; }

    static bool intToBool(int value) { return value != 0; }
    static int boolToInt(bool value) { return value ? 1 : 0; }
    // FOX 1.6 keeps its FXbool as an unsigned char.
    static int boolToInt(unsigned char value) { return value != 0 ? 1 : 0; }

    // Value groups of settings lines ("%d %d", "%d %lf", ...). The result is true when every
    // number was read; what could be read is written as sscanf writes it. In the bool form
    // only a second value of exactly 1 is true. The FXString forms take the rest of the text
    // after the leading numbers, trimmed.
    static bool get2Values(const FXString& text, int* a, bool* b);
    static bool get2Values(const FXString& text, int* a, int* b);
    static bool get2Values(const FXString& text, int* a, double* b);
    static bool get2Values(const FXString& text, int* a, FXString* b);
    static bool get3Values(const FXString& text, int* a, int* b, int* c);
    static bool get3Values(const FXString& text, int* a, int* b, double* c);
    static bool get3Values(const FXString& text, int* a, int* b, FXString* c);
    static bool get4Values(const FXString& text, int* a, int* b, int* c, int* d);

    // The number after the last "_" of a settings tag: "<lumens_360_830nm_TF_12>" gives 12.
    // A tag without "_" is read whole; text that is no number gives 0.
    static int getIndexFromKeyStr(const FXString& key);

    // The number test of table cells and typed values: blanks around are ignored, "e" counts
    // as "E", "." and "," are both decimal points (at most one in all), a sign only in front
    // or right after "E", digits on both sides of "E", and at least one digit.
    static bool isValidDouble(const FXString& text);

    // Smallest / largest of n values and where it stands first (index -1 and 0 when n < 1).
    // index may be null.
    static double min_d(int n, const double* values, int* index);
    static double max_d(int n, const double* values, int* index);

    // Half away from zero.
    static int round(double value);
    // Rounds and adds half a step: 1.24 at one decimal gives 1.25 (deliberate, see ValueFormat).
    static double roundToDecimals(int decimals, double value);
    static FXString getValueAsString(double value);
    static int displayDecimals(double value);

    // The text between the first character and the last `last`, trimmed: ">5000</" with '<'
    // gives "5000". Without `last` everything after the first character is kept.
    static FXString cleanString(const FXString& text, char last);

    // Unless exact, case, inner runs of white space and the ends do not count.
    static bool doNamesMatch(const FXString& a, const FXString& b, bool exact);
    // As doNamesMatch, and unless exact a leading apostrophe (a spreadsheet's mark of a text
    // cell) is ignored.
    static bool doExcelNamesMatch(const FXString& a, const FXString& b, bool exact);

    // Column titles (tabs and line feeds inside a title become a blank), then one line per row;
    // cells separated by tabs. False when the file can't be opened.
    static bool writeTableToFile(const FXString& path, const FXTable* table);

    // Neighbour swaps with an early stop; companions (may be null) move with keys. Two
    // neighbours swap when sign * keys[j+1] < keys[j], sign -1 for descending. Deliberate: this
    // test orders ascending keys of any sign, but the descending form reverses the order of
    // positive keys and leaves negative keys alone; callers pass positive keys in ascending
    // order to get them descending.
    static void bubbleSort(bool ascending, int* keys, int* companions, int n);
    // Ascending.
    static void bubbleSort(int* keys, int* companions, int n);
    // Swaps *keyA with *keyB and *companionA with *companionB (either companion may be null).
    static void swap(int* keyA, int* keyB, int* companionA, int* companionB);

    // Puts the picture on the clipboard as a bitmap ("image/bmp").
    static void copyToClipboard(FXApp* app, const FXImage* image);
    static void copyToClipboard(FXApp* app, const FXCanvas* canvas);
    static void copyToClipboard(FXApp* app, const FXCanvas* canvas, int width, int height);

    // Writes the drawable as a BMP file; false when the file can't be opened or written.
    static bool saveImageToFile(FXApp* app, const FXDrawable* drawable, const FXString& path);

    // The "save as" loop: a file dialog with the pattern "*" + extension starting at
    // *directory; the typed name gets the extension (once) or, with a suffix, loses its own
    // extension and gets suffix + extension; illegal names and a refused replace bring the
    // dialog back. True with *path, *directory and *name set when a file was chosen.
    static bool saveFile(FXWindow* owner, const FXString& title, const FXString& extension,
                         const FXString& defaultName, const FXString& suffix, FXString* directory,
                         FXString* name, FXString* path, bool existingOnly);
    // Without a suffix.
    static bool saveFile(FXWindow* owner, const FXString& title, const FXString& extension,
                         const FXString& defaultName, FXString* directory, FXString* name,
                         FXString* path, bool existingOnly = false);
    // Any file name may be chosen; an existing file asks before it is replaced.
    static bool saveFile(FXWindow* owner, const FXString& title, const FXString& extension,
                         const FXString& defaultName, const FXString& suffix, FXString* directory,
                         FXString* name, FXString* path);

    // True when the path is free to write: absent, or removed now. When it can't be removed
    // (a spreadsheet holds it open) an owner gets the "File error" box.
    static bool deleteBeforeWritting(FXWindow* owner, const FXString& path);

    // Trimmed, not empty, none of illegalCharFilenameArray.
    static bool isFilenameLegal(const FXString& name);
    // Trimmed, not empty, no tab or line feed: library and table items live in tab-delimited
    // lines.
    static bool isItemNameLegal(const FXString& name);

    // Spreadsheet column letters of a zero-based column: A..Z, AA..ZZ, AAA...; "" below 0.
    static FXString excelColumnNames(int column);
};

#endif  // LUMIVAR_GUI_UTILITIES_ZWK7_H
