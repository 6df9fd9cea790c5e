// Opening a web page or a document with the desktop's opener (xdg-open by default): the command
// runs with the target as its one argument, never through a shell, and the program does not
// wait for it.
#ifndef LUMIVAR_CORE_DOCUMENTOPENER_H
#define LUMIVAR_CORE_DOCUMENTOPENER_H

#include <string>

// Starts `command target` detached from the program. False, with *error set, when the command
// can't be started (not found, not executable); what the opener does afterwards is its own.
bool openDocument(const std::string& command, const std::string& target, std::string* error);

#endif  // LUMIVAR_CORE_DOCUMENTOPENER_H
