#ifndef STANDALONE_FILES_FOLDER_H
#define STANDALONE_FILES_FOLDER_H

#include <string>

namespace standalone {

/// The folder part of a path, with the slash at its end; "./" where it has none.
std::string FolderOf(const std::string& path);

/// Whether the path's folder has an entry of that name, be it a link that leads nowhere.
bool IsThere(const std::string& path);

/// Puts the entries of the path's folder on the disk. 0, or the error number where that failed; a file system that
/// cannot synchronise folders has nothing to be done.
int SyncFolderOf(const std::string& path);

/// The sentence on a change that stands although the folder of the file could not be synchronised.
std::string UnsyncedSentence(const std::string& name, const std::string& reason);

}  // namespace standalone

#endif  // STANDALONE_FILES_FOLDER_H
