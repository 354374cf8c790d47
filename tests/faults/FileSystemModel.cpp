#include "FileSystemModel.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace quorvane {
namespace {

using Kind = RecordedCall::Kind;

/// The unit in which a disk writes.
constexpr std::size_t kBlockSize = 4096;

RecordedCall callFrom(const std::string& line, std::istream& record) {
  std::istringstream words(line);
  RecordedCall call{Kind::kSaid};
  std::string name;
  words >> name;
  if (name == "open") {
    call.kind = Kind::kOpen;
    words >> call.file >> call.isFolder >> call.empties >> call.path;
  } else if (name == "write") {
    call.kind = Kind::kWrite;
    words >> call.file >> call.start >> call.size;
    call.bytes.resize(call.size);
    record.read(call.bytes.data(), static_cast<std::streamsize>(call.size));
  } else if (name == "truncate") {
    call.kind = Kind::kTruncate;
    words >> call.file >> call.size;
  } else if (name == "rename") {
    call.kind = Kind::kRename;
    words >> call.path >> call.to;
  } else if (name == "unlink" || name == "mkdir") {
    call.kind = name == "unlink" ? Kind::kUnlink : Kind::kMakeFolder;
    words >> call.path;
  } else if (name == "sync" || name == "close") {
    call.kind = name == "sync" ? Kind::kSync : Kind::kClose;
    words >> call.file;
  }
  return call;
}

std::string folderOf(const std::string& path) { return std::filesystem::path(path).parent_path(); }

/// A file to which changes are applied in order, some of them missing.
struct Content {
  std::string bytes;
  std::size_t size = 0;

  void resize(std::size_t newSize) {
    if (newSize < bytes.size()) bytes.resize(newSize);
    size = newSize;
  }
  void put(const Change& block) {
    if (bytes.size() < block.start + block.bytes.size()) bytes.resize(block.start + block.bytes.size());
    bytes.replace(block.start, block.bytes.size(), block.bytes);
  }
  std::string whole() const {
    std::string content = bytes;
    content.resize(size);
    return content;
  }
};

}  // namespace

std::vector<RecordedCall> readRecord(const std::filesystem::path& path) {
  std::ifstream record(path, std::ios::binary);
  std::vector<RecordedCall> calls;
  for (std::string line; std::getline(record, line);) calls.push_back(callFrom(line, record));
  return calls;
}

FileSystemModel::FileSystemModel(const Disk& before, const std::vector<RecordedCall>& calls)
    : numCalls_(calls.size()), saidAt_(calls.size()) {
  for (const auto& [path, content] : before) {
    contentBefore_[numInodes_] = content;
    sizes_[numInodes_] = content.size();
    inodes_[path] = numInodes_++;
  }
  inodesBefore_ = inodes_;
  for (std::size_t k = 0; k < calls.size(); ++k) play(calls[k], k);
}

void FileSystemModel::add(Change change, std::size_t call) {
  change.call = call;
  changes_.push_back(std::move(change));
}

void FileSystemModel::play(const RecordedCall& call, std::size_t index) {
  switch (call.kind) {
    case Kind::kOpen:
      return open(call, index);
    case Kind::kWrite:
      return write(openInodes_.at(call.file), call, index);
    case Kind::kTruncate:
      return resize(openInodes_.at(call.file), call.size, index);
    case Kind::kSync:
      return synchronise(call.file, index);
    case Kind::kClose:
      return;
    case Kind::kRename: {
      const int inode = inodes_.at(call.path);
      inodes_.erase(call.path);
      inodes_[call.to] = inode;
      return add({.kind = Change::Kind::kName, .inode = inode, .path = call.to, .former = call.path}, index);
    }
    case Kind::kUnlink:
      inodes_.erase(call.path);
      return add({.kind = Change::Kind::kNoName, .path = call.path}, index);
    case Kind::kMakeFolder:
      foldersMade_[call.path] = numInodes_++;
      return add({.kind = Change::Kind::kName, .inode = foldersMade_[call.path], .path = call.path}, index);
    case Kind::kSaid:
      saidAt_ = index;
  }
}

