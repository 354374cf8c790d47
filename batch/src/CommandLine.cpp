#include "batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdint>
#include <functional>
#include <iostream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "batch/CommandWords.h"
#include "batch/Messages.h"
#include "batch/Results.h"
#include "batch/Streams.h"
#include "batch/Targets.h"

namespace quorvane {
namespace {

constexpr const char* kProgram = "quorvane-batch";
constexpr std::int64_t kNoLimit = std::numeric_limits<std::int64_t>::max();

/// Accepts decimal digits with a value in range. CLI11's own conversion clamps a number that is too large.
CLI::Validator wholeNumber(std::int64_t lowest, std::int64_t highest) {
  const auto check = [=](const std::string& text) -> std::string {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    if (whole && value >= lowest && value <= highest) return {};
    return inQuotes(text) + " is not a whole number from " + std::to_string(lowest) +
           (highest == kNoLimit ? " upwards" : " to " + std::to_string(highest));
  };
  return {check, ""};
}

[[noreturn]] void refuse(const std::string& line) { throw CLI::ParseError(line, kExitUsage); }

/// Turns the system's file names for standard output into "-".
void recogniseStandardOutput(std::optional<std::filesystem::path>& target) {
  for (const char* name : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"})
    if (target && *target == name) target = "-";
}

/// The options of the results that fulfil a condition, as in "--output, --picture or --frames".
template <typename Condition>
std::string oneOf(const Condition& condition) {
  std::vector<std::string> options;
  for (const Result& result : allResults())
    if (std::invoke(condition, result)) options.emplace_back(result.option);
  std::string text;
  for (std::size_t k = 0; k < options.size(); ++k)
    text += (k == 0 ? "" : k + 1 < options.size() ? ", " : " or ") + options[k];
  return text;
}

void requireSense(BatchOptions& options) {
  if (options.document.empty()) refuse("DOCUMENT: the name is empty");
  for (const Result& result : allResults()) {
    auto& target = options.*result.target;
    if (result.kind == Result::kFile)
      recogniseStandardOutput(target);
    else if (target && isStandardStream(*target))
      refuse(std::string(result.option) + ": needs a folder, not standard output (-)");
  }
  if (options.trace && !asksFor(options, &Result::showsTraces))
    refuse("--trace: needs " + oneOf(&Result::showsTraces));
  const auto any = [](const Result&) { return true; };
  if (!asksFor(options, any)) refuse("no result is asked for: " + oneOf(any) + " is needed");
  if (const auto conflict = conflictOf(options)) refuse(*conflict);
}

constexpr const char* kDescription =
    R"(Runs a Quorvane document without a window: opens it as the application does in a
fresh start, makes sweeps and writes what you ask for. The same document and the
same number of sweeps give the same bytes, here and in the window.
)";

constexpr const char* kFooter =
    R"(A file "-" is standard input for DOCUMENT and standard output for --output,
--populations or --picture; one of them only. Progress and messages go to standard
error. Existing files are replaced, but never left half written. Rows of
--populations gather beside their FILE in .FILE.quorvane-PID.partial, which stays
where the run is killed or fails.

Ctrl-C (SIGINT), SIGTERM or a terminal that closes (SIGHUP) stops the run after a
whole sweep; what you asked for is then written as it stands. Another one, a second
later or more, ends the program at once. A result that fails is told, and the
others are written.

Exit status:
  0    done
  1    the document or a file failed; one line says which, where and why
  2    wrong usage
  129  ended by SIGHUP (as a shell tells it), and everything written
  130  ended by SIGINT (as a shell tells it), and everything written
  143  ended by SIGTERM, and everything written

Examples:
  The lattice after 1000 sweeps, as a document and as a picture:
    quorvane-batch in.quorvane --sweeps 1000 --output out.quorvane \
        --picture out.png

  How many sites each type holds, every 10 sweeps:
    quorvane-batch in.quorvane --sweeps 5000 --populations counts.csv --every 10

  A film, with ffmpeg:
    quorvane-batch in.quorvane --sweeps 3000 --frames film --every 10
    ffmpeg -i film/frame-%06d.png -vf "pad=ceil(iw/2)*2:ceil(ih/2)*2" \
        -pix_fmt yuv420p film.mp4

