// The per-user folder that holds the settings file and the user libraries.
#ifndef LUMIVAR_CORE_PROGRAMFOLDER_H
#define LUMIVAR_CORE_PROGRAMFOLDER_H

#include <string>

// Name of the per-user folder under the home folder.
constexpr const char* PROGRAM_FOLDER_NAME = "Lumivar_KBI";

// argFolder: the one command-line argument, or empty. When it names a directory, that is the
// folder. Otherwise the base is homeEnv (the environment's HOME), or passwordHome when HOME is
// unset (homeEnv null); the folder is base + "/Lumivar_KBI", made with mode 0777 when missing;
// when it still does not exist the base itself is used. The result ends with "/".
std::string chooseProgramDir(const std::string& argFolder, const char* homeEnv,
                             const std::string& passwordHome);

// The home folder from the password entry of the current user ("" when there is none).
std::string passwordHomeDirectory();

// Adds "/" unless the text already ends with one.
std::string withTrailingSlash(std::string path);

#endif  // LUMIVAR_CORE_PROGRAMFOLDER_H
