// One libFuzzer program per target: FUZZ_TARGET_NAME picks the body from the table.
#include <cstring>

#include "FuzzTargets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzTarget target = [] {
        for (std::size_t i = 0; i < NUM_FUZZ_TARGETS; ++i)
            if (std::strcmp(FUZZ_TARGETS[i].name, FUZZ_TARGET_NAME) == 0)
                return FUZZ_TARGETS[i].run;
        return static_cast<FuzzTarget>(nullptr);
    }();
    if (target != nullptr) target(data, size);
    return 0;
}
