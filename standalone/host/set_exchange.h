#ifndef STANDALONE_HOST_SET_EXCHANGE_H
#define STANDALONE_HOST_SET_EXCHANGE_H

#include "host/variable_sets.h"
#include "standalone/data/dataset.h"

namespace standalone {

/// Gives the sets of the dataset out in the form of host/ and takes them back. It is kept from command to command, so
/// that only what differs from the list before is made anew.
class SetExchange {
 public:
  /// The form of the sets; until the next call.
  const VARIABLESETS& Give(const SetList& sets);

  /// The sets of that form, which are then the ones that were given. Those that were given and have stayed are shared
  /// with the list that was.
  SetList Take(const VARIABLESETS& forms);

 private:
  // The same sets in the two forms.
  SetList fSets;
  VARIABLESETS fForms;
};

}  // namespace standalone

#endif  // STANDALONE_HOST_SET_EXCHANGE_H
