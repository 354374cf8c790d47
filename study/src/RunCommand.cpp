#include "study/RunCommand.h"

#include <utility>

namespace quorvane {
namespace {

/// Options of a command, each with its value.
class Words {
 public:
  explicit Words(std::string program) : line_(std::move(program)) {}
  void add(const std::string& word) { line_ += ' ' + shellWord(word); }
  void add(const char* option, const std::string& value) {
    line_.append(" ").append(option);
    add(value);
  }
  std::string line() const { return line_ + '\n'; }

 private:
  std::string line_;
};

std::string settingText(const Setting& setting) {
  const char* of = setting.of == Setting::kRule ? "rule " : "type ";
  return of + setting.name + ' ' + setting.field + '=' + setting.value;
}

std::string sharesText(const std::vector<Share>& shares) {
  std::string text;
  for (const Share& share : shares) {
    if (!text.empty()) text += ',';
    text.append(share.type).append("=").append(shortest(share.share));
  }
  return text;
}

}  // namespace

std::string shellWord(const std::string& word) {
  constexpr const char* plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./,:=+@%";
  if (!word.empty() && word.find_first_not_of(plain) == std::string::npos) return word;
  std::string quoted = "'";
  for (const char c : word) {
    if (c == '\'')
      quoted += "'\\''";
    else
      quoted += c;
  }
  return quoted + '\'';
}

std::string runCommand(const Study& study, const std::filesystem::path& document, std::int64_t run) {
  const Start start = startOf(study, run);
  Words words("quorvane-batch");
  words.add(document.native());
  words.add("--sweeps", std::to_string(study.sweeps));
  words.add("--every", std::to_string(study.every));
  words.add("--seed", std::to_string(*start.seed));
  for (const Setting& setting : start.settings) words.add("--set", settingText(setting));
  if (start.remake)
    words.add("--remake", std::to_string(start.remake->imax) + 'x' + std::to_string(start.remake->jmax));
  if (!start.fill.empty()) words.add("--fill", sharesText(start.fill));
  words.add("--observables", study.observables);
  words.add("--measure", "run-" + std::to_string(run) + ".csv");
  return words.line();
}

}  // namespace quorvane
