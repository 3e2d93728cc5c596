#include "command.h"

#include <cstdio>
#include <optional>
#include <utility>

#include "whole_file.h"

namespace grub {

namespace {

template <class Contents>
Contents orFail(std::optional<Contents> contents, const std::string& path, int exitCode) {
    if (!contents) failWith(exitCode, path + ": cannot be read");
    return std::move(*contents);
}

}  // namespace

void failWith(int exitCode, const std::string& line) {
    std::fprintf(stderr, "%s\n", line.c_str());
    throw CommandEnd{exitCode};
}

std::vector<std::uint8_t> inputBytes(const std::string& path, int exitCode) {
    return orFail(readWholeFile(path), path, exitCode);
}

std::string inputText(const std::string& path, int exitCode) { return orFail(readWholeText(path), path, exitCode); }

void outputBytes(const std::string& path, std::span<const std::uint8_t> bytes, int exitCode) {
    outputText(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}, exitCode);
}

void outputText(const std::string& path, std::string_view text, int exitCode) {
    if (!writeWholeText(path, text)) failWith(exitCode, path + ": cannot be written");
}

}  // namespace grub
