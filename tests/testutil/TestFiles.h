// Reading back the files the tests make.
#ifndef LUMIVAR_TESTS_TESTUTIL_TESTFILES_H
#define LUMIVAR_TESTS_TESTUTIL_TESTFILES_H

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace testutil {

// The whole file as bytes; empty when it can't be read.
inline std::string readAll(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

// The lines of a text, without their line feeds.
inline std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> all;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) all.push_back(line);
    return all;
}

}  // namespace testutil

#endif  // LUMIVAR_TESTS_TESTUTIL_TESTFILES_H
