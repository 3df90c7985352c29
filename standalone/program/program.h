#ifndef STANDALONE_PROGRAM_PROGRAM_H
#define STANDALONE_PROGRAM_PROGRAM_H

namespace standalone {

/// The program mrset: reads the arguments, does what they say and returns the exit status. Results go to standard
/// output, everything else to standard error.
int RunProgram(int argc, const char* const* argv);

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_PROGRAM_H
