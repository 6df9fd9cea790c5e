// The result values of a calculation as fields with fixed numbers, so that the tab-delimited
// photometry file can write them in an order the user chooses.
#ifndef LUMIVAR_CORE_OUTPUTFIELD_H
#define LUMIVAR_CORE_OUTPUTFIELD_H

#include <string>

constexpr int NUM_OUTPUT_FIELDS = 151;

struct OutputField {
    bool selected = true;  // written to the tab-delimited file
    int index = 0;         // the field's fixed number
    std::string value;     // the text the field last showed
    std::string name;      // its label and its key in the order file
};

// The label of field `index` ("Lumens", "R1", "Rfh,16", ...), empty outside 0 to 150.
std::string outputFieldName(int index);
// The number of the field with this label, or -1.
int outputFieldIndex(const std::string& name);

// Every field included, in natural order, with its name.
void resetOutputOrder(OutputField* fields, int* order);

#endif  // LUMIVAR_CORE_OUTPUTFIELD_H
