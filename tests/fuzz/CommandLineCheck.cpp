#include "CommandLineCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <vector>

#include "DocumentSupport.h"
#include "batch/CommandLine.h"
#include "batch/Messages.h"
#include "batch/Results.h"
#include "batch/Targets.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

Words split(std::string_view text) {
  Words words;
  while (!text.empty()) {
    words.emplace_back(text.substr(0, text.find('\0')));
    text.remove_prefix(std::min(words.back().size() + 1, text.size()));
  }
  return words;
}

/// A folder with one of each kind of file that a name can refer to.
class Surroundings {
 public:
  Surroundings() {
    std::ofstream(folder_ / "in") << "1\n";
    fs::create_hard_link(folder_ / "in", folder_ / "hard");
    fs::create_symlink("in", folder_ / "link");
    fs::create_symlink("loop", folder_ / "loop");
    fs::create_symlink("not-there", folder_ / "dangling");
    fs::create_directory(folder_ / "d");
  }

  const fs::path& path() const { return folder_.path(); }

  /// Names and modification times; every change of a folder or file changes its time.
  std::string state() const {
    std::string state;
    Words names = namesIn(path());
    names.emplace_back(".");
    for (const std::string& name : names) {
      struct stat status = {};
      ::lstat((folder_ / name).c_str(), &status);
      state += name + ' ' + std::to_string(status.st_ctim.tv_sec) + ' ' +
               std::to_string(status.st_ctim.tv_nsec) + '\n';
    }
    return state;
  }

 private:
  TemporaryFolder folder_;
};

/// Changes the current folder during its lifetime.
class Inside {
 public:
  explicit Inside(const fs::path& folder) : before_(fs::current_path()) { fs::current_path(folder); }
  ~Inside() { fs::current_path(before_); }
  Inside(const Inside&) = delete;
  Inside& operator=(const Inside&) = delete;

 private:
  fs::path before_;
};

/// Captures standard error and discards standard output.
class Captured {
 public:
  Captured() : cerr_(std::cerr.rdbuf(text_.rdbuf())), output_(::dup(STDOUT_FILENO)) {
    const int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(nowhere, STDOUT_FILENO);
    ::close(nowhere);
  }
  ~Captured() {
    std::cerr.rdbuf(cerr_);
    ::dup2(output_, STDOUT_FILENO);
    ::close(output_);
  }
  Captured(const Captured&) = delete;
  Captured& operator=(const Captured&) = delete;

  std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::streambuf* cerr_;
  int output_;
};

struct Parsed {
  Command outcome;
  std::string err;
};

Parsed parse(const Words& words) {
  std::vector<const char*> argv = {"quorvane-batch"};
  for (const std::string& word : words) argv.push_back(word.c_str());
  const Captured captured;
  Command outcome = parseCommandLine(static_cast<int>(argv.size()), argv.data());
  return {std::move(outcome), captured.text()};
}

/// The length in bytes of the UTF-8 character at the start of the text, in shortest form; 0 if there is none.
std::size_t characterAt(std::string_view text) {
  const auto byte = [&](std::size_t k) { return k < text.size() ? static_cast<unsigned char>(text[k]) : 0u; };
  const unsigned first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
  unsigned value = first & (0xffu >> (length + 1));
  for (std::size_t k = 1; k < length; ++k) {
    if ((byte(k) & 0xc0) != 0x80) return 0;
    value = (value << 6) | (byte(k) & 0x3f);
  }
  constexpr unsigned least[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = value >= 0xd800 && value <= 0xdfff;
  const bool leads = first >= 0xc0 && first < 0xf8;
  return leads && value >= least[length] && value <= 0x10ffff && !surrogate ? length : 0;
}

/// Why a text cannot be shown on one line of a terminal.
std::string whyNotALine(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = characterAt(text);
    if (length == 0) return "a byte that is no UTF-8";
    const auto first = static_cast<unsigned char>(text[0]);
    const bool control = length == 1 ? first < ' ' || first == 0x7f
                                     : first == 0xc2 && static_cast<unsigned char>(text[1]) < 0xa0;
    if (control) return "a control character";
    text.remove_prefix(length);
  }
  return {};
}

