// The bodies of the fuzz harnesses: each takes the bytes of one input file and runs one reader
// of user files on them. libFuzzer calls them through the fuzz_* programs; the test suite calls
// them on the inputs kept under tests/data/fuzz/<name>/, so an input that once found a fault is
// replayed at every test run.
#ifndef LUMIVAR_FUZZ_FUZZTARGETS_H
#define LUMIVAR_FUZZ_FUZZTARGETS_H

#include <cstddef>
#include <cstdint>

using FuzzTarget = void (*)(const std::uint8_t* data, std::size_t size);

// Settings and design files (ProgramSettings and the design rows).
void fuzzSettings(const std::uint8_t* data, std::size_t size);
// User libraries of each kind, current and old format, counted and read (ReadWriteUserSpectra).
void fuzzLibrary(const std::uint8_t* data, std::size_t size);
// Driver tables of the lamp design windows (ReadWriteLpwDutyCycleTable).
void fuzzDutyCycle(const std::uint8_t* data, std::size_t size);
// Spectrometer and column files (ProcessSpectrometerFiles, readSpectraText).
void fuzzSpectrometer(const std::uint8_t* data, std::size_t size);
// Answers of the update check's version server (CheckWebForUpdates::parseAnswer).
void fuzzUpdateAnswer(const std::uint8_t* data, std::size_t size);

struct FuzzTargetEntry {
    const char* name;  // harness fuzz_<name>, inputs under tests/data/fuzz/<name>/
    FuzzTarget run;
};
// Every harness, in one table.
extern const FuzzTargetEntry FUZZ_TARGETS[];
extern const std::size_t NUM_FUZZ_TARGETS;

#endif  // LUMIVAR_FUZZ_FUZZTARGETS_H
