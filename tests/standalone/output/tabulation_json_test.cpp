#include "standalone/output/json/tabulation_json.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/standalone/output/results.h"
#include "tests/standalone/output/tabulations.h"

namespace standalone {
namespace {

TEST(TabulationJson, HasTheDocumentedForm) {
  EXPECT_EQ(JsonText(Drinks()),
            R"({"kind":"tabulation","set":"$drinks","label":"Drinks","base":"answered","weight":null,"where":null,)"
            R"("columns":[{"by":null,"value":null,"label":"Total","cases":{"all":240,"answered":226,"noneChosen":9,)"
            R"("missing":5,"base":226},"weightedBase":226,"effectiveBase":226,"responses":300,)"
            R"("responsesPerCase":1.3274336283185841}],)"
            R"("rows":[{"member":"drink1","label":"Tea","net":false,"cells":[{"cases":220,"count":220,)"
            R"("percentOfCases":97.34513274336283,"percentOfResponses":73.33333333333333}]},)"
            R"({"member":"drink2","label":"Coffee","net":false,"cells":[{"cases":80,"count":80,)"
            R"("percentOfCases":35.39823008849557,"percentOfResponses":26.666666666666668}]},)"
            R"({"member":"Hot","label":"Hot","net":true,"cells":[{"cases":226,"count":226,"percentOfCases":100,)"
            R"("percentOfResponses":null}]}],)"
            R"("notes":["9 cases chose none and are not in the base; with BASE=ASKED it is 235."]})");
}

TEST(TabulationJson, HasErrorsAndTestsWhereTheyAreAskedFor) {
  EXPECT_EQ(JsonText(WeightedDrinks()),
            R"({"kind":"tabulation","set":"$drinks","label":"Drinks","base":"asked","weight":"w",)"
            R"("where":"age > 30","columns":[{"by":null,"value":null,"label":"Total","cases":{"all":240,)"
            R"("answered":226,"noneChosen":9,"missing":5,"base":235},"weightedBase":264.375,)"
            R"("effectiveBase":198.28125,"responses":300,"responsesPerCase":1.3274336283185841},)"
            R"({"by":"region","value":"N","label":"North","cases":{"all":140,"answered":128,"noneChosen":7,)"
            R"("missing":5,"base":135},"weightedBase":151.875,"effectiveBase":113.90625,"responses":131,)"
            R"("responsesPerCase":1.0234375},)"
            R"({"by":"region","value":"S","label":"South","cases":{"all":2,"answered":0,"noneChosen":2,"missing":0,)"
            R"("base":2},"weightedBase":2.25,"effectiveBase":1.6875,"responses":0,"responsesPerCase":null}],)"
            R"("rows":[{"member":"drink1","label":"Tea","net":false,"cells":[{"cases":220,"count":247.505,)"
            R"("percentOfCases":97.34513274336283,"percentOfResponses":73.33333333333333,"standardError":0.125,)"
            R"("low":-0.001,"high":12.3449,"designEffect":1.335},)"
            R"({"cases":124,"count":124,"percentOfCases":96.875,"percentOfResponses":94.65648854961832,)"
            R"("standardError":null,"low":null,"high":null,"designEffect":null},)"
            R"({"cases":0,"count":0,"percentOfCases":null,"percentOfResponses":null,"standardError":null,)"
            R"("low":null,"high":null,"designEffect":null}]},)"
            R"({"member":"drink2","label":"Coffee","net":false,"cells":[{"cases":80,"count":80,)"
            R"("percentOfCases":35.39823008849557,"percentOfResponses":26.666666666666668,"standardError":null,)"
            R"("low":null,"high":null,"designEffect":null},)"
            R"({"cases":7,"count":7,"percentOfCases":5.46875,"percentOfResponses":5.343511450381679,)"
            R"("standardError":null,"low":null,"high":null,"designEffect":null},)"
            R"({"cases":0,"count":0,"percentOfCases":null,"percentOfResponses":null,"standardError":null,)"
            R"("low":null,"high":null,"designEffect":null}]},)"
            R"({"member":"Hot","label":"Hot","net":true,"cells":[{"cases":226,"count":226,"percentOfCases":100,)"
            R"("percentOfResponses":null,"standardError":null,"low":null,"high":null,"designEffect":null},)"
            R"({"cases":128,"count":128,"percentOfCases":100,"percentOfResponses":null,"standardError":null,)"
            R"("low":null,"high":null,"designEffect":null},)"
            R"({"cases":0,"count":0,"percentOfCases":null,"percentOfResponses":null,"standardError":null,)"
            R"("low":null,"high":null,"designEffect":null}]}],)"
            R"("tests":[{"by":"region","statistic":12.5,"corrected":11.25,"degreesOfFreedom":1.75,"p":1e-05,)"
            R"("members":[{"member":"drink1","statistic":10.125,"degreesOfFreedom":1,"p":0.0125,"adjustedP":0.025},)"
            R"({"member":"drink2","statistic":null,"degreesOfFreedom":1,"p":null,"adjustedP":null}]}],)"
            R"("notes":["9 cases chose none and are not in the base; with BASE=ASKED it is 235."]})");
}

TEST(TabulationJson, HasTheMembersOfBothSetsAndTheValuesOfAPair) {
  EXPECT_EQ(JsonText(DrinksByFood()),
            R"({"kind":"tabulation","set":"$drinks","label":"Drinks","base":"answered","weight":null,"where":null,)"
            R"("columns":[{"by":null,"value":null,"label":"Total","cases":{"all":240,"answered":226,"noneChosen":9,)"
            R"("missing":5,"base":226},"weightedBase":226,"effectiveBase":226,"responses":300,)"
            R"("responsesPerCase":1.3274336283185841},)"
            R"({"by":"$food","value":"food1","label":"Bread","cases":{"all":120,"answered":113,"noneChosen":4,)"
            R"("missing":3,"base":113},"weightedBase":113,"effectiveBase":113,"responses":0,)"
            R"("responsesPerCase":null},{"by":"region*sex","value":["N","1"],)"
            R"("label":"North, Women","cases":{"all":60,"answered":55,"noneChosen":3,"missing":2,"base":55},)"
            R"("weightedBase":55,"effectiveBase":55,"responses":0,"responsesPerCase":null}],)"
            R"("rows":[{"member":"drink1","label":"Tea","net":false,"cells":[{"cases":220,"count":220,)"
            R"("percentOfCases":97.34513274336283,"percentOfResponses":73.33333333333333},)"
            R"({"cases":100,"count":100,"percentOfCases":88.49557522123894,"percentOfResponses":null},)"
            R"({"cases":11,"count":11,"percentOfCases":20,"percentOfResponses":null}]},)"
            R"({"member":"drink2","label":"Coffee","net":false,"cells":[{"cases":80,"count":80,)"
            R"("percentOfCases":35.39823008849557,"percentOfResponses":26.666666666666668},)"
            R"({"cases":100,"count":100,"percentOfCases":88.49557522123894,"percentOfResponses":null},)"
            R"({"cases":11,"count":11,"percentOfCases":20,"percentOfResponses":null}]},)"
            R"({"member":"Hot","label":"Hot","net":true,"cells":[{"cases":226,"count":226,"percentOfCases":100,)"
            R"("percentOfResponses":null},)"
            R"({"cases":100,"count":100,"percentOfCases":88.49557522123894,"percentOfResponses":null},)"
            R"({"cases":11,"count":11,"percentOfCases":20,"percentOfResponses":null}]}],)"
            R"("tests":[{"by":"$food","statistic":null,"corrected":null,"degreesOfFreedom":null,"p":null,)"
            R"("members":[{"member":"drink1","byMember":"food1","statistic":0.5,"degreesOfFreedom":1,"p":0.5,)"
            R"("adjustedP":1}]}],"notes":[]})");
}

TEST(TabulationJson, WritesNumbersInFull) {
  Tabulation tabulation = Drinks();
  tabulation.columns[0].weightedBase = 0.1 + 0.2;
  tabulation.columns[0].responses = 1e300;
  tabulation.columns[0].effectiveBase = -0.0;
  tabulation.columns[0].responsesPerCase = {};
  tabulation.rows.clear();
  EXPECT_EQ(JsonText(tabulation),
            R"({"kind":"tabulation","set":"$drinks","label":"Drinks","base":"answered","weight":null,"where":null,)"
            R"("columns":[{"by":null,"value":null,"label":"Total",)"
            R"("cases":{"all":240,"answered":226,"noneChosen":9,"missing":5,"base":226},)"
            R"("weightedBase":0.30000000000000004,"effectiveBase":0,"responses":1e+300,"responsesPerCase":null}],)"
            R"("rows":[],"notes":["9 cases chose none and are not in the base; with BASE=ASKED it is 235."]})");
}

TEST(TabulationJson, NamesEachBase) {
  Tabulation tabulation;
  const std::vector<TabulationBase> bases = {TabulationBase::kAnswered, TabulationBase::kAsked,
                                             TabulationBase::kComplete, TabulationBase::kAll};
  std::string names;
  for (const TabulationBase base : bases) {
    tabulation.base = base;
    names += Json::parse(JsonText(tabulation))["base"].get<std::string>() + ' ';
  }
  EXPECT_EQ(names, "answered asked complete all ");
}

}  // namespace
}  // namespace standalone
