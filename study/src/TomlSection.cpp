#include "TomlSection.h"

#include <algorithm>

#include "batch/Messages.h"
#include "study/StudyError.h"

namespace quorvane {
namespace {

std::string kindOf(const toml::node& node) {
  switch (node.type()) {
    case toml::node_type::table:
      return "a table";
    case toml::node_type::array:
      return "a list";
    case toml::node_type::string:
      return "a text";
    case toml::node_type::integer:
      return "a whole number";
    case toml::node_type::floating_point:
      return "a number";
    case toml::node_type::boolean:
      return "true or false";
    case toml::node_type::date:
    case toml::node_type::time:
    case toml::node_type::date_time:
      return "a time";
    case toml::node_type::none:
      break;
  }
  return "nothing";
}

}  // namespace

void TomlSection::refuse(const toml::node& node, const std::string& why) const {
  throw StudyError(file_ + ": line " + std::to_string(node.source().begin.line) + ": " + why);
}

const toml::node& TomlSection::need(const char* key) {
  read_.insert(key);
  const toml::node* node = table_.get(key);
  if (!node) refuse((where_.empty() ? "" : where_ + ": ") + "there is no \"" + key + '"');
  return *node;
}

std::string TomlSection::text(const toml::node& node) const {
  if (const auto* value = node.as_string()) return value->get();
  refuse(node, "a text in quotation marks is needed, not " + kindOf(node));
}

std::string TomlSection::text(const char* key) {
  const toml::node& node = need(key);
  if (!node.is_string())
    refuse(node, std::string(key) + ": a text in quotation marks is needed, not " + kindOf(node));
  return text(node);
}

std::int64_t TomlSection::whole(const toml::node& node, std::int64_t lowest, std::int64_t highest) const {
  if (!node.is_integer()) refuse(node, "a whole number is needed, not " + kindOf(node));
  const std::int64_t value = node.as_integer()->get();
  if (value < lowest || value > highest)
    refuse(node,
           std::to_string(value) + " is not from " + std::to_string(lowest) +
               (highest == std::numeric_limits<std::int64_t>::max() ? " upwards"
                                                                    : " to " + std::to_string(highest)));
  return value;
}

std::int64_t TomlSection::whole(const char* key, std::int64_t lowest, std::int64_t highest) {
  return whole(need(key), lowest, highest);
}

double TomlSection::real(const toml::node& node) const {
  if (const auto* value = node.as_integer()) return static_cast<double>(value->get());
  if (const auto* value = node.as_floating_point()) return value->get();
  refuse(node, "a number is needed, not " + kindOf(node));
}

const toml::array& TomlSection::list(const char* key) {
  const toml::node& node = need(key);
  if (!node.is_array()) refuse(node, std::string(key) + ": a list in [ ] is needed, not " + kindOf(node));
  if (node.as_array()->empty()) refuse(node, std::string(key) + ": the list is empty");
  return *node.as_array();
}

TomlSection TomlSection::sectionOf(const toml::node& node, const std::string& name) const {
  if (!node.is_table()) refuse(node, name + ": a table is needed, not " + kindOf(node));
  return {*node.as_table(), name, file_};
}

TomlSection TomlSection::section(const char* key) {
  return sectionOf(need(key), std::string("[") + key + ']');
}

std::vector<TomlSection> TomlSection::sections(const char* key) {
  const std::string name = std::string("[[") + key + "]]";
  const toml::node& node = need(key);
  if (!node.is_array()) refuse(node, name + " is needed, not " + kindOf(node));
  std::vector<TomlSection> all;
  for (const toml::node& each : *node.as_array()) all.push_back(sectionOf(each, name));
  return all;
}

std::vector<std::string> TomlSection::keys() const {
  std::vector<const toml::key*> sorted;
  for (const auto& [key, node] : table_) sorted.push_back(&key);
  std::sort(sorted.begin(), sorted.end(), [](const toml::key* a, const toml::key* b) {
    const auto& left = a->source().begin;
    const auto& right = b->source().begin;
    return std::pair(left.line, left.column) < std::pair(right.line, right.column);
  });
  std::vector<std::string> names;
  names.reserve(sorted.size());
  for (const toml::key* key : sorted) names.emplace_back(key->str());
  return names;
}

void TomlSection::requireAllRead() const {
  for (const auto& [key, node] : table_) {
    if (read_.find(key.str()) != read_.end()) continue;
    throw StudyError(file_ + ": line " + std::to_string(key.source().begin.line) + ": " +
                     (where_.empty() ? "" : where_ + ": ") + "unknown key " + inQuotes(key.str()));
  }
}

}  // namespace quorvane
