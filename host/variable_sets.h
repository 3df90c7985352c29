#ifndef HOST_VARIABLE_SETS_H
#define HOST_VARIABLE_SETS_H

#include <cstdint>
#include <string>
#include <vector>

class ZEVA_DataSource;

/// One stored variable set: a plain value. Texts are NUL-free and in the host's multibyte encoding. A set that was
/// moved from is only assigned to or destroyed.
class VariableSet {
 public:
  enum VariableSetType : std::int32_t {
    kVarSet = 0,  ///< plain variable set, never among the multiple response sets
    kMCSet = 1,   ///< multiple category set
    kMDSet = 2    ///< multiple dichotomy set
  };

  /// The form in which names are returned.
  enum ChangeCase : std::int32_t {
    kUpperCase = 1,  ///< in upper case, for comparisons
    kAsStored = 2    ///< as stored, for display
  };

  /// A set with no label, no counted value, both flags false and no variables.
  VariableSet(const std::string& name, VariableSetType type);
  VariableSet(const VariableSet&) = default;
  VariableSet(VariableSet&&) = default;
  VariableSet& operator=(const VariableSet&) = default;
  VariableSet& operator=(VariableSet&&) = default;
  ~VariableSet() = default;

  /// Appends the name of one elementary variable.
  void AddVariableName(const std::string& name);

  void SetLabel(const std::string& label);

  /// Sets the counted value of a dichotomy set, as text.
  void SetValue(const std::string& value);

  /// Whether the set's label is taken from its variables' labels.
  void LabelSetByVariable(bool labelSetByVariable);

  /// Whether the categories are labelled by the value labels of the counted value.
  void UseVariableCategoryLabels(bool useVariableCategoryLabels);

  bool qLabelSetByVariable() const;
  bool qUseVariableCategoryLabels() const;

  /// The set's name. The upper-case form is the one that ZEVAMBstrupr_A makes of it.
  std::string GetName(ChangeCase changeCase) const;

  VariableSetType GetType() const;

  /// The label; empty when there is none.
  std::string GetLabel() const;

  /// The counted value's text; empty when there is none.
  std::string GetValue() const;

  /// The elementary variables' names in the requested form, in order.
  std::vector<std::string> GetVariableNames(ChangeCase changeCase) const;

 private:
  VariableSetType fType;
  std::vector<bool> fAttributes;  // indexed by the host
  std::string fName;
  std::string fLabel;
  std::string fValue;
  std::vector<std::string> fVariableNames;
};

using VARIABLESETS = std::vector<VariableSet>;

/// The kinds of variable sets that a dataset keeps.
enum VarSetsType : std::int32_t {
  kMRSets = 1  ///< multiple response sets
};

/// Copies of the data source's stored sets of one kind, in their order. Their names differ without regard to case: to
/// delete a name that is stored twice ends the process by an assertion.
VARIABLESETS VariableSets(const ZEVA_DataSource& dataSource, VarSetsType type);

/// Replaces the data source's stored sets of one kind by `sets`, in their order. The source must not be a constant
/// object, although MRSetApply() takes it by a constant reference.
void SaveVariableSets(const VARIABLESETS& sets, ZEVA_DataSource& dataSource, VarSetsType type);

#endif  // HOST_VARIABLE_SETS_H
