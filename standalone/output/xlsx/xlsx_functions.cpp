#include "standalone/output/xlsx/xlsx_functions.h"

#include <fmt/format.h>

#include <string>

#include "standalone/files/program_module.h"
#include "standalone/text/error.h"

namespace standalone {
namespace {

const XlsxFunctions& Load() {
  const std::string path = ModulePath("mrset-xlsx.so", "it writes workbooks and comes with the program");
  const void* functions = LoadFromModule(path, "mrsetXlsx");
  if (functions == nullptr) {
    throw Error(fmt::format("The file {} is not the module that writes workbooks: it has no mrsetXlsx.", path));
  }
  return *static_cast<const XlsxFunctions*>(functions);
}

}  // namespace

const XlsxFunctions& Xlsx() {
  static const XlsxFunctions& functions = Load();
  return functions;
}

}  // namespace standalone
