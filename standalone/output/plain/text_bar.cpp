#include "standalone/output/plain/text_bar.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace standalone {
namespace {

constexpr std::size_t kEighths = 8;

constexpr std::array<const char*, kEighths> kPartsOfBlock = {"",       "\u258F", "\u258E", "\u258D",
                                                             "\u258C", "\u258B", "\u258A", "\u2589"};
constexpr const char* kBlock = "\u2588";

std::string Repeated(const char* text, std::size_t times) {
  std::string repeated;
  for (std::size_t i = 0; i < times; ++i) {
    repeated += text;
  }
  return repeated;
}

}  // namespace

std::string TextBar(double share, std::size_t width, Chart chart) {
  if (chart == Chart::kNone || share <= 0) {
    return {};
  }
  const std::size_t steps = chart == Chart::kBlocks ? kEighths : 1;
  const double wanted = std::round(std::min(share, 1.0) * static_cast<double>(width * steps));
  const std::size_t length = std::max<std::size_t>(static_cast<std::size_t>(wanted), 1);
  return chart == Chart::kBlocks ? Repeated(kBlock, length / steps) + kPartsOfBlock.at(length % steps)
                                 : Repeated("#", length);
}

}  // namespace standalone
