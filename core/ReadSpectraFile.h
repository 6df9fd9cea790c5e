// One call for callers that want the spectra of a file, whatever its format: the command-line
// tool now, the window's import later.
//
// The format comes from the extension and, where an extension is shared, from the content:
//   ".isd"   SpecWin when one of the first 500 lines is a "Y-Unit=" line (SpecWin states its
//            unit there, and it is applied), otherwise Mole (always W/nm);
//   ".spdx"  IES TM-27 XML;  ".sp"  CGATS (one spectrum per set);
//   ".txt"   SpectraSuite when one of the first 500 lines starts ">>>>>Begin Processed";
//   anything else is columns of numbers. The first column holds the wavelengths unless it does
//   not look like wavelengths (strictly increasing, all within 100 to 2500 nm) while the last
//   column does: then the intensities come first. A file of exactly two columns with the
//   wavelengths first is read by the strict two-column reader (SpectrumFile.h), whose
//   line-numbered messages and rules it keeps; further columns are further spectra.
// Spectra are named as the import names them: the file's title for a file of one spectrum;
// for several, the column title, or "#1", "#2"... without one; CGATS sets "title (#1)".
#ifndef LUMIVAR_CORE_READSPECTRAFILE_H
#define LUMIVAR_CORE_READSPECTRAFILE_H

#include <string>
#include <vector>

#include "ProcessSpectrometerFiles.h"
#include "SpectrumFile.h"

struct NamedSpectrum {
    std::string name;
    SpectrumData data;  // wavelengths strictly increasing; values in W/nm (or as the file has
                        // them), negatives set to 0
};

struct SpectraFileResult {
    bool ok = false;
    std::string error;          // empty when ok
    int errorLine = 0;          // 1-based line of the error, 0 when it concerns the whole file
    int firstNegativeLine = 0;  // first line with a negative value (set to 0), or 0
    int fileType = ProcessSpectrometerFiles::UNKNOWN_TYPE;  // a ProcessSpectrometerFiles type
    std::vector<NamedSpectrum> spectra;                     // at least one when ok
};

// The ProcessSpectrometerFiles type of bytes named name, by the rules above (columns of
// numbers give TWO_COLUMNS_NM_FIRST; which column holds the wavelengths is decided on reading).
int detectSpectraFileType(const std::string& bytes, const std::string& name);
// The spectra of bytes that were read from the file name.
SpectraFileResult readSpectraText(const std::string& bytes, const std::string& name);
// The spectra of the file at path (at most PROCESS_SPECTROMETER_MAX_FILE_BYTES are read).
SpectraFileResult readSpectraFile(const std::string& path);
// A file's name without its folder and its last extension, as spectra from it are named.
std::string fileTitle(const std::string& path);

#endif  // LUMIVAR_CORE_READSPECTRAFILE_H
