// The standard assertion, active in every build type. There is no include guard: as with <cassert>, the last inclusion
// counts.
//
// The text of an asserted expression is part of the module's behaviour: it stands in the report. Lines that hold one
// with a blank that a formatter would remove are kept from it.

#undef NDEBUG
#include <cassert>
