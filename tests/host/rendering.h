#ifndef TESTS_HOST_RENDERING_H
#define TESTS_HOST_RENDERING_H

#include <string>
#include <string_view>
#include <vector>

#include "tests/host/scripted_host.h"

namespace scripted {

std::string Join(const std::vector<std::string>& texts, std::string_view separator);

/// The texts and the entries of all arguments, in order.
std::vector<std::string> AllTexts(const std::vector<Argument>& arguments);

}  // namespace scripted

#endif  // TESTS_HOST_RENDERING_H
