#include "standalone/run/script_source.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

namespace standalone {
namespace {

std::string ReadAll(std::istream& stream, const std::string& name) {
  std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (stream.bad()) {
    throw ScriptError(fmt::format("The script {} cannot be read to its end.", name));
  }
  return text;
}

}  // namespace

std::string ReadScript(const std::string& path) {
  if (path == "-") {
    return ReadAll(std::cin, "on standard input");
  }
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) {
    throw ScriptError(fmt::format("The script {} cannot be read: it is a directory.", path));
  }
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw ScriptError(fmt::format("The script {} cannot be read: {}.", path, std::strerror(errno)));
  }
  return ReadAll(file, path);
}

}  // namespace standalone