/// The text that inQuotes has quoted.
std::string unquoted(std::string_view quoted) {
  std::string text;
  for (std::size_t k = 1; k + 1 < quoted.size(); ++k) {
    if (quoted[k] != '\\') {
      text.push_back(quoted[k]);
      continue;
    }
    const char kind = quoted[++k];
    const auto digit = [&](std::size_t at) {
      return static_cast<int>(std::string_view("0123456789abcdef").find(quoted.at(at)));
    };
    if (kind == 'x') {
      text.push_back(static_cast<char>(digit(k + 1) * 16 + digit(k + 2)));
      k += 2;
    } else {
      text.push_back(kind == 'n' ? '\n' : kind == 't' ? '\t' : kind == 'r' ? '\r' : kind);
    }
  }
  return text;
}

std::string checkMessagesOf(const Words& words) {
  for (const std::string& word : words) {
    const std::string quoted = inQuotes(word), line = onOneLine(word);
    for (const std::string& shown : {quoted, line, nameOf(word)})
      if (const std::string why = whyNotALine(shown); !why.empty()) return "shown with " + why + ": " + shown;
    if (unquoted(quoted) != word) return "quoted, it is another: " + quoted;
    if (onOneLine(line) != line) return "shown twice, it changes: " + line;
  }
  return {};
}

std::string checkRefusal(const std::string& err, const Words& words) {
  constexpr std::string_view start = "quorvane-batch: ", end = " (--help tells more)\n";
  if (!err.starts_with(start) || !err.ends_with(end)) return "not a refusal: " + err;
  const std::string_view line(err.data(), err.size() - 1);
  if (line.size() <= start.size() + end.size()) return "an empty refusal";
  if (const std::string why = whyNotALine(line); !why.empty()) return "a refusal with " + why + ": " + err;
  const auto speaksOf = [](const std::string& text, const char* word) {
    return text.find(word) != std::string::npos;
  };
  for (const char* library : {"std::", "CLI::", "basic_string", "terminate", "what()"}) {
    const bool said = std::any_of(words.begin(), words.end(),
                                  [&](const std::string& word) { return speaksOf(word, library); });
    if (speaksOf(err, library) && !said) return "speaks of a library: " + err;
  }
  return {};
}

std::string checkOptions(const BatchOptions& options) {
  if (options.document.empty()) return "no document";
  if (options.sweeps < 0 || options.every < 1) return "sweeps beyond the limits";
  if (options.scale < 1 || options.scale > kMaxScale) return "scale beyond the limits";
  if (!asksFor(options, [](const Result& result) { return result.written != Result::kAfterAllOthers; }))
    return "no result";
  if (asksFor(options, [&](const Result& result) { return (options.*result.target)->empty(); }))
    return "an empty name";
  if (!(options.checkpointEvery > 0.0)) return "no time between checkpoints";
  if (options.checkpoint && (options.checkpoint->empty() || options.checkpoint == "-"))
    return "no file for checkpoints";
  if (options.frames == "-") return "frames to standard output";
  if (options.trace && !options.picture && !options.frames) return "traces for no picture";
  const Start& start = options.start;
  if (start.seed && *start.seed < 1) return "a seed beyond the limits";
  if (start.remake && std::min(start.remake->imax, start.remake->jmax) < 1) return "no sites";
  double sum = 0.0;
  for (const Share& share : start.fill) sum += share.share;
  if (!start.fill.empty() && std::abs(sum - 1.0) > 1e-9) return "shares that do not add up to 1";
  if (const auto conflict = conflictOf(options)) return "a conflict is left: " + *conflict;
  return {};
}

Words writtenOut(const BatchOptions& options) {
  Words words = {"--sweeps=" + std::to_string(options.sweeps), "--every=" + std::to_string(options.every),
                 "--scale=" + std::to_string(options.scale)};
  for (const Result& result : allResults())
    if (const auto& target = options.*result.target)
      words.push_back(result.option + std::string("=") + target->native());
  if (options.trace) words.emplace_back("--trace");
  if (options.checkpoint) {
    std::ostringstream seconds;
    seconds << std::setprecision(17) << options.checkpointEvery;
    words.push_back("--checkpoint=" + options.checkpoint->native());
    words.push_back("--checkpoint-every=" + seconds.str());
  }
  const Start& start = options.start;
  if (options.measure) words.push_back("--observables=" + options.observables);
  if (start.seed) words.push_back("--seed=" + std::to_string(*start.seed));
  for (const Setting& setting : start.settings)
    words.push_back("--set=" + std::string(setting.of == Setting::kRule ? "rule " : "type ") + setting.name +
                    ' ' + setting.field + '=' + setting.value);
  if (start.remake)
    words.push_back("--remake=" + std::to_string(start.remake->imax) + 'x' +
                    std::to_string(start.remake->jmax));
  words.insert(words.end(), {"--", options.document.native()});
  return words;
}

