#include "standalone/run/dry_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using Names = std::vector<std::string>;
using Iterator = SetList::const_iterator;

/// Two lists without what they have in common at their beginnings and ends.
struct Stretches {
  Stretches(const SetList& before, const SetList& after) {
    std::tie(beforeBegin, afterBegin) =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), AreSame);
    const auto [beforeLast, afterLast] =
        std::mismatch(std::make_reverse_iterator(before.end()), std::make_reverse_iterator(beforeBegin),
                      std::make_reverse_iterator(after.end()), std::make_reverse_iterator(afterBegin), AreSame);
    beforeEnd = beforeLast.base();
    afterEnd = afterLast.base();
  }

  Iterator beforeBegin;
  Iterator beforeEnd;
  Iterator afterBegin;
  Iterator afterEnd;
};

/// What becomes of the sets.
struct Changes {
  Changes(const SetList& before, const SetList& after) {
    const Stretches stretches(before, after);
    std::unordered_map<std::string, Iterator> left;  // by upper-case name
    for (auto set = stretches.beforeBegin; set != stretches.beforeEnd; ++set) {
      left.emplace(ToUpper((*set)->name), set);
    }
    Iterator last = stretches.beforeBegin;
    for (auto set = stretches.afterBegin; set != stretches.afterEnd; ++set) {
      const auto found = left.find(ToUpper((*set)->name));
      if (found == left.end()) {
        added.push_back((*set)->name);
        continue;
      }
      if (!AreSame(*found->second, *set)) {
        changed.push_back((*found->second)->name);
      }
      isReordered = isReordered || found->second < last;
      last = found->second;
      left.erase(found);
    }
    std::for_each(stretches.beforeBegin, stretches.beforeEnd, [&](const SharedSet& set) {
      if (left.count(ToUpper(set->name)) != 0) {
        deleted.push_back(set->name);
      }
    });
  }

  Names added;
  Names changed;
  Names deleted;
  bool isReordered = false;
};

void AddPart(const Names& names, const char* what, Names& parts) {
  constexpr std::size_t kMaxNames = 3;
  if (names.size() > kMaxNames) {
    parts.push_back(fmt::format("{} sets would be {}", names.size(), what));
  } else if (!names.empty()) {
    parts.push_back(fmt::format("{} would be {}", fmt::join(names, ", "), what));
  }
}

}  // namespace

std::optional<std::string> SentenceOnDryRun(const SetList& before, const SetList& after) {
  const Changes changes(before, after);
  Names parts;
  AddPart(changes.added, "added", parts);
  AddPart(changes.changed, "changed", parts);
  AddPart(changes.deleted, "deleted", parts);
  if (changes.isReordered) {
    parts.emplace_back("the sets would be reordered");
  }
  return parts.empty() ? std::nullopt : std::make_optional(fmt::format("Dry run: {}.", fmt::join(parts, "; ")));
}

}  // namespace standalone
