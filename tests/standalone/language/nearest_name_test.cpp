#include "standalone/language/nearest_name.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

struct Row {
  std::string name;
  std::vector<std::string> candidates;
  std::string nearest;  ///< empty where there is none
};

void ExpectNearest(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    NearestName nearest(row.name);
    for (const std::string& candidate : row.candidates) {
      nearest.Offer(candidate);
    }
    EXPECT_EQ(nearest.Result().value_or(""), row.nearest) << row.name;
  }
}

TEST(NearestName, IsOneTypingErrorAway) {
  ExpectNearest({
      {"regoin", {"income", "region"}, "region"},  // two neighbours swapped
      {"regon", {"region"}, "region"},             // one missing
      {"reggion", {"region"}, "region"},           // one too many
      {"rebion", {"region"}, "region"},            // one replaced
      {"egion", {"region"}, "region"},
      {"regions", {"region"}, "region"},
      {"REGOIN", {"Region"}, "Region"},
      {"regoin", {"REGION"}, "REGION"},
      {"drnik1", {"drink1", "drink2"}, "drink1"},
      {"m\u00C9nage", {"m\u00E9nages"}, "m\u00E9nages"},
      {"menage", {"m\u00E9nage"}, "m\u00E9nage"},
      {"\u65E5\u672C\u8A9E\u5B57", {"\u65E5\u672C\u5B57\u8A9E"}, "\u65E5\u672C\u5B57\u8A9E"},
  });
}

TEST(NearestName, OfEightCharactersMayBeTwoErrorsAway) {
  ExpectNearest({
      {"vegetrain", {"vegetarian"}, "vegetarian"},
      {"satisfctoin", {"satisfaction"}, "satisfaction"},
      {"minuts", {"minutesx"}, "minutesx"},
      {"minus", {"minutes"}, ""},
      {"satfctoin", {"satisfaction"}, ""},
  });
}

TEST(NearestName, IsNoneWhereNothingIsClearlyNear) {
  ExpectNearest({
      {"region", {}, ""},
      {"region", {"income", "age"}, ""},
      {"age", {"aga"}, ""},
      {"", {"a", "abcd"}, ""},
      {"abcd", {""}, ""},
      {std::string(300, 'a'), {std::string(299, 'a')}, ""},
      {std::string(200, 'a'), {std::string(299, 'a')}, ""},
  });
}

TEST(NearestName, IsNoneWhereSeveralAreEquallyNear) {
  ExpectNearest({
      {"likex", {"likes", "liked"}, ""},
      {"likex", {"likes", "LIKES"}, "likes"},
      {"likex", {"likes", "liked", "likex1"}, ""},
      {"satisfactoin", {"satisfactions", "satisfaction"}, "satisfaction"},
      {"satisfactoin", {"satisfaction", "satisfactions"}, "satisfaction"},
  });
}

TEST(NearestName, NeverHasOtherDigits) {
  ExpectNearest({
      {"drink9", {"drink1"}, ""},
      {"drink12", {"drink21"}, ""},
      {"drink1", {"drink11"}, ""},
      {"drink", {"drink1"}, ""},
      {"drinks1", {"drink1"}, "drink1"},
  });
}

TEST(NearestName, IsNotTheNameItself) {
  ExpectNearest({{"region", {"REGION"}, ""}, {"region", {"REGION", "regions"}, "regions"}});
}

}  // namespace
}  // namespace standalone
