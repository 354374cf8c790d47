#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <set>
#include <string>
#include <vector>

// Errors come back as values, with their line.
#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

namespace quorvane {

/// A table of a TOML file that is read strictly. Every message begins with the file and the line.
class TomlSection {
 public:
  /// where: how messages name the table, such as "[lattice]"; empty for the file itself. file: as messages
  /// name it. The table outlives this.
  TomlSection(const toml::table& table, std::string where, std::string file)
      : table_(table), where_(std::move(where)), file_(std::move(file)) {}

  bool has(const char* key) const { return table_.contains(key); }

  /// The value of a key; throws StudyError if it is missing or of another type.
  const toml::node& need(const char* key);
  std::string text(const char* key);
  std::int64_t whole(const char* key, std::int64_t lowest,
                     std::int64_t highest = std::numeric_limits<std::int64_t>::max());
  const toml::array& list(const char* key);
  TomlSection section(const char* key);
  /// The tables of an array of tables, "[[key]]".
  std::vector<TomlSection> sections(const char* key);
  /// The keys in the order of their lines.
  std::vector<std::string> keys() const;

  /// A number, also one without a point.
  double real(const toml::node& node) const;
  std::string text(const toml::node& node) const;
  std::int64_t whole(const toml::node& node, std::int64_t lowest, std::int64_t highest) const;

  /// Throws StudyError for the first key that was not read.
  void requireAllRead() const;

  [[noreturn]] void refuse(const toml::node& node, const std::string& why) const;
  [[noreturn]] void refuse(const std::string& why) const { refuse(table_, why); }

 private:
  TomlSection sectionOf(const toml::node& node, const std::string& name) const;

  const toml::table& table_;
  std::string where_, file_;
  std::set<std::string, std::less<>> read_;
};

}  // namespace quorvane
