// The module mrset-xlsx.so, which is linked with the library that writes workbooks.
#include "standalone/output/xlsx/xlsx_functions.h"

extern "C" {
extern const standalone::XlsxFunctions mrsetXlsx;
const standalone::XlsxFunctions mrsetXlsx;
}
