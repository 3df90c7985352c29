#ifndef STANDALONE_RUN_TABULATE_RUN_H
#define STANDALONE_RUN_TABULATE_RUN_H

#include <functional>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/language/script.h"
#include "standalone/language/tokenizer.h"
#include "standalone/output/items.h"
#include "standalone/tabulation/tabulate.h"

namespace standalone {

/// Begins to show how a count gets on; what it returns is told of it, and ends that when it is destroyed. May be empty.
using BeginCounting = std::function<TabulationProgress()>;

/// The procedure of TABULATE, as results name it.
inline constexpr const char* kTabulateProcedure = "Tabulate";

/// Carries out a TABULATE command on these sets: its tables, or a message on what is wrong with it. Throws Error.
std::vector<Item> RunTabulate(const ScriptCommand& command, const std::vector<Token>& tokens, Dataset& dataset,
                              const SetList& sets, const BeginCounting& beginCounting);

}  // namespace standalone

#endif  // STANDALONE_RUN_TABULATE_RUN_H
