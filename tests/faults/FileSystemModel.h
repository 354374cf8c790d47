#pragma once

#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <vector>

/// The possible contents of a disk after a loss of power, assuming only what POSIX guarantees.
namespace quorvane {

/// A call recorded by the preloaded library. Paths contain no spaces.
struct RecordedCall {
  enum class Kind { kOpen, kWrite, kTruncate, kSync, kClose, kRename, kUnlink, kMakeFolder, kSaid };
  Kind kind;
  int file = -1;
  bool isFolder = false;   ///< kOpen
  bool empties = false;    ///< kOpen
  std::size_t start = 0;   ///< kWrite
  std::size_t size = 0;    ///< kTruncate
  std::string path = {};   ///< kOpen, kUnlink, kMakeFolder, kRename (the old name)
  std::string to = {};     ///< kRename
  std::string bytes = {};  ///< kWrite
};

/// The calls of a record, in order.
std::vector<RecordedCall> readRecord(const std::filesystem::path& record);

/// One change of a file's content or of the names in a folder. Each may reach the disk independently of the
/// others until a synchronisation.
struct Change {
  enum class Kind { kSize, kBlock, kName, kNoName };
  Kind kind;
  int inode = -1;           ///< the file that is changed or named
  std::size_t start = 0;    ///< kBlock
  std::size_t size = 0;     ///< kSize
  std::string bytes = {};   ///< kBlock
  std::string path = {};    ///< kName, kNoName
  std::string former = {};  ///< kName: the name removed at the same time; may be empty
  std::size_t call = 0;     ///< the call that made it
  /// The call after which it is on the disk for certain.
  std::size_t certainFrom = std::numeric_limits<std::size_t>::max();
};

/// The content of the files by path.
using Disk = std::map<std::string, std::string>;

/// All changes that a recorded program made to files that were on the disk before.
class FileSystemModel {
 public:
  FileSystemModel(const Disk& before, const std::vector<RecordedCall>& calls);

  /// Calls look with every possible disk after a loss of power right before a call, or after the last one:
  /// with all, none, each single one, all but each one, and all prefixes and suffixes of the uncertain
  /// changes; with every subset if they are few. Returns the number of disks.
  std::size_t afterPowerLoss(std::size_t beforeCall, const std::function<void(const Disk&)>& look) const;

  std::size_t numCalls() const { return numCalls_; }
  /// The call at which the program had reported that all is written; numCalls() if it never did.
  std::size_t saidAt() const { return saidAt_; }

 private:
  void play(const RecordedCall& call, std::size_t index);
  void open(const RecordedCall& call, std::size_t index);
  void resize(int inode, std::size_t size, std::size_t index);
  void write(int inode, const RecordedCall& call, std::size_t index);
  void synchronise(int file, std::size_t index);
  void add(Change change, std::size_t call);
  Disk diskWith(const std::vector<const Change*>& changes) const;

  std::vector<Change> changes_;
  std::map<int, std::string> contentBefore_;          ///< by inode
  std::map<std::string, int> inodesBefore_, inodes_;  ///< by path, as the program sees them
  std::map<int, std::size_t> sizes_;                  ///< by inode
  std::map<std::string, int> foldersMade_;            ///< by path
  std::map<int, int> openInodes_;                     ///< by descriptor
  std::map<int, std::string> openFolders_;            ///< by descriptor
  int numInodes_ = 0;
  std::size_t numCalls_, saidAt_;
};

}  // namespace quorvane
