#include "checkpoint/Bytes.h"

namespace quorvane {
namespace {

constexpr std::size_t kBitsPerByte = 8;

}  // namespace

void ByteWriter::add(std::uint64_t number, std::size_t size) {
  char block[sizeof number];
  for (std::size_t k = 0; k < size; ++k) block[k] = static_cast<char>(number >> (kBitsPerByte * k) & 0xff);
  bytes_.append(block, size);
}

void ByteWriter::value(std::string_view text) {
  value(std::uint64_t{text.size()});
  bytes_ += text;
}

void ByteReader::require(bool condition, const char* reason) {
  if (!condition) throw CheckpointError("is damaged (" + std::string(reason) + ")");
}

std::uint64_t ByteReader::take(std::size_t size) {
  require(bytes_.size() >= size, "it ends early");
  std::uint64_t number = 0;
  for (std::size_t k = 0; k < size; ++k)
    number |= std::uint64_t{static_cast<unsigned char>(bytes_[k])} << (kBitsPerByte * k);
  bytes_.remove_prefix(size);
  return number;
}

void ByteReader::value(bool& flag) {
  const std::uint64_t number = take(1);
  require(number <= 1, "a flag is neither 0 nor 1");
  flag = number == 1;
}

std::string_view ByteReader::block() {
  const std::uint64_t length = take(sizeof length);
  require(length <= bytes_.size(), "it ends early");
  const auto text = bytes_.substr(0, static_cast<std::size_t>(length));
  bytes_.remove_prefix(text.size());
  return text;
}

}  // namespace quorvane
