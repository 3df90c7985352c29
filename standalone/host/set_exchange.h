#ifndef STANDALONE_HOST_SET_EXCHANGE_H
#define STANDALONE_HOST_SET_EXCHANGE_H

#include "host/variable_sets.h"
#include "standalone/dataset/stored_set.h"

namespace standalone {

/// Gives the sets of the dataset out in the form of host/ and takes them back. It is kept from command to command, so
/// that only what differs from the list before is made anew.
class SetExchange {
 public:
  /// The form of the sets; valid until the next call of Give().
  const VARIABLESETS& Give(const SetList& sets);

  /// The sets of that form. Those that were given last and have stayed are the same sets, not only equal ones.
  SetList Take(const VARIABLESETS& forms) const;

 private:
  // The sets that were given last, in the two forms.
  SetList fSets;
  VARIABLESETS fForms;
};

}  // namespace standalone

#endif  // STANDALONE_HOST_SET_EXCHANGE_H
