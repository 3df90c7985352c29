#ifndef HOST_DICTIONARY_H
#define HOST_DICTIONARY_H

#include <string>

/// Handle of one variable's value labels; made, owned and defined by the host.
class ZEVA_VLImplPointer;

/// One variable of a dictionary. Owned by its data source and valid as long as that; the texts it hands out live as
/// long as it does. Texts are NUL-terminated and in the host's multibyte encoding.
class ZEVA_Variable {
 public:
  /// Made by the host alone, of its own record.
  explicit ZEVA_Variable(void* record);
  ZEVA_Variable(const ZEVA_Variable&) = delete;
  ZEVA_Variable& operator=(const ZEVA_Variable&) = delete;

  /// The name as defined; never null.
  const char* GetName() const;

  /// 0 for a numeric variable, else the width in bytes of a string variable.
  int GetType() const;

  /// The variable label; null or empty when there is none.
  const char* GetLabel() const;

  /// The handle from which a ZEVA_ValueLabelMap is made.
  const ZEVA_VLImplPointer& GetValueLabels() const;

 private:
  void* fRecord;
};

/// A readable map from the values of one variable to their labels. The texts it hands out belong to the host and live
/// as long as the variable. Released by the destructor.
class ZEVA_ValueLabelMap {
 public:
  explicit ZEVA_ValueLabelMap(const ZEVA_VLImplPointer& valueLabels);
  ZEVA_ValueLabelMap(const ZEVA_ValueLabelMap&) = delete;
  ZEVA_ValueLabelMap& operator=(const ZEVA_ValueLabelMap&) = delete;
  ~ZEVA_ValueLabelMap();

  /// Makes the map ready for lookups; called once, before the first of them.
  void Reset();

  /// Label of a numeric value; null when the value has none.
  const char* GetLabel(const double& value) const;

  /// Label of a string value; null when the value has none. The value comes as the command has it: with its blanks, and
  /// not padded to the variable's width. Whether blanks at its end count is the host's choice.
  const char* GetLabel(const std::string& value) const;

 private:
  void* fRecord;
};

/// A source of data with a dictionary: variables numbered from 0 in dictionary order.
class ZEVA_DataSource {
 public:
  ZEVA_DataSource(const ZEVA_DataSource&) = delete;
  ZEVA_DataSource& operator=(const ZEVA_DataSource&) = delete;

  /// The source with which the variable sets are kept; never null, owned by the host, alive as long as this source. The
  /// variables of sets are looked up in its dictionary when a command is applied.
  ZEVA_DataSource* GetParentSource() const;

  /// Number of variables in the dictionary.
  int ColumnCount() const;

  /// The variable at `index`, 0 to ColumnCount() - 1; owned by the source.
  const ZEVA_Variable* GetVariable(int index) const;

  /// Index of the variable of that name, without regard to case; -1 when there is none. The meaning of `flags` is the
  /// host's; the module passes 0.
  int FindVarIndex(const char* name, int flags) const;

 protected:
  /// Made by the host alone, of its own record.
  explicit ZEVA_DataSource(void* record);
  ~ZEVA_DataSource() = default;

 private:
  friend class HostAccess;  // the host's own way to the record
  void* fRecord;
};

/// The data source of the running procedure, over the active dataset. Released by the destructor.
class ProcedureDataSource final : public ZEVA_DataSource {
 public:
  ProcedureDataSource();
  ~ProcedureDataSource();
};

/// The head of the host's common dictionary record, as far as the module looks at it. It looks after it has opened the
/// procedure and the tokens, so these must be available without a dataset, too.
struct CommonDictionary {
  void* fHostOwn[11];    // NOLINT(*-avoid-c-arrays): a given layout
  void* fActiveDataset;  ///< null when no dataset is open
};

/// The host's common dictionary; never null while a command runs.
extern CommonDictionary* CmnDic;  // NOLINT(*-avoid-non-const-global-variables): the host's

#endif  // HOST_DICTIONARY_H
