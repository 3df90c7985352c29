#ifndef STANDALONE_TEXT_ERROR_H
#define STANDALONE_TEXT_ERROR_H

#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

namespace standalone {

/// What kind of thing went wrong, where somebody acts on it.
enum class ErrorKind {
  kFailed,         ///< none of those below
  kUsage,          ///< what was asked for makes no sense
  kNothingToRun,   ///< neither a script nor a command was given
  kMissingFile,    ///< the subject, a path, leads to no file
  kNotADataset,    ///< the subject, a path, leads to a file that is no dataset
  kNoPermission,   ///< the dataset, or the folder it lies in, must not be written
  kDamaged,        ///< the contents of a file are not what this program writes
  kInterrupted,    ///< the user gave up what was under way; nothing was changed
  kOutput,         ///< results cannot be written
  kUnknownOutcome  ///< whether a change was saved cannot be told
};

/// Why something could not be done; what() is one sentence for the user.
class Error : public std::runtime_error {
 public:
  explicit Error(const std::string& sentence) : Error(ErrorKind::kFailed, sentence) {}

  /// `subject` is the path, as the user gave it, that the sentence is about; empty where nobody acts on it.
  Error(ErrorKind kind, const std::string& sentence, std::string subject = "");

  ErrorKind Kind() const { return fKind; }
  const std::string& Subject() const { return fSubject; }

 private:
  ErrorKind fKind;
  std::string fSubject;
};

/// The sentence on a file that may be readable and cannot be written for want of permission.
std::string NoPermissionSentence(const std::string& name);

/// In a handler: throws the error on unless it is of that kind.
void RethrowUnless(const Error& error, ErrorKind kind);

/// What went wrong, as one sentence.
std::string SentenceOf(const std::exception& error);

}  // namespace standalone

#endif  // STANDALONE_TEXT_ERROR_H