bool same(const BatchOptions& a, const BatchOptions& b) {
  const auto sameTarget = [&](const Result& result) { return a.*result.target == b.*result.target; };
  const auto results = allResults();
  return std::all_of(results.begin(), results.end(), sameTarget) &&
         std::tie(a.document, a.sweeps, a.every, a.observables, a.scale, a.trace) ==
             std::tie(b.document, b.sweeps, b.every, b.observables, b.scale, b.trace) &&
         std::tie(a.checkpoint, a.checkpointEvery) == std::tie(b.checkpoint, b.checkpointEvery) &&
         std::tie(a.start.seed, a.start.remake, a.start.settings) ==
             std::tie(b.start.seed, b.start.remake, b.start.settings);
}

std::string checkAccepted(const BatchOptions& options, const std::string& err) {
  if (!err.empty()) return "accepted, and yet: " + err;
  if (const std::string wrong = checkOptions(options); !wrong.empty()) return wrong;
  const Parsed again = parse(writtenOut(options));
  const auto* written = std::get_if<BatchOptions>(&again.outcome);
  if (!written) return "written out, it is refused: " + again.err;
  return same(*written, options) ? "" : "written out, it means something else";
}

std::string checkReplay(const fs::path& record, const std::string& err) {
  if (!err.empty()) return "replays, and yet: " + err;
  if (record.empty() || record == "-") return "replays no file";
  const Parsed again = parse({"--replay=" + record.native()});
  const auto* request = std::get_if<ReplayRequest>(&again.outcome);
  return request && request->record == record ? "" : "written out, it replays another: " + again.err;
}

std::string checkContinuation(const Continuation& continuation, const std::string& err) {
  if (!err.empty()) return "accepted, and yet: " + err;
  if (continuation.checkpoint.empty()) return "an empty name";
  if (continuation.sweeps.value_or(0) < 0) return "sweeps beyond the limits";
  Words words = {"--continue=" + continuation.checkpoint.native()};
  if (continuation.sweeps) words.push_back("--sweeps=" + std::to_string(*continuation.sweeps));
  const Parsed again = parse(words);
  const auto* written = std::get_if<Continuation>(&again.outcome);
  if (!written) return "written out, it is refused: " + again.err;
  const bool isSame =
      written->checkpoint == continuation.checkpoint && written->sweeps == continuation.sweeps;
  return isSame ? "" : "written out, it means something else";
}

std::string checkWords(const Words& words) {
  const Parsed parsed = parse(words);
  if (const auto* request = std::get_if<ReplayRequest>(&parsed.outcome))
    return checkReplay(request->record, parsed.err);
  if (const auto* continuation = std::get_if<Continuation>(&parsed.outcome))
    return checkContinuation(*continuation, parsed.err);
  if (const auto* options = std::get_if<BatchOptions>(&parsed.outcome))
    return checkAccepted(*options, parsed.err);
  switch (std::get<ExitStatus>(parsed.outcome)) {
    case kExitDone:
      return parsed.err.empty() ? "" : "help, and yet: " + parsed.err;
    case kExitUsage:
      return checkRefusal(parsed.err, words);
    default:
      return "no such status";
  }
}

}  // namespace

std::string checkCommandLine(std::string_view text) {
  static const Surroundings surroundings;
  const Words words = split(text);
  const Inside inside(surroundings.path());
  const std::string before = surroundings.state();
  std::string wrong = checkMessagesOf(words);
  if (wrong.empty()) wrong = checkWords(words);
  return wrong.empty() && surroundings.state() != before ? "a file came, went or changed" : wrong;
}

}  // namespace quorvane
