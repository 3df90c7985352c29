#ifndef STANDALONE_PROGRAM_SIGNALS_H
#define STANDALONE_PROGRAM_SIGNALS_H

namespace standalone {

/// SIGINT, SIGTERM and SIGHUP, where they are not ignored, end the program as ever, but leave no temporary file; a
/// limit on the size of files is an error of writing and no signal.
void PrepareForSignals();

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_SIGNALS_H
