// Program-wide names and texts shared by the window, the command-line tool and the files.
#ifndef LUMIVAR_CORE_APPCONSTANTS_H
#define LUMIVAR_CORE_APPCONSTANTS_H

constexpr const char* APP_NAME = "Lumivar";
constexpr const char* USER_DESIGNS_FILE_EXT = ".vtd";
// Shown wherever a value has no meaning.
constexpr const char* UNDEFINED_TERM = "N/A";
constexpr int VERSION_MAJOR = 7;
constexpr int VERSION_MINOR = 77;

#endif  // LUMIVAR_CORE_APPCONSTANTS_H
