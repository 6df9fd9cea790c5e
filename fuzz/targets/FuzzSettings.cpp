#include <sstream>
#include <string>

#include "FuzzTargets.h"
#include "ProgramSettings.h"

// Any bytes must read without a crash or a hang, and what was read must write again.
void fuzzSettings(const std::uint8_t* data, std::size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    ProgramSettings settings;
    settings.read(in, (size & 1) != 0);
    settings.toText(true);
}
