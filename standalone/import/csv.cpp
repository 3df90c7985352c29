#include "standalone/import/csv.h"

#include <csv.h>
#include <fmt/format.h>

#include <algorithm>
#include <new>
#include <optional>

#include "standalone/import/importer.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

constexpr std::size_t kChunk = std::size_t{64} * 1024;
constexpr std::size_t kMaxRowBytes = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kSmallestGrowth = 4096;
constexpr char kCellEnd = ',';  // between the cells of the rows' text, so that no two of them make one character

int IsNoBlank(unsigned char) {
  return 0;
}

// LF, CRLF and CR each end one line.
std::size_t CountLineEnds(std::string_view text) {
  if (text.find('\n') == std::string_view::npos && text.find('\r') == std::string_view::npos) {
    return 0;  // as a rule, and much faster
  }
  std::size_t count = 0;
  for (std::size_t at = text.find_first_of("\r\n"); at != std::string_view::npos;
       at = text.find_first_of("\r\n", at + 1)) {
    count += text[at] == '\n' || text.substr(at + 1, 1) != "\n" ? 1 : 0;
  }
  return count;
}

/// The rows that are complete and not yet handed out, and the beginning of the one after them.
struct RowQueue {
  struct Row {
    std::size_t firstCell;
    std::size_t cellCount;
    std::size_t line;
  };

  std::string text;                   // of all cells, each with kCellEnd after it
  std::vector<std::size_t> cellEnds;  // offsets in `text`
  std::vector<Row> rows;
  std::size_t nextRow = 0;
  std::size_t firstOpenCell = 0;  // of the row that is not complete
  std::size_t line = 1;           // on which that row begins
  bool afterReturn = false;       // the line end before was a CR
  bool outOfMemory = false;       // no exception may pass through the parser

  std::size_t CellBegin(std::size_t cell) const { return cell == 0 ? 0 : cellEnds[cell - 1] + 1; }

  std::string_view TextOf(std::size_t firstCell, std::size_t lastCell) const {
    const std::size_t begin = CellBegin(firstCell);
    return std::string_view(text).substr(begin, lastCell < firstCell ? 0 : cellEnds[lastCell] - begin);
  }

  std::string_view OpenText() const { return std::string_view(text).substr(CellBegin(firstOpenCell)); }

  void AddCell(std::string_view cell) {
    text.append(cell);
    cellEnds.push_back(text.size());
    text.push_back(kCellEnd);
  }

  void EndRow(int terminator) {
    const bool isSecondHalf = terminator == '\n' && afterReturn && firstOpenCell == cellEnds.size();
    afterReturn = terminator == '\r';
    if (isSecondHalf) {
      return;
    }
    rows.push_back({firstOpenCell, cellEnds.size() - firstOpenCell, line});
    line += 1 + CountLineEnds(OpenText());
    firstOpenCell = cellEnds.size();
  }

  /// Forgets the rows, all of which have been handed out.
  void DropRows() {
    rows.clear();
    nextRow = 0;
    if (firstOpenCell == 0) {
      return;
    }
    const std::size_t offset = CellBegin(firstOpenCell);
    text.erase(0, offset);
    cellEnds.erase(cellEnds.begin(), cellEnds.begin() + static_cast<std::ptrdiff_t>(firstOpenCell));
    for (std::size_t& end : cellEnds) {
      end -= offset;
    }
    firstOpenCell = 0;
  }
};

/// After a failure the queue holds half of a cell: the parser goes on, and nothing more is taken from it.
template <typename Action>
void WithoutException(RowQueue& queue, Action action) {
  if (queue.outOfMemory) {
    return;
  }
  try {
    action();
  } catch (const std::bad_alloc&) {
    queue.outOfMemory = true;
  }
}

void TakeCell(void* cell, std::size_t size, void* context) {
  auto& queue = *static_cast<RowQueue*>(context);
  WithoutException(queue, [&] { queue.AddCell({static_cast<const char*>(cell), size}); });
}

void TakeRowEnd(int terminator, void* context) {
  auto& queue = *static_cast<RowQueue*>(context);
  WithoutException(queue, [&] { queue.EndRow(terminator); });
}

/// The parser of the library.
class Parser {
 public:
  Parser() {
    if (csv_init(&fParser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0) {
      throw std::bad_alloc();
    }
    csv_set_space_func(&fParser, IsNoBlank);
  }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  ~Parser() { csv_free(&fParser); }

  // False after an error.
  bool Parse(std::string_view text, RowQueue& queue) {
    // By default the buffer of a cell grows by little and each time all of it may be copied.
    csv_set_blk_size(&fParser, std::max(kSmallestGrowth, csv_get_buffer_size(&fParser)));
    const bool parsed = csv_parse(&fParser, text.data(), text.size(), TakeCell, TakeRowEnd, &queue) == text.size();
    return Succeeded(parsed, queue);
  }

  bool Finish(RowQueue& queue) { return Succeeded(csv_fini(&fParser, TakeCell, TakeRowEnd, &queue) == 0, queue); }

  std::string_view OpenCell() const {
    const void* text = fParser.entry_buf;
    return {static_cast<const char*>(text), text == nullptr ? 0 : fParser.entry_pos};
  }

 private:
  bool Succeeded(bool parsed, const RowQueue& queue) {
    if (queue.outOfMemory || (!parsed && csv_error(&fParser) != CSV_EPARSE)) {
      throw std::bad_alloc();
    }
    return parsed;
  }

  csv_parser fParser = {};
};

}  // namespace

