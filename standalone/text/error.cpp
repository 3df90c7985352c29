#include "standalone/text/error.h"

#include <new>

#include "standalone/text/visible.h"

namespace standalone {

// What stands in the sentence may hold any character, and what() would end at a NUL.
Error::Error(ErrorKind kind, const std::string& sentence, std::string subject)
    : std::runtime_error(Visible(sentence)), fKind(kind), fSubject(std::move(subject)) {}

std::string NoPermissionSentence(const std::string& name) {
  return name + " cannot be written: there is no permission to write it or its folder.";
}

void RethrowUnless(const Error& error, ErrorKind kind) {
  if (error.Kind() != kind) {
    throw;
  }
}

std::string SentenceOf(const std::exception& error) {
  const bool lacksMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
                           dynamic_cast<const std::length_error*>(&error) != nullptr;
  return lacksMemory ? "There is not enough memory." : error.what();
}

}  // namespace standalone
