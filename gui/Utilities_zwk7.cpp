#include "Utilities_zwk7.h"

#include <cstdio>

#include "ClipboardImage.h"
#include "NumberText.h"
#include "UserDialogs.h"
#include "ValueFormat.h"

const char Utilities_zwk7::illegalCharFilenameArray[NUM_ILLEGAL_FILENAME_CHARS] = {
    '\\', ':', '/', '*', '?', '"', '<', '>', '|', '\t'};

namespace {
// The text behind the first `count` blank-separated numbers of a settings line, trimmed.
FXString restAfterNumbers(const FXString& text, int count) {
    const char* p = text.text();
    for (int k = 0; k < count; ++k) {
        while (*p == ' ' || *p == '\t') ++p;
        while (*p && *p != ' ' && *p != '\t') ++p;
    }
    FXString rest(p);
    return rest.trim();
}
}  // namespace

bool Utilities_zwk7::get2Values(const FXString& text, int* a, bool* b) {
    int second = 0;
    const bool ok = std::sscanf(text.text(), "%d %d", a, &second) == 2;
    if (ok) *b = second == 1;  // only exactly 1 is on: older files wrote other flags
    return ok;
}

bool Utilities_zwk7::get2Values(const FXString& text, int* a, int* b) {
    return std::sscanf(text.text(), "%d %d", a, b) == 2;
}

bool Utilities_zwk7::get2Values(const FXString& text, int* a, double* b) {
    return std::sscanf(text.text(), "%d %lf", a, b) == 2;
}

bool Utilities_zwk7::get2Values(const FXString& text, int* a, FXString* b) {
    if (std::sscanf(text.text(), "%d", a) != 1) return false;
    *b = restAfterNumbers(text, 1);
    return true;
}

bool Utilities_zwk7::get3Values(const FXString& text, int* a, int* b, int* c) {
    return std::sscanf(text.text(), "%d %d %d", a, b, c) == 3;
}

bool Utilities_zwk7::get3Values(const FXString& text, int* a, int* b, double* c) {
    return std::sscanf(text.text(), "%d %d %lf", a, b, c) == 3;
}

bool Utilities_zwk7::get3Values(const FXString& text, int* a, int* b, FXString* c) {
    if (std::sscanf(text.text(), "%d %d", a, b) != 2) return false;
    *c = restAfterNumbers(text, 2);
    return true;
}

bool Utilities_zwk7::get4Values(const FXString& text, int* a, int* b, int* c, int* d) {
    return std::sscanf(text.text(), "%d %d %d %d", a, b, c, d) == 4;
}

int Utilities_zwk7::getIndexFromKeyStr(const FXString& key) {
    FXString tail = key.mid(key.rfind('_') + 1, key.length());
    tail.substitute(">", "");
    return FXIntVal(tail.trim(), 10);
}

bool Utilities_zwk7::isValidDouble(const FXString& input) {
    return isValidDoubleText(input.text());
}

double Utilities_zwk7::min_d(int n, const double* values, int* index) {
    int best = n > 0 ? 0 : -1;
    for (int k = 1; k < n; ++k)
        if (values[k] < values[best]) best = k;
    if (index) *index = best;
    return best >= 0 ? values[best] : 0.0;
}

double Utilities_zwk7::max_d(int n, const double* values, int* index) {
    int best = n > 0 ? 0 : -1;
    for (int k = 1; k < n; ++k)
        if (values[k] > values[best]) best = k;
    if (index) *index = best;
    return best >= 0 ? values[best] : 0.0;
}

int Utilities_zwk7::round(double value) { return ValueFormat::round(value); }

double Utilities_zwk7::roundToDecimals(int decimals, double value) {
    return ValueFormat::roundToDecimals(decimals, value);
}

FXString Utilities_zwk7::getValueAsString(double value) {
    return FXString(ValueFormat::getValueAsString(value).c_str());
}

int Utilities_zwk7::displayDecimals(double value) { return ValueFormat::displayDecimals(value); }