class CsvReader::Implementation {
 public:
  explicit Implementation(InputFile& file) : fFile(file), fChunk(kChunk, '\0') { ReadHeader(); }

  bool NextRow();

  std::vector<std::string> fHeader;
  std::vector<std::string_view> fCells;
  std::size_t fLine = 0;

 private:
  void ReadHeader();
  bool NextQueuedRow();
  bool TakeRow();
  void CheckText(std::string_view text) const;
  void ParseMore();
  std::string_view ReadChunk();
  void FinishParse();
  [[noreturn]] void Fail(std::size_t line, const std::string& what) const;

  InputFile& fFile;
  std::string fChunk;
  bool fAtBegin = true;
  bool fAtEnd = false;
  Parser fParser;
  RowQueue fQueue;
  std::optional<std::string> fBadSyntax;  // met after the rows in the queue
  std::size_t fBadLine = 0;
};

void CsvReader::Implementation::ReadHeader() {
  do {
    if (!NextQueuedRow()) {
      throw Error(fFile.Path() + " is empty: there is no header row.");
    }
  } while (fCells.empty());
  fHeader.assign(fCells.begin(), fCells.end());
}

bool CsvReader::Implementation::NextRow() {
  do {
    if (!NextQueuedRow()) {
      return false;
    }
    if (fCells.empty() && fHeader.size() == 1) {
      fCells.emplace_back();
    }
  } while (fCells.empty());
  if (fCells.size() != fHeader.size()) {
    Fail(fLine, fmt::format("{} {} where the header has {}", fCells.size(), fCells.size() == 1 ? "cell" : "cells",
                            fHeader.size()));
  }
  return true;
}

bool CsvReader::Implementation::NextQueuedRow() {
  while (!TakeRow()) {
    if (fBadSyntax) {
      Fail(fBadLine, *fBadSyntax);
    }
    if (fAtEnd) {
      return false;
    }
    ParseMore();
  }
  return true;
}

bool CsvReader::Implementation::TakeRow() {
  if (fQueue.nextRow == fQueue.rows.size()) {
    return false;
  }
  const RowQueue::Row row = fQueue.rows[fQueue.nextRow++];
  fLine = row.line;
  fCells.clear();
  if (row.cellCount == 0) {
    return true;
  }
  CheckText(fQueue.TextOf(row.firstCell, row.firstCell + row.cellCount - 1));
  for (std::size_t cell = row.firstCell; cell < row.firstCell + row.cellCount; ++cell) {
    fCells.push_back(fQueue.TextOf(cell, cell));
  }
  return true;
}

void CsvReader::Implementation::CheckText(std::string_view text) const {
  const std::size_t nul = text.find('\0');
  if (nul != std::string_view::npos) {
    Fail(fLine + CountLineEnds(text.substr(0, nul)), "there is a NUL byte");
  }
  if (!IsValidUtf8(text)) {
    Fail(fLine, "the text is not valid UTF-8");
  }
}

void CsvReader::Implementation::ParseMore() {
  fQueue.DropRows();
  const std::string_view chunk = ReadChunk();
  if (chunk.empty()) {
    FinishParse();
    return;
  }
  const bool parsed = fParser.Parse(chunk, fQueue);
  const std::size_t openSize = fQueue.OpenText().size() + fParser.OpenCell().size();
  if (!parsed) {
    fBadLine = fQueue.line + CountLineEnds(fQueue.OpenText()) + CountLineEnds(fParser.OpenCell());
    fBadSyntax = "there is a stray quote: a cell that contains quotes is quoted as a whole and each of them doubled";
  } else if (openSize > kMaxRowBytes) {
    fBadLine = fQueue.line;
    fBadSyntax = fmt::format("a row is longer than {} bytes", kMaxRowBytes);
  }
}

std::string_view CsvReader::Implementation::ReadChunk() {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::size_t size = fFile.Read(fChunk.data(), fChunk.size());
  while (fAtBegin && size > 0 && size <= kByteOrderMark.size()) {  // a pipe may give less
    const std::size_t more = fFile.Read(fChunk.data() + size, fChunk.size() - size);
    if (more == 0) {
      break;
    }
    size += more;
  }
  std::string_view chunk(fChunk.data(), size);
  if (fAtBegin && chunk.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    chunk.remove_prefix(kByteOrderMark.size());
  }
  fAtBegin = false;
  return chunk;
}

void CsvReader::Implementation::FinishParse() {
  fAtEnd = true;
  const std::size_t line = fQueue.line + CountLineEnds(fQueue.OpenText());
  if (!fParser.Finish(fQueue)) {
    fBadLine = line;
    fBadSyntax = "the quote that opens here is not closed before the end of the file";
  }
}

void CsvReader::Implementation::Fail(std::size_t line, const std::string& what) const {
  throw Error(fmt::format("{}, line {}: {}.", fFile.Path(), line, what));
}

CsvReader::CsvReader(InputFile& file) : fImplementation(std::make_unique<Implementation>(file)) {}

CsvReader::~CsvReader() = default;

const std::vector<std::string>& CsvReader::Header() const {
  return fImplementation->fHeader;
}

bool CsvReader::NextRow() {
  return fImplementation->NextRow();
}

const std::vector<std::string_view>& CsvReader::Cells() const {
  return fImplementation->fCells;
}

std::size_t CsvReader::Line() const {
  return fImplementation->fLine;
}

}  // namespace standalone
