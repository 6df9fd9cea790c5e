#include <cstdio>
#include <cstdlib>
#include <string>

#include "CheckWebForUpdates.h"
#include "FuzzTargets.h"

// The bytes are a whole answer of the version server. Every answer gives one of the three
// statuses an answer can give, and only an answer read as a version carries one.
void fuzzUpdateAnswer(const std::uint8_t* data, std::size_t size) {
    const std::string answer(reinterpret_cast<const char*>(data), size);
    double version = -1.0;
    const int status = CheckWebForUpdates::parseAnswer(answer, 7.77, &version);
    const bool known = status == CheckWebForUpdates::READ_ERROR ||
                       status == CheckWebForUpdates::NEW_VERSION ||
                       status == CheckWebForUpdates::CURRENT_VERSION;
    if (!known || (status == CheckWebForUpdates::READ_ERROR && version != 0.0) ||
        (status == CheckWebForUpdates::NEW_VERSION && !(version > 7.779))) {
        std::fprintf(stderr, "update answer: status %d with version %g\n", status, version);
        std::abort();
    }
}