void FileSystemModel::open(const RecordedCall& call, std::size_t index) {
  openInodes_.erase(call.file);
  openFolders_.erase(call.file);
  if (call.isFolder) {
    openFolders_[call.file] = call.path;
    return;
  }
  if (!inodes_.contains(call.path)) {
    inodes_[call.path] = numInodes_++;
    add({.kind = Change::Kind::kName, .inode = inodes_[call.path], .path = call.path}, index);
  }
  openInodes_[call.file] = inodes_[call.path];
  if (call.empties) resize(inodes_[call.path], 0, index);
}

void FileSystemModel::resize(int inode, std::size_t size, std::size_t index) {
  sizes_[inode] = size;
  add({.kind = Change::Kind::kSize, .inode = inode, .size = size}, index);
}

void FileSystemModel::write(int inode, const RecordedCall& call, std::size_t index) {
  if (call.start + call.bytes.size() > sizes_[inode]) resize(inode, call.start + call.bytes.size(), index);
  for (std::size_t done = 0; done < call.bytes.size(); done += kBlockSize)
    add({.kind = Change::Kind::kBlock,
         .inode = inode,
         .start = call.start + done,
         .bytes = call.bytes.substr(done, kBlockSize)},
        index);
}

/// fsync of a file does not cover its name, and fsync of a folder does not cover the content of its files.
void FileSystemModel::synchronise(int file, std::size_t index) {
  const auto folder = openFolders_.find(file);
  for (Change& change : changes_) {
    const bool isOfNames = change.kind == Change::Kind::kName || change.kind == Change::Kind::kNoName;
    const bool isMeant = folder != openFolders_.end() ? isOfNames && folderOf(change.path) == folder->second
                                                      : !isOfNames && change.inode == openInodes_.at(file);
    if (isMeant) change.certainFrom = std::min(change.certainFrom, index);
  }
}

std::size_t FileSystemModel::afterPowerLoss(std::size_t beforeCall,
                                            const std::function<void(const Disk&)>& look) const {
  std::vector<const Change*> changes;
  std::vector<std::size_t> uncertain;  // places in changes
  for (const Change& change : changes_) {
    if (change.call >= beforeCall) break;
    if (change.certainFrom >= beforeCall) uncertain.push_back(changes.size());
    changes.push_back(&change);
  }
  std::size_t numDisks = 0;
  const auto lookWith = [&](const std::function<bool(std::size_t)>& isThere) {
    std::vector<const Change*> those = changes;
    for (std::size_t k = 0; k < uncertain.size(); ++k)
      if (!isThere(k)) those[uncertain[k]] = nullptr;
    look(diskWith(those));
    ++numDisks;
  };
  const std::size_t count = uncertain.size();
  constexpr std::size_t few = 10;
  if (count <= few) {
    for (std::size_t set = 0; set < std::size_t{1} << count; ++set)
      lookWith([set](std::size_t k) { return (set >> k & 1) != 0; });
    return numDisks;
  }
  for (std::size_t n = 0; n <= count; ++n) {
    lookWith([n](std::size_t k) { return k < n; });
    lookWith([n](std::size_t k) { return k >= n; });
    lookWith([n](std::size_t k) { return k == n; });
    lookWith([n](std::size_t k) { return k != n; });
  }
  return numDisks;
}

Disk FileSystemModel::diskWith(const std::vector<const Change*>& changes) const {
  std::map<std::string, int> names = inodesBefore_;
  std::map<int, Content> contents;
  for (const auto& [inode, bytes] : contentBefore_) contents[inode] = {bytes, bytes.size()};
  for (const Change* change : changes) {
    if (!change) continue;
    switch (change->kind) {
      case Change::Kind::kSize:
        contents[change->inode].resize(change->size);
        break;
      case Change::Kind::kBlock:
        contents[change->inode].put(*change);
        break;
      case Change::Kind::kName:
        if (const auto former = names.find(change->former);
            former != names.end() && former->second == change->inode)
          names.erase(former);
        names[change->path] = change->inode;
        break;
      case Change::Kind::kNoName:
        names.erase(change->path);
    }
  }
  Disk disk;
  for (const auto& [path, inode] : names) {
    const bool isFolder = foldersMade_.contains(path);
    const bool isReachable = !foldersMade_.contains(folderOf(path)) || names.contains(folderOf(path));
    if (!isFolder && isReachable) disk[path] = contents[inode].whole();
  }
  return disk;
}

}  // namespace quorvane