  In a pipe:
    gunzip -c in.gz | quorvane-batch - --sweeps 1000 --output - | gzip > out.gz)";

constexpr const char* kFileName = "FILE";
constexpr const char* kFolderName = "FOLDER";

/// Those of the end of the run first.
void addResults(CLI::App& app, BatchOptions& options) {
  for (const auto written : {Result::kAfterRun, Result::kDuringRun})
    for (const Result& result : allResults())
      if (result.written == written)
        app.add_option(result.option, options.*result.target, result.help)
            ->type_name(result.kind == Result::kFolder ? kFolderName : kFileName)
            ->group("What to write");
}

void addOptions(CLI::App& app, BatchOptions& options) {
  app.add_option("DOCUMENT", options.document, "The document to open, - for standard input")
      ->required()
      ->type_name(kFileName);

  constexpr const char* run = "The run";
  app.add_option("--sweeps", options.sweeps, "Sweeps to make, 0 or more")
      ->required()
      ->check(wholeNumber(0, kNoLimit))
      ->type_name("N")
      ->group(run);
  app.add_option("--every", options.every,
                 "Sweeps between rows of --populations and between\n"
                 "--frames, which are of the same sweeps: the start,\n"
                 "K, 2K, ... and the last one (default 1)")
      ->check(wholeNumber(1, kNoLimit))
      ->type_name("K")
      ->group(run);

  addResults(app, options);

  constexpr const char* pictures = "How pictures and frames look";
  app.add_option("--scale", options.scale,
                 "Pixels a site, 1 to " + std::to_string(kMaxScale) + " (default " +
                     std::to_string(kDefaultScale) + ")")
      ->check(wholeNumber(1, kMaxScale))
      ->type_name("P")
      ->group(pictures);
  app.add_flag("--trace", options.trace,
               "To the right of the lattice also the trace of each\n"
               "pixel type, as the window shows it where only that\n"
               "type is drawn")
      ->group(pictures);
}

void addHelp(CLI::App& app) {
  constexpr const char* help = "Help";
  app.set_help_flag("-h,--help", "Prints this and exits")->group(help);
  app.set_version_flag("--version", std::string(kProgram) + " " + QUORVANE_VERSION,
                       "Prints the version and exits")
      ->group(help);
  app.footer(kFooter);
  app.failure_message([](const CLI::App*, const CLI::Error& error) {
    return std::string(kProgram) + ": " + onOneLine(error.what()) + " (--help tells more)\n";
  });
}

/// Every option as it is typed, for the check of single words.
std::vector<OptionWord> wordsOf(const CLI::App& app) {
  std::vector<OptionWord> words;
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_lnames().empty()) continue;  // DOCUMENT
    const std::string value = option->get_type_name();
    const bool isFile = value == kFileName || value == kFolderName;
    const Takes takes = option->get_items_expected_max() == 0 ? Takes::kNothing
                        : isFile                              ? Takes::kFile
                                                              : Takes::kNumber;
    words.push_back({"--" + option->get_lnames().front(), takes});
  }
  return words;
}

/// Prints the text of --help or --version; a failed write is an error.
ExitStatus print(const std::string& text) {
  try {
    writeStandardOutput(text);
    return kExitDone;
  } catch (const BatchFailure& failure) {
    Messages(std::cerr).fail(failure.what());
    return kExitFailed;
  }
}

}  // namespace

std::variant<BatchOptions, ExitStatus> parseCommandLine(int argc, const char* const* argv) {
  BatchOptions options;
  CLI::App app(kDescription, kProgram);
  addOptions(app, options);
  addHelp(app);
  try {
    if (const auto wrong = wrongWord({argv + 1, argv + argc}, wordsOf(app))) refuse(*wrong);
    app.parse(argc, argv);
    requireSense(options);
  } catch (const CLI::ParseError& error) {
    std::ostringstream text;
    return app.exit(error, text, std::cerr) == 0 ? print(text.str()) : kExitUsage;
  }
  return options;
}

}  // namespace quorvane
