#include "tests/fuzz/dataset_image.h"

#include <algorithm>

#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"

namespace fuzz {
namespace {

using standalone::SetType;
using standalone::StoredSet;
using standalone::Variable;

constexpr const char* kName = "image.mrset";

std::vector<Variable> Variables(int strings, std::size_t longText) {
  std::vector<Variable> variables{{"q1", 0, "Tea", {{"0", "No"}, {"1", "Yes"}}},
                                  {"q2", 0, "Coffee", {{"0", "No"}, {"1", "Yes"}}},
                                  {"q3", 0, std::nullopt, {{"1", std::string(longText, 'L')}}}};
  for (int number = 1; number <= strings; ++number) {
    variables.push_back({"s" + std::to_string(number), 3, "Text " + std::to_string(number), {{"abc", "Letters"}}});
  }
  return variables;
}

std::vector<StoredSet> Sets(std::size_t longText) {
  return {{"$a", SetType::kDichotomy, "Likes", "1", false, false, {"q1", "q2"}},
          {"$b", SetType::kCategory, std::string(longText, 'B'), "", false, false, {"s1", "s2", "gone"}},
          {"$labels", SetType::kDichotomy, "", "1", true, true, {"q1", "q2", "q3"}}};
}

void WriteCases(standalone::DatasetWriter& writer, std::size_t columns) {
  std::vector<std::string_view> cells(columns, "abc");
  std::fill_n(cells.begin(), 3, "1");
  for (int row = 0; row < 5; ++row) {
    writer.AddCase(cells);
  }
}

}  // namespace

DatasetImage::DatasetImage(const ScratchFolder& folder, int variables, std::size_t longText) {
  const std::string path = folder.Path(kName);
  standalone::DatasetWriter writer(path, false);
  const std::vector<Variable> dictionary = Variables(variables, longText);
  writer.SetVariables(dictionary);
  WriteCases(writer, dictionary.size());
  writer.Commit();
  standalone::Dataset(path).SaveSets(Sets(longText), "MRSET");
  fBytes = folder.Read(kName);
  folder.Clear();
  for (std::size_t offset = 0; offset < fBytes.size(); ++offset) {
    if (fBytes[offset] != '\0') {
      fNotZero.push_back(offset);
    }
  }
}

std::size_t DatasetImage::Offset(unsigned char kind, std::size_t place) const {
  return (kind & 4U) == 0 ? fNotZero[place % fNotZero.size()] : place % fBytes.size();
}

std::string DatasetImage::Edited(std::string_view edits) const {
  std::string bytes = fBytes;
  for (; edits.size() >= 4; edits.remove_prefix(4)) {
    const auto kind = static_cast<unsigned char>(edits[0]);
    const std::size_t place =
        static_cast<unsigned char>(edits[1]) + std::size_t{256} * static_cast<unsigned char>(edits[2]);
    const std::size_t offset = Offset(kind, place);
    if ((kind & 0xF8U) == 0xF8U) {
      bytes.resize(std::min(offset, bytes.size()));
    } else if (offset < bytes.size()) {
      const auto bit = static_cast<char>(1U << (static_cast<unsigned char>(edits[3]) & 7U));
      bytes[offset] = (kind & 1U) == 0 ? edits[3] : static_cast<char>(bytes[offset] ^ bit);
    }
  }
  return bytes;
}

}  // namespace fuzz
