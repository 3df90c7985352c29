#ifndef STANDALONE_OUTPUT_XLSX_WORKBOOK_H
#define STANDALONE_OUTPUT_XLSX_WORKBOOK_H

#include <cstddef>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "standalone/files/spool.h"

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace standalone {

/// The names of sheets that are taken, in upper case, and the number up to which others were made of each.
using SheetNames = std::map<std::string, int>;

/// A name for a sheet: at most 31 characters, none of which is forbidden, and none of `taken`, to which it is added.
std::string SheetName(std::string_view name, SheetNames& taken);

/// How a cell looks. Texts stay texts whatever they begin with; percentages are shares, shown times 100; a probability
/// that would be shown as 0 is "<0.0001".
enum class CellStyle { kText, kLines, kTitle, kHeading, kNumber, kPercentage, kProbability };

/// A workbook as spreadsheets open it, made sheet by sheet. Every function throws std::runtime_error with one sentence.
class Workbook {
 public:
  Workbook();
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;
  ~Workbook();

  static constexpr std::size_t kRows = 1'048'576;
  static constexpr std::size_t kColumns = 16'384;

  bool IsEmpty() const { return fSheet == nullptr; }

  /// Begins a sheet, on which all is written from now on. Its name is made of `name`: valid, and none that is taken.
  void AddSheet(std::string_view name);

  // Rows and columns count from 0 and stay below the limits above.

  /// A text of more than 32,767 characters ends with "..." there: no cell holds more.
  void Text(std::size_t row, std::size_t column, std::string_view text, CellStyle style = CellStyle::kText);

  /// The same over several columns.
  void Heading(std::size_t row, std::size_t first, std::size_t last, std::string_view text);

  void Number(std::size_t row, std::size_t column, double number, int decimals, CellStyle style = CellStyle::kNumber);

  /// The rows above and the columns left of a cell stay where they are when the rest is scrolled.
  void Freeze(std::size_t row, std::size_t column);

  void SetWidth(std::size_t first, std::size_t last, double characters);

  /// Writes the whole; nothing can be added afterwards.
  void WriteTo(std::ostream& stream);

 private:
  lxw_format* FormatOf(CellStyle style, int decimals);

  Spool fSpool;
  std::unique_ptr<lxw_workbook, void (*)(lxw_workbook*)> fWorkbook;
  lxw_worksheet* fSheet = nullptr;  // of the workbook, as the formats are
  std::map<std::pair<CellStyle, int>, lxw_format*> fFormats;
  SheetNames fNames;
  std::size_t fBytes = 0;  // that are enough for what was written
};

/// A text as a cell holds it: line ends as "\n", what acts on a terminal in its visible form, what XML or the format
/// has a meaning of its own for so that it stays what it is, and no more than a cell holds.
std::string CellText(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_XLSX_WORKBOOK_H
