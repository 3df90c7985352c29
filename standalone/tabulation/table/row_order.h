#ifndef STANDALONE_TABULATION_TABLE_ROW_ORDER_H
#define STANDALONE_TABULATION_TABLE_ROW_ORDER_H

#include <vector>

#include "standalone/tabulation/counting/set_count.h"
#include "standalone/tabulation/request.h"

namespace standalone {

/// The members of a set that was counted, in the order in which they are shown: sorted by the total's counts where this
/// is asked for, those of LAST at the end.
std::vector<Member> MembersInOrder(const SetCount& count, const TabulationRequest& request);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_TABLE_ROW_ORDER_H
