#ifndef HOST_OUTPUT_H
#define HOST_OUTPUT_H

#include <cstdint>
#include <string>

// Objects of the host's output. Each object is the caller's handle of a record that the host keeps; the destructor
// releases the handle, and what was put into the output stays there. Texts are in the host's multibyte encoding. Text
// flags are true for a program's own fixed texts and message templates, false for data and display patterns.

class BpCategory;
class BpDimension;
class BpPivotTable;

/// A handle of an output record.
class BpHandle {
 public:
  BpHandle(const BpHandle&) = delete;
  BpHandle& operator=(const BpHandle&) = delete;

 protected:
  friend class HostAccess;  // the host's own way to the handle
  explicit BpHandle(std::intptr_t handle);
  ~BpHandle();

 private:
  std::intptr_t fHandle;  // the host's value; -1 when empty
};

/// A footnote that can be attached to several cells.
class BpAnnotation final : public BpHandle {
 public:
  ~BpAnnotation();

 private:
  friend class HostAccess;
  explicit BpAnnotation(std::intptr_t handle);
};

/// A text for a title, a heading, a cell or a message.
class BpCellText : public BpHandle {
 public:
  /// An annotation with this text, which it outlives. Where the host's annotations have a second handle and a flag,
  /// these are empty (-1) and false.
  BpAnnotation Replicate() const;

 protected:
  explicit BpCellText(std::intptr_t handle);
  ~BpCellText();
};

/// A text as it stands.
class BpString final : public BpCellText {
 public:
  BpString(std::string text, bool fixedText);
  ~BpString();
};

/// A text made of a pattern whose placeholders "^1", "^2" are filled in the order of Add(). In a cell, the pattern
/// "[:^1\r:$1]1" writes each entry of its list as a line of its own.
class BpComposite final : public BpCellText {
 public:
  BpComposite(const std::string& pattern, bool messageTemplate);
  ~BpComposite();

  /// Fills the next placeholder or, between Sublist() and EndSublist(), appends an entry to the list. The text is
  /// copied.
  void Add(const BpCellText& text);

  /// Begins a list that fills one placeholder. A list that no placeholder takes is appended to the text.
  void Sublist();
  void EndSublist();

  /// Completes the text: nothing is added afterwards. A text is usable without it.
  void Finish();
};

/// One category of a dimension: a row or a column.
class BpCategory final : public BpHandle {
 public:
  ~BpCategory();

  /// Fills the cell at this category and, in every other dimension, the category that was added last and is alive.
  /// There always is one: the module fills no cell before it has made the other dimension's category, and keeps that
  /// alive.
  void Cell(const BpCellText& text);

  /// Attaches a footnote to that cell.
  void CellNote(const BpAnnotation& note);

 private:
  friend class HostAccess;
  explicit BpCategory(std::intptr_t handle);
};

/// A group of categories. Categories are kept in the order in which they were added.
class BpGroup : public BpHandle {
 public:
  BpCategory Category(const BpCellText& heading);

 protected:
  explicit BpGroup(std::intptr_t handle);
  ~BpGroup();
};

/// One dimension of a pivot table; the rows unless it is positioned elsewhere.
class BpDimension final : public BpGroup {
 public:
  enum Place : std::int32_t { kColumns = 1 };

  ~BpDimension();

  /// Places the dimension. The meaning of the other arguments is the host's; the module passes 1, true and false.
  void Position(Place place, int level, bool visible, bool hidden);

 private:
  friend class HostAccess;
  explicit BpDimension(std::intptr_t handle);
};

/// A pivot table under a heading of the output.
class BpPivotTable final : public BpHandle {
 public:
  enum Sort : std::int32_t { kAsAdded = 2 };

  ~BpPivotTable();

  BpDimension Dimension(const BpCellText& title, Sort sort);

 private:
  friend class HostAccess;
  explicit BpPivotTable(std::intptr_t handle);
};

/// A heading of the output, under which tables stand.
class BpHeading : public BpHandle {
 public:
  /// Adds a table; the first text is its title. The meaning of `second` and `flag` is the host's; the module passes the
  /// title again and false.
  BpPivotTable PivotTable(const BpCellText& title, const BpCellText& second, bool flag);

 protected:
  explicit BpHeading(std::intptr_t handle);
  ~BpHeading();
};

/// The output of one procedure, open from construction to destruction.
class BpProcedure final : public BpHeading {
 public:
  /// The meaning of `kind` is the host's; the module passes 2.
  BpProcedure(std::string title, int kind);
  ~BpProcedure();
};

/// How a message is shown; the host's.
enum BpErrorShow : std::int32_t { kBpErrorShow = 2 };

/// How grave a message is.
enum BpErrorLevel : std::int32_t { kBpErrorLevelWarning = 2, kBpErrorLevelError = 4 };

/// Issues a message to the user and returns.
void BpError(const BpCellText& text, BpErrorShow show, BpErrorLevel level);

#endif  // HOST_OUTPUT_H
