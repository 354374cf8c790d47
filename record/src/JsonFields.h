#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// Parses JSON without trusting it: nesting is limited, and a key must not occur twice. Throws RecordError.
nlohmann::json parsedJson(std::string_view text);

/// The fields of an object, each to be read once. Everything throws RecordError, whose line names the field.
class JsonFields {
 public:
  /// where: the field that the object is, empty for the whole text.
  JsonFields(const nlohmann::json& object, std::string where);

  std::string text(const char* key);
  std::optional<std::string> textOrNull(const char* key);
  std::int64_t whole(const char* key, std::int64_t lowest,
                     std::int64_t highest = std::numeric_limits<std::int64_t>::max());
  double real(const char* key);  ///< finite, 0 or more
  bool flag(const char* key);
  JsonFields object(const char* key);
  std::vector<std::string> texts(const char* key);
  /// Calls a function with each object of a list.
  void each(const char* key, const std::function<void(JsonFields)>& use);
  bool has(const char* key) const { return object_.contains(key); }

  /// Throws if there are fields that were not read.
  void finish() const;
  [[noreturn]] void refuse(const char* key, const std::string& why) const;

 private:
  const nlohmann::json& take(const char* key);
  const nlohmann::json& takeList(const char* key);
  std::string textIn(const nlohmann::json& value, const char* key) const;
  std::string nameOfField(const std::string& key) const { return where_.empty() ? key : where_ + '.' + key; }

  const nlohmann::json& object_;
  std::string where_;
  std::vector<std::string> read_;
};

}  // namespace quorvane
