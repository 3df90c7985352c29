#include "tests/crash/shim/power_loss.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace crash {

namespace {

constexpr std::size_t kSector = 512;

std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('/'));
}

ino_t NumberOf(int descriptor) {
  struct stat status = {};
  fstat(descriptor, &status);
  return status.st_ino;
}

ino_t NumberOf(const std::string& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

std::string Read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// By the descriptor where it can read: to close another one of the file would give up the locks that SQLite holds on
// it.
std::string Contents(int descriptor, const std::string& path) {
  struct stat status = {};
  fstat(descriptor, &status);
  std::string text(static_cast<std::size_t>(status.st_size), '\0');
  const ssize_t count = pread(descriptor, text.data(), text.size(), 0);
  return count == status.st_size ? text : Read(path);
}

void Write(const std::string& path, const std::string& contents) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << contents;
}

void Apply(std::string& image, std::size_t offset, std::string_view data) {
  image.resize(std::max(image.size(), offset + data.size()));
  image.replace(offset, data.size(), data);
}

bool Chance(std::mt19937& random, unsigned ofTen) {
  return random() % 10 < ofTen;
}

}  // namespace

PowerLoss& PowerLoss::Get() {
  static PowerLoss loss;
  return loss;
}

void PowerLoss::WillChange(int descriptor, const std::string& path) {
  const ino_t number = NumberOf(descriptor);
  if (fFiles.find(number) == fFiles.end()) {
    fFiles[number] = {path, Contents(descriptor, path), {}};
  }
}

void PowerLoss::DidWrite(int descriptor, off_t offset, const void* data, std::size_t size) {
  fFiles[NumberOf(descriptor)].changes.push_back(
      {false, static_cast<std::size_t>(offset), std::string(static_cast<const char*>(data), size)});
}

void PowerLoss::DidTruncate(int descriptor, off_t size) {
  fFiles[NumberOf(descriptor)].changes.push_back({true, static_cast<std::size_t>(size), ""});
}

// A sync through any descriptor makes all of the file durable.
void PowerLoss::DidSyncFile(int descriptor) {
  const auto found = fFiles.find(NumberOf(descriptor));
  if (found != fFiles.end()) {
    found->second.synced = Contents(descriptor, found->second.path);
    found->second.changes.clear();
  }
}

void PowerLoss::DidCreate(const std::string& path) {
  fFiles[NumberOf(path)] = {path, "", {}};
  DidLink(path);
}

void PowerLoss::DidLink(const std::string& path) {
  fEntries[FolderOf(path)].push_back({Entry::kCreated, path, "", std::nullopt});
}

void PowerLoss::WillDelete(const std::string& path) {
  fEntries[FolderOf(path)].push_back({Entry::kDeleted, path, "", Forget(path)});
}

void PowerLoss::WillRename(const std::string& from, const std::string& to) {
  fEntries[FolderOf(to)].push_back({Entry::kRenamed, from, to, Forget(to)});
  const auto renamed = fFiles.find(NumberOf(from));
  if (renamed != fFiles.end()) {
    renamed->second.path = to;
  }
}

// Takes the file, if there is one, out of those that exist: its number may soon be that of another one.
std::optional<PowerLoss::File> PowerLoss::Forget(const std::string& path) {
  const ino_t number = NumberOf(path);
  if (number == 0) {
    return std::nullopt;
  }
  const auto known = fFiles.find(number);
  if (known == fFiles.end()) {
    return File{path, Read(path), {}};
  }
  File file = std::move(known->second);
  fFiles.erase(known);
  return file;
}

void PowerLoss::DidSyncFolder(const std::string& folder) {
  fEntries.erase(folder);
}

void PowerLoss::Lose(unsigned seed) {
  Random random(seed);
  for (const auto& entry : fFiles) {
    const File& file = entry.second;
    if (!file.changes.empty()) {
      Write(file.path, AfterLoss(file, random));
    }
  }
  UndoEntries(random);
}

std::string PowerLoss::AfterLoss(const File& file, Random& random) const {
  constexpr unsigned kShares[] = {0, 5, 9};
  const unsigned keptOfTen = kShares[random() % std::size(kShares)];
  std::string image = file.synced;
  for (const Change& change : file.changes) {
    if (!change.isTruncation) {
      LoseWrite(image, change, keptOfTen, random);
    } else if (Chance(random, keptOfTen)) {
      image.resize(change.offset);
    }
  }
  return image;
}

void PowerLoss::LoseWrite(std::string& image, const Change& change, unsigned keptOfTen, Random& random) {
  constexpr unsigned kGarbledOfTen = 3;
  const std::string_view data = change.data;
  for (std::size_t begin = 0; begin < data.size();) {
    const std::size_t length = std::min(kSector - (change.offset + begin) % kSector, data.size() - begin);
    if (Chance(random, keptOfTen)) {
      Apply(image, change.offset + begin, data.substr(begin, length));
    } else if (Chance(random, kGarbledOfTen)) {
      std::string garbage(length, '\0');
      std::generate(garbage.begin(), garbage.end(), [&random] { return static_cast<char>(random() & 0xff); });
      Apply(image, change.offset + begin, garbage);
    }
    begin += length;
  }
}

void PowerLoss::UndoEntries(Random& random) const {
  for (const auto& folder : fEntries) {
    const std::vector<Entry>& entries = folder.second;
    const std::size_t shares[] = {0, entries.size(), random() % (entries.size() + 1)};
    const std::size_t kept = shares[random() % std::size(shares)];
    for (std::size_t index = entries.size(); index > kept; --index) {
      Undo(entries[index - 1], random);
    }
  }
}

void PowerLoss::Undo(const Entry& entry, Random& random) const {
  if (entry.kind == Entry::kCreated) {
    unlink(entry.path.c_str());
  } else if (entry.kind == Entry::kRenamed) {
    rename(entry.target.c_str(), entry.path.c_str());
  }
  if (entry.lost) {
    Write(entry.kind == Entry::kRenamed ? entry.target : entry.path, AfterLoss(*entry.lost, random));
  }
}

}  // namespace crash
