#pragma once

#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <vector>

/// What may be on a disk after its power has gone, by what POSIX promises and no more.
namespace quorvane {

/// A call that was recorded by the preloaded library. Paths hold no spaces.
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

/// One change of a file's content or of the names in a folder. Each may reach the disk without the others
/// until a synchronisation has come.
struct Change {
  enum class Kind { kSize, kBlock, kName, kNoName };
  Kind kind;
  int inode = -1;           ///< whose content, or what the name stands for
  std::size_t start = 0;    ///< kBlock
  std::size_t size = 0;     ///< kSize
  std::string bytes = {};   ///< kBlock
  std::string path = {};    ///< kName, kNoName
  std::string former = {};  ///< kName: the name that goes at the same moment; may be empty
  std::size_t call = 0;     ///< the call that made it
  /// The call that brought it to the disk for certain.
  std::size_t certainFrom = std::numeric_limits<std::size_t>::max();
};

/// A file's content by its path.
using Disk = std::map<std::string, std::string>;

/// All that a recorded program did to files that were on the disk before.
class FileSystemModel {
 public:
  FileSystemModel(const Disk& before, const std::vector<RecordedCall>& calls);

  /// Calls look with every disk that may be left if the power goes right before a call, or after the last
  /// one: with all, none, each one alone, all but each one, and all beginnings and ends of the changes that
  /// are not certain; with any of them where they are few. The number of disks.
  std::size_t afterPowerLoss(std::size_t beforeCall, const std::function<void(const Disk&)>& look) const;

  std::size_t numCalls() const { return numCalls_; }
  /// The call at which the program had said that all is written; numCalls() if it never did.
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