FXString Utilities_zwk7::cleanString(const FXString& text, char last) {
    const int end = text.rfind(last);
    FXString inner = end < 0 ? text.mid(1, text.length()) : text.mid(1, end - 1);
    return inner.trim();
}

bool Utilities_zwk7::doNamesMatch(const FXString& a, const FXString& b, bool exact) {
    if (exact) return a == b;
    FXString x(a), y(b);
    x.lower().simplify().trim();
    y.lower().simplify().trim();
    return x == y;
}

bool Utilities_zwk7::doExcelNamesMatch(const FXString& a, const FXString& b, bool exact) {
    if (exact) return a == b;
    const FXString x = a[0] == '\'' ? a.mid(1, a.length()) : a;
    const FXString y = b[0] == '\'' ? b.mid(1, b.length()) : b;
    return doNamesMatch(x, y, false);
}

bool Utilities_zwk7::writeTableToFile(const FXString& path, const FXTable* table) {
    if (!table) return false;
    FILE* file = std::fopen(path.text(), "w");
    if (!file) return false;
    const int rows = table->getNumRows();
    const int cols = table->getNumColumns();
    for (int c = 0; c < cols; ++c) {
        FXString title = table->getColumnText(c);
        title.substitute('\t', ' ').substitute('\n', ' ');
        std::fprintf(file, "%s%s", c ? "\t" : "", title.text());
    }
    std::fputc('\n', file);
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < cols; ++c)
            std::fprintf(file, "%s%s", c ? "\t" : "", table->getItemText(r, c).text());
        std::fputc('\n', file);
    }
    return std::fclose(file) == 0;
}

void Utilities_zwk7::bubbleSort(bool ascending, int* keys, int* companions, int n) {
    const int sign = ascending ? 1 : -1;
    for (int pass = 0; pass < n - 1; ++pass) {
        bool swapped = false;
        for (int j = 0; j < n - 1 - pass; ++j) {
            // Deliberate: the sign multiplies only the right-hand key (see the header).
            if (sign * keys[j + 1] < keys[j]) {
                swap(&keys[j], &keys[j + 1], companions ? &companions[j] : nullptr,
                     companions ? &companions[j + 1] : nullptr);
                swapped = true;
            }
        }
        if (!swapped) break;
    }
}

void Utilities_zwk7::bubbleSort(int* keys, int* companions, int n) {
    bubbleSort(true, keys, companions, n);
}

void Utilities_zwk7::swap(int* keyA, int* keyB, int* companionA, int* companionB) {
    const int key = *keyA;
    *keyA = *keyB;
    *keyB = key;
    if (companionA && companionB) {
        const int companion = *companionA;
        *companionA = *companionB;
        *companionB = companion;
    }
}

void Utilities_zwk7::copyToClipboard(FXApp* app, const FXImage* image) {
    if (!app || !image) return;
    ClipboardImage::offer(app, image->getData(), image->getWidth(), image->getHeight());
}

void Utilities_zwk7::copyToClipboard(FXApp* app, const FXCanvas* canvas) {
    if (!canvas) return;
    copyToClipboard(app, canvas, canvas->getWidth(), canvas->getHeight());
}

void Utilities_zwk7::copyToClipboard(FXApp* app, const FXCanvas* canvas, int width, int height) {
    if (!app || !canvas || width < 1 || height < 1) return;
    FXImage image(app, nullptr, IMAGE_KEEP, width, height);
    image.create();
    {
        FXDCWindow dc(&image);
        dc.drawArea(canvas, 0, 0, width, height, 0, 0);
    }
    image.restore();
    copyToClipboard(app, &image);
}

bool Utilities_zwk7::saveImageToFile(FXApp* app, const FXDrawable* drawable, const FXString& path) {
    if (!app || !drawable || drawable->getWidth() < 1 || drawable->getHeight() < 1) return false;
    FXBMPImage image(app, nullptr, IMAGE_KEEP, drawable->getWidth(), drawable->getHeight());
    image.create();
    {
        FXDCWindow dc(&image);
        dc.drawArea(drawable, 0, 0, drawable->getWidth(), drawable->getHeight(), 0, 0);
    }
    image.restore();
    FXFileStream stream;
    if (!stream.open(path, FXStreamSave, 8192)) return false;
    const bool written = image.savePixels(stream);
    const bool closed = stream.close();
    return written && closed;
}

