#ifndef TESTS_HOST_SOURCES_H
#define TESTS_HOST_SOURCES_H

#include "host/dictionary.h"
#include "tests/host/core.h"
#include "tests/host/trace.h"

namespace scripted {

SourceNamed SourceName(const Core& core, const ZEVA_DataSource& source);

/// Records a violation when the source is not alive; the parent lives as long as any source does.
void CheckSource(Core& core, const ZEVA_DataSource& source);

}  // namespace scripted

#endif  // TESTS_HOST_SOURCES_H
