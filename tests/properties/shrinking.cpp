#include "tests/properties/shrinking.h"

#include <vector>

namespace properties {
namespace {

template <class Value>
rc::Seq<Value> ToSeq(std::vector<Value> values) {
  return rc::seq::fromContainer(std::move(values));
}

rc::Seq<scripted::Variable> SimplerVariables(const scripted::Variable& variable) {
  Variables simpler;
  if (variable.label) {
    simpler.push_back(variable);
    simpler.back().label.reset();
  }
  if (!variable.valueLabels.empty()) {
    simpler.push_back(variable);
    simpler.back().valueLabels.clear();
    simpler.push_back(variable);
    simpler.back().valueLabels.pop_back();
  }
  return ToSeq(std::move(simpler));
}

rc::Seq<scripted::Token> SimplerTokens(const scripted::Token& token) {
  Tokens simpler;
  if (token.text.size() > 12 && token.type != TokenSequenceBase::kNumber) {
    simpler.push_back(token);
    simpler.back().text.resize(token.text.size() / 2);
    simpler.push_back(token);
    simpler.back().text.pop_back();
  }
  return ToSeq(std::move(simpler));
}

rc::Seq<Case> UsualHosts(const Case& example) {
  std::vector<Case> usual;
  if (example.end != reference::DefaultEnd()) {
    usual.push_back(example);
    usual.back().end = reference::DefaultEnd();
  }
  if (example.truth != 1 || example.cursorAfterVarList) {
    usual.push_back(example);
    usual.back().truth = 1;
    usual.back().cursorAfterVarList.reset();
  }
  return ToSeq(std::move(usual));
}

}  // namespace

rc::Seq<Case> SmallerSurroundings(const Case& example) {
  return rc::seq::concat(
      WithLess(example, &Case::sets), WithLess(example, &Case::dictionary),
      WithMember(example, &Case::dictionary, rc::shrink::eachElement(example.dictionary, &SimplerVariables)),
      UsualHosts(example));
}

rc::Seq<Case> SmallerCases(const Case& example) {
  return rc::seq::concat(WithLess(example, &Case::tokens), SmallerSurroundings(example),
                         WithMember(example, &Case::tokens, rc::shrink::eachElement(example.tokens, &SimplerTokens)));
}

}  // namespace properties
