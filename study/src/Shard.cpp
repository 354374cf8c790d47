#include "study/Shard.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <random>
#include <system_error>

#include "batch/Messages.h"
#include "checkpoint/Bytes.h"
#include "study/StudyError.h"

namespace quorvane {
namespace {

constexpr std::string_view kMagic = "QSHARD1\n";
constexpr std::string_view kRecordMagic = "QREC";
constexpr std::size_t kDigestBytes = 8;
constexpr std::size_t kHeaderBytes = kMagic.size() + sizeof(Digest);
/// Magic, length and digest.
constexpr std::size_t kRecordHeadBytes = kRecordMagic.size() + 4 + kDigestBytes;
constexpr std::size_t kRunBytes = 8;
/// A record of millions of columns; a longer length is damage.
constexpr std::uint32_t kMostContent = 1U << 30;

[[noreturn]] void fail(const std::filesystem::path& file, int error) {
  throw StudyError(nameOf(file) + ": " + std::generic_category().message(error));
}

std::string digestText(std::string_view text) {
  const Digest digest = DigestOf(text).value();
  return {digest.begin(), digest.begin() + kDigestBytes};
}

std::string headerOf(const Digest& identity) {
  return std::string(kMagic) + std::string(identity.begin(), identity.end());
}

/// A record that is whole.
std::string recordOf(std::int64_t run, std::string_view content) {
  ByteWriter numbers;
  numbers.value(static_cast<std::uint32_t>(content.size()));
  ByteWriter body;
  body.value(run);
  std::string text = body.take();
  text += content;
  return std::string(kRecordMagic) + numbers.bytes() + digestText(text) + text;
}

std::string randomName() {
  std::random_device source;
  char name[40];
  std::snprintf(name, sizeof name, "%08x%08x%08x", source(), source(), source());
  return std::string(name) + kShardSuffix;
}

/// Writes all of it, or gives the error.
int writeWhole(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace

ShardReader::ShardReader(std::filesystem::path file, const Digest& identity) : file_(std::move(file)) {
  descriptor_ = ::open(file_.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor_ < 0) fail(file_, errno);
  size_ = ::lseek(descriptor_, 0, SEEK_END);
  std::string header;
  try {
    header = bytes(0, static_cast<std::size_t>(std::min<std::int64_t>(size_, kHeaderBytes)));
  } catch (...) {
    ::close(descriptor_);
    throw;
  }
  const std::string whole = headerOf(identity);
  const bool cutShort = header.size() < whole.size() && whole.compare(0, header.size(), header) == 0;
  if (cutShort || header == whole) return;
  ::close(descriptor_);
  throw StudyError(nameOf(file_) + (header.compare(0, kMagic.size(), kMagic) == 0
                                        ? ": is a shard of another study"
                                        : ": is no shard, or its beginning is damaged; move it away, and "
                                          "its runs are made again"));
}

ShardReader::~ShardReader() { ::close(descriptor_); }

std::string ShardReader::bytes(std::int64_t offset, std::size_t length) const {
  std::string text(length, '\0');
  std::size_t done = 0;
  while (done < length) {
    const ssize_t count =
        ::pread(descriptor_, text.data() + done, length - done, offset + static_cast<off_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail(file_, errno);
    if (count == 0) throw StudyError(nameOf(file_) + ": has become shorter while it was read");
    done += static_cast<std::size_t>(count);
  }
  return text;
}

namespace {

/// A part of a file, so that a scan needs no memory for the whole of it.
class Window {
 public:
  using Read = std::function<std::string(std::int64_t offset, std::size_t length)>;

  Window(Read read, std::int64_t size) : read_(std::move(read)), size_(size) {}

  /// At least length bytes from an offset on, or all that there are.
  std::string_view at(std::int64_t offset, std::size_t length) {
    const auto left = static_cast<std::size_t>(size_ - offset);
    length = std::min(length, left);
    const bool inside = offset >= start_ && offset - start_ + static_cast<std::int64_t>(length) <=
                                                static_cast<std::int64_t>(text_.size());
    if (!inside) {
      text_ = read_(offset, std::min(left, std::max(length, kChunk)));
      start_ = offset;
    }
    return std::string_view(text_).substr(static_cast<std::size_t>(offset - start_));
  }

 private:
  static constexpr std::size_t kChunk = 1 << 20;

  Read read_;
  std::int64_t size_, start_ = 0;
  std::string text_;
};

/// The record at a place, if there is a whole one.
std::optional<RecordPlace> recordAt(Window& window, std::int64_t offset, std::int64_t size) {
  constexpr std::size_t least = kRecordHeadBytes + kRunBytes;
  const std::string_view head = window.at(offset, least);
  if (head.size() < least || head.substr(0, kRecordMagic.size()) != kRecordMagic) return std::nullopt;
  std::uint32_t length = 0;
  ByteReader(head.substr(kRecordMagic.size(), sizeof length)).value(length);
  const std::int64_t whole = static_cast<std::int64_t>(least) + length;
  if (length > kMostContent || whole > size - offset) return std::nullopt;
  const std::string_view record = window.at(offset, static_cast<std::size_t>(whole));
  const std::string_view body = record.substr(kRecordHeadBytes, kRunBytes + length);
  if (record.substr(kRecordMagic.size() + sizeof length, kDigestBytes) != digestText(body))
    return std::nullopt;
  std::int64_t run = 0;
  ByteReader(body).value(run);
  return RecordPlace{.run = run, .offset = offset + static_cast<std::int64_t>(least), .length = length};
}

/// Where the next record may begin, at the offset or behind it; the size if nowhere.
std::int64_t nextMagic(Window& window, std::int64_t offset, std::int64_t size) {
  while (offset < size) {
    const std::string_view text = window.at(offset, kRecordMagic.size());
    const auto place = text.find(kRecordMagic);
    if (place != std::string_view::npos) return offset + static_cast<std::int64_t>(place);
    if (text.size() < kRecordMagic.size() || offset + static_cast<std::int64_t>(text.size()) >= size)
      return size;
    // The bytes may be cut by the end of this part.
    offset += static_cast<std::int64_t>(text.size() - kRecordMagic.size() + 1);
  }
  return size;
}

}  // namespace

std::int64_t ShardReader::scan(const Found& found) const {
  Window window([this](std::int64_t offset, std::size_t length) { return bytes(offset, length); }, size_);
  std::int64_t damaged = 0;
  bool inDamage = false;
  for (std::int64_t offset = kHeaderBytes; offset < size_;) {
    if (const auto place = recordAt(window, offset, size_)) {
      if (inDamage) ++damaged;
      inDamage = false;
      found(*place, window.at(place->offset, place->length).substr(0, place->length));
      offset = place->offset + place->length;
    } else {
      inDamage = true;
      offset = nextMagic(window, offset + 1, size_);
    }
  }
  return damaged;
}

std::string ShardReader::content(const RecordPlace& place) const {
  constexpr std::int64_t back = kDigestBytes + kRunBytes;
  const std::string text = bytes(place.offset - back, back + place.length);
  if (text.substr(0, kDigestBytes) != digestText(std::string_view(text).substr(kDigestBytes)))
    throw StudyError(nameOf(file_) + ": was changed while it was read");
  return text.substr(back);
}

ShardWriter::~ShardWriter() {
  if (descriptor_ < 0) return;
  ::fsync(descriptor_);
  ::close(descriptor_);
}

void ShardWriter::create() {
  file_ = folder_ / randomName();
  descriptor_ = ::open(file_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0666);
  if (descriptor_ < 0) fail(file_, errno);
  const std::string header = headerOf(identity_);
  if (const int error = writeWhole(descriptor_, header)) {
    ::close(descriptor_);
    ::unlink(file_.c_str());
    descriptor_ = -1;
    fail(file_, error);
  }
  size_ = static_cast<std::int64_t>(header.size());
}

void ShardWriter::append(std::int64_t run, std::string_view content) {
  if (content.size() > kMostContent)
    throw StudyError(nameOf(folder_) + ": a run has too many values for a record");
  if (descriptor_ < 0) create();
  const std::string record = recordOf(run, content);
  if (const int error = writeWhole(descriptor_, record)) {
    // If even this fails, the reader takes what there is for a torn tail.
    static_cast<void>(!::ftruncate(descriptor_, size_));
    fail(file_, error);
  }
  size_ += static_cast<std::int64_t>(record.size());
}

}  // namespace quorvane
