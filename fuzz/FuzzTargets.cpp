#include "FuzzTargets.h"

const FuzzTargetEntry FUZZ_TARGETS[] = {
    {"settings", fuzzSettings},
    {"library", fuzzLibrary},
    {"dutycycle", fuzzDutyCycle},
    {"spectrometer", fuzzSpectrometer},
    {"updateanswer", fuzzUpdateAnswer},
};
const std::size_t NUM_FUZZ_TARGETS = sizeof FUZZ_TARGETS / sizeof FUZZ_TARGETS[0];
