#ifndef HOST_TEXT_H
#define HOST_TEXT_H

// Multibyte string utilities. All texts are NUL-terminated byte strings in the host's multibyte encoding; none of the
// pointers may be null, nothing is retained.

/// Compares without regard to case: 0 when equal, else negative or positive.
int ZEVAMBstricmp_A(const char* first, const char* second);

/// Whether the first `firstLength` bytes of `first` and the first `secondLength` bytes of `second` agree without regard
/// to case: non-zero when they do, 0 when they differ. A truth value, not an ordering. `firstLength` may end within a
/// character, which then agrees with no letter. The meaning of `flags` is the host's; the module passes 0.
int ZEVAMBqstricmp_A(const char* first, int firstLength, const char* second, int secondLength, int flags);

/// Upper-cases a buffer in place; the text never grows.
void ZEVAMBstrupr_A(char* text);

/// Copies at most `size` - 1 bytes of `source` to `target`, never a part of a character, and terminates with a NUL. The
/// meaning of `flags` is the host's; the module passes 0.
void ZEVAMBzstncpy_A(char* target, const char* source, int size, int flags = 0);

/// Checks a name against the host's naming rules: 2 when it is valid, any other value when it is not. The names
/// are those of sets, with their "$".
int ValidateZEVAName(const char* name);

#endif  // HOST_TEXT_H
