#include "FuzzTargets.h"

const FuzzTargetEntry FUZZ_TARGETS[] = {
    {"settings", fuzzSettings},
};
const std::size_t NUM_FUZZ_TARGETS = sizeof FUZZ_TARGETS / sizeof FUZZ_TARGETS[0];
