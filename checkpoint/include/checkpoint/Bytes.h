#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "checkpoint/CheckpointError.h"
#include "engine/Relaxed.h"

/// Values as bytes that are the same on every machine: integers and the bits of doubles with the lowest byte
/// first, a text or a list as its length in eight bytes and its elements.
///
/// ByteWriter and ByteReader have the same operations, so that one function template lists the fields of an
/// object for both directions. The operations of a writer take values, those of a reader variables.
namespace quorvane {

class ByteWriter {
 public:
  void value(std::unsigned_integral auto number) { add(std::uint64_t{number}, sizeof number); }
  void value(std::signed_integral auto number) {
    add(static_cast<std::uint64_t>(std::int64_t{number}), sizeof number);
  }
  void value(bool flag) { add(flag ? 1 : 0, 1); }
  void value(double number) { add(std::bit_cast<std::uint64_t>(number), sizeof number); }
  void value(std::string_view text);
  void value(const std::string& text) { value(std::string_view(text)); }
  void value(const std::filesystem::path& path) { value(std::string_view(path.native())); }
  template <typename T>
  void value(const Relaxed<T>& number) {
    value(number.load());
  }
  template <typename T, std::size_t kSize>
  void value(const T (&array)[kSize]) {
    for (const T& element : array) value(element);
  }
  template <typename T, std::size_t kSize>
  void value(const std::array<T, kSize>& array) {
    for (const T& element : array) value(element);
  }
  template <typename T>
  void value(const std::optional<T>& element) {
    value(element.has_value());
    if (element) value(*element);
  }

  /// A number, or an array of numbers, from lowest to highest. Nothing is checked here.
  template <typename T>
  void within(const T& number, std::int64_t /*lowest*/, std::int64_t /*highest*/) {
    value(number);
  }

  /// A list, whose elements transfer takes to or from the bytes.
  template <typename T, typename Transfer>
  void list(const std::vector<T>& elements, const Transfer& transfer) {
    value(std::uint64_t{elements.size()});
    for (const T& element : elements) transfer(*this, element);
  }
  /// The same for an element that may be missing.
  template <typename T, typename Transfer>
  void maybe(const std::optional<T>& element, const Transfer& transfer) {
    value(element.has_value());
    if (element) transfer(*this, *element);
  }

  const std::string& bytes() const { return bytes_; }
  std::string take() { return std::move(bytes_); }

 private:
  void add(std::uint64_t number, std::size_t size);

  std::string bytes_;
};

/// Throws CheckpointError, as all operations do, if the bytes end early or hold a value that cannot be.
/// Never reserves more memory than the bytes account for.
class ByteReader {
 public:
  /// The bytes must outlive the reader.
  explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

  template <std::integral T>
  void value(T& number) {
    number = static_cast<T>(take(sizeof number));
  }
  void value(bool& flag);
  void value(double& number) { number = std::bit_cast<double>(take(sizeof number)); }
  void value(std::string& text) { text = block(); }
  void value(std::filesystem::path& path) { path = std::string(block()); }
  template <typename T>
  void value(Relaxed<T>& number) {
    T plain{};
    value(plain);
    number = plain;
  }
  template <typename T, std::size_t kSize>
  void value(T (&array)[kSize]) {
    for (T& element : array) value(element);
  }
  template <typename T, std::size_t kSize>
  void value(std::array<T, kSize>& array) {
    for (T& element : array) value(element);
  }
  template <typename T>
  void value(std::optional<T>& element) {
    bool has = false;
    value(has);
    element.reset();
    if (has) value(element.emplace());
  }

  template <typename T>
  requires(!std::is_array_v<T>) void within(T& number, std::int64_t lowest, std::int64_t highest) {
    value(number);
    require(number >= lowest && number <= highest, "a number is out of range");
  }
  template <typename T, std::size_t kSize>
  void within(T (&array)[kSize], std::int64_t lowest, std::int64_t highest) {
    for (T& element : array) within(element, lowest, highest);
  }

  template <typename T, typename Transfer>
  void list(std::vector<T>& elements, const Transfer& transfer) {
    elements.clear();
    for (std::uint64_t left = take(sizeof left); left > 0; --left) {
      require(!bytes_.empty(), "it ends early");
      transfer(*this, elements.emplace_back());
    }
  }
  template <typename T, typename Transfer>
  void maybe(std::optional<T>& element, const Transfer& transfer) {
    bool has = false;
    value(has);
    element.reset();
    if (has) transfer(*this, element.emplace());
  }

  /// A text as a view of the bytes.
  std::string_view block();
  /// Throws unless everything was read.
  void requireEnd() const { require(bytes_.empty(), "it is too long"); }
  /// Throws with the reason unless the condition holds.
  static void require(bool condition, const char* reason);

 private:
  std::uint64_t take(std::size_t size);

  std::string_view bytes_;
};

}  // namespace quorvane
