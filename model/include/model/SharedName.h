#pragma once

#include <memory>
#include <string>
#include <utility>

namespace quorvane {

/// The name of a pixel type or rule: a reference to a string that may have several owners. Main thread only.
class SharedName {
 public:
  /// No string yet; reads as the empty one.
  SharedName() = default;
  /// A new string with the given text.
  SharedName(std::string text) : string_(std::make_shared<const std::string>(std::move(text))) {}
  SharedName(const char* text) : SharedName(std::string(text)) {}
  /// Shares the given string object: changes by its other owners are visible here.
  SharedName(std::shared_ptr<const std::string> string) : string_(std::move(string)) {}

  const std::string& text() const {
    static const std::string none;
    return string_ ? *string_ : none;
  }

 private:
  std::shared_ptr<const std::string> string_;
};

}  // namespace quorvane
