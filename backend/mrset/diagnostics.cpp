#include "backend/mrset/diagnostics.h"

#include "host/output.h"

namespace {

void AddArgument(BpComposite& message, const std::string& argument) {
  if (!argument.empty()) {
    message.Add(BpString(argument.c_str(), false));
  }
}

void IssueMessage(const std::string& messageTemplate, const std::string& first, const std::string& second,
                  BpErrorLevel level) {
  BpComposite message(messageTemplate.c_str(), true);
  AddArgument(message, first);
  AddArgument(message, second);
  message.Finish();
  BpError(message, kBpErrorShow, level);
}

}  // namespace

void GenerateError(const std::string& messageTemplate, const std::string& first, const std::string& second) {
  IssueMessage(messageTemplate, first, second, kBpErrorLevelError);
}

void GenerateWarning(const std::string& messageTemplate, const std::string& first, const std::string& second) {
  IssueMessage(messageTemplate, first, second, kBpErrorLevelWarning);
}
