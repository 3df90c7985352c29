#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/host_check/scripted_factory.h"

namespace {

const std::string kRoot = MRSET_SOURCE_FOLDER;

/// The comments of a header, one after the other, without line ends.
std::string CommentsOf(const std::string& header) {
  std::ifstream file(kRoot + "/host/" + header);
  EXPECT_TRUE(file) << header;
  static const std::regex kComment(R"(//[/<]* ?(.*))");
  std::string comments;
  std::smatch found;
  for (std::string line; std::getline(file, line);) {
    if (line.find("NOLINT") == std::string::npos && line.find("#endif") != 0 &&
        std::regex_search(line, found, kComment)) {
      comments += found[1].str() + " ";
    }
  }
  return comments;
}

/// Takes a sentence out of the comments, wherever it is; false when they do not have it.
bool TakeOut(std::string& comments, const std::string& sentence) {
  const bool isThere = comments.find(sentence) != std::string::npos;
  for (std::size_t at = 0; (at = comments.find(sentence, at)) != std::string::npos;) {
    comments.replace(at, sentence.size(), "\n");
  }
  return isThere;
}

/// The sentences "host/HEADER: SENTENCE" that the check tries and those that are listed as untried, the longest first,
/// since some are a part of others.
std::vector<std::string> KnownSentences() {
  std::vector<std::string> lines;
  std::stringstream report;
  ScriptedFactory factory;
  RunHostCheck(factory, report);
  report << std::ifstream(kRoot + "/tests/host_check/untried_sentences.txt").rdbuf();
  for (std::string line; std::getline(report, line);) {
    if (line.rfind("host/", 0) == 0) {
      lines.push_back(line);
    }
  }
  const auto isLonger = [](const std::string& first, const std::string& second) {
    return first.size() > second.size();
  };
  std::sort(lines.begin(), lines.end(), isLonger);
  return lines;
}

TEST(HostCheck, TriesEverySentenceOfTheHeadersThatIsNotListedAsUntried) {
  const std::vector<std::string> known = KnownSentences();
  for (const std::string header : {"dictionary.h", "output.h", "text.h", "tokens.h", "variable_sets.h"}) {
    std::string comments = CommentsOf(header);
    const std::string prefix = "host/" + header + ": ";
    for (const std::string& line : known) {
      if (line.rfind(prefix, 0) == 0) {
        EXPECT_TRUE(TakeOut(comments, line.substr(prefix.size()))) << "the header does not say: " << line;
      }
    }
    EXPECT_EQ(comments.find_first_not_of(" \n"), std::string::npos) << header << " says more:" << comments;
  }
}

}  // namespace
