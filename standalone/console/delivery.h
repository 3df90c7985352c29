#ifndef STANDALONE_CONSOLE_DELIVERY_H
#define STANDALONE_CONSOLE_DELIVERY_H

#include <new>
#include <string>

namespace standalone {

// A change stands whether or not its results reach anybody. Where they do not, the user is told what stands, so that
// nobody makes the change again.

/// From now on a reader that goes away is an error as a full disk is, and ends this process only after that was told.
void OutliveReader();

/// On the changes of so many commands, whose results are lost.
std::string SentenceOfSaved(std::size_t count);

/// What is to be said of changes that stand once it was said why their results are lost; a sentence.
void SayAtEnd(const std::string& sentence);

/// Says that, and ends the process as a reader that goes away ends others, if one went away since OutliveReader().
void EndDelivery();

/// Makes sure that standard output has told of a change that stands. Where it cannot, throws Error with what was
/// changed, as in "the sets are copied".
void EnsureToldOf(const std::string& change);

[[noreturn]] void FailAfterChange();

/// Calls what tells how a command ended. Where there is no memory for that after a change that stands, throws Error
/// with a sentence that says so.
template <typename Tell>
void TellOutcome(bool isChanged, const Tell& tell) {
  try {
    tell();
  } catch (const std::bad_alloc&) {
    if (!isChanged) {
      throw;
    }
    FailAfterChange();
  }
}

}  // namespace standalone

#endif  // STANDALONE_CONSOLE_DELIVERY_H