bool Utilities_zwk7::saveFile(FXWindow* owner, const FXString& title, const FXString& extension,
                              const FXString& defaultName, const FXString& suffix,
                              FXString* directory, FXString* name, FXString* path,
                              bool existingOnly) {
    const FXString bareExtension =
        extension[0] == '.' ? extension.mid(1, extension.length()) : extension;
    FXString shownName = defaultName;
    while (true) {
        FXString chosen;
        if (!UserDialogs::chooseFile(owner, title, "*" + extension, *directory, shownName,
                                     existingOnly, &chosen))
            return false;
        FXString fileName = FXPath::name(chosen);
        if (suffix.empty()) {
            // "out.xls" typed for ".xls" stays "out.xls", not "out.xls.xls".
            if (!bareExtension.empty() &&
                comparecase(FXPath::extension(fileName), bareExtension) == 0)
                fileName = FXPath::stripExtension(fileName);
            fileName += extension;
        } else {
            fileName = FXPath::stripExtension(fileName) + suffix + extension;
        }
        shownName = fileName;
        if (!isFilenameLegal(fileName)) {
            FXString legal("Illegal characters include: ");
            for (int k = 0; k < NUM_ILLEGAL_FILENAME_CHARS; ++k) {
                if (k) legal += ' ';
                legal += illegalCharFilenameArray[k];
            }
            UserDialogs::error(owner, "Filename error",
                               "Your filename contains illegal characters.\n\n%s", legal.text());
            continue;
        }
        const FXString folder = FXPath::directory(chosen);
        *path = FXPath::absolute(folder, fileName);
        *directory = folder;
        *name = fileName;
        if (!existingOnly && FXStat::exists(*path) &&
            UserDialogs::warning(owner, MBOX_YES_NO, "Confirm Save As",
                                 "\"%s\" already exists.\nDo you want to replace it?",
                                 fileName.text()) != MBOX_CLICKED_YES)
            continue;
        return true;
    }
}

bool Utilities_zwk7::saveFile(FXWindow* owner, const FXString& title, const FXString& extension,
                              const FXString& defaultName, FXString* directory, FXString* name,
                              FXString* path, bool existingOnly) {
    return saveFile(owner, title, extension, defaultName, FXString(), directory, name, path,
                    existingOnly);
}

bool Utilities_zwk7::saveFile(FXWindow* owner, const FXString& title, const FXString& extension,
                              const FXString& defaultName, const FXString& suffix,
                              FXString* directory, FXString* name, FXString* path) {
    return saveFile(owner, title, extension, defaultName, suffix, directory, name, path, false);
}

bool Utilities_zwk7::deleteBeforeWritting(FXWindow* owner, const FXString& path) {
    if (!FXStat::exists(path)) return true;
    if (FXFile::remove(path)) return true;
    if (owner)
        UserDialogs::error(
            owner, "File error",
            "Cannot open \"%s\" for writing\nIt may already be open, if so close it and try again.",
            path.text());
    return false;
}

bool Utilities_zwk7::isFilenameLegal(const FXString& name) {
    FXString trimmed(name);
    if (trimmed.trim().empty()) return false;
    for (int k = 0; k < NUM_ILLEGAL_FILENAME_CHARS; ++k)
        if (trimmed.contains(illegalCharFilenameArray[k])) return false;
    return true;
}

bool Utilities_zwk7::isItemNameLegal(const FXString& name) {
    FXString trimmed(name);
    if (trimmed.trim().empty()) return false;
    return !trimmed.contains('\t') && !trimmed.contains('\n');
}

FXString Utilities_zwk7::excelColumnNames(int column) {
    FXString letters;
    // Bijective base 26: after Z comes AA, not BA.
    for (int n = column + 1; n > 0; n = (n - 1) / 26) letters.prepend('A' + (n - 1) % 26);
    return letters;
}
