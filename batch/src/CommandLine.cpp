#include "batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <functional>
#include <iostream>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "batch/CommandWords.h"
#include "batch/Messages.h"
#include "batch/Results.h"
#include "batch/Streams.h"
#include "batch/Targets.h"
#include "measure/Registry.h"
#include "record/Record.h"
#include "settings/Names.h"

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

/// Seconds above 0 and up to some 30 years.
std::optional<double> secondsIn(const std::string& text) {
  constexpr double most = 1e9;
  try {
    const double seconds = realIn(text);
    return seconds > 0.0 && seconds <= most ? std::optional(seconds) : std::nullopt;
  } catch (const SettingError&) {
    return std::nullopt;
  }
}

[[noreturn]] void refuse(const std::string& line) { throw CLI::ParseError(line, kExitUsage); }

/// Accepts seconds. CLI11's own conversion depends on the locale.
CLI::Validator someSeconds() {
  const auto check = [](const std::string& text) -> std::string {
    if (secondsIn(text)) return {};
    return inQuotes(text) + " is not a number of seconds above 0, such as 300 or 0.5";
  };
  return {check, ""};
}

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

/// JSON is UTF-8, while file names and arguments may be any bytes.
void requireRecordable(const BatchOptions& options) {
  if (!options.record) return;
  for (const std::string& word : options.commandLine)
    if (!canBeRecorded(word))
      refuse("--record: the word " + inQuotes(word) + " is not UTF-8, as a record is");
  std::error_code error;
  const auto folder = std::filesystem::current_path(error);
  if (!canBeRecorded(folder.native()))
    refuse("--record: the working folder " + inQuotes(folder.native()) + " is not UTF-8, as a record is");
}

/// Rows of standard output could not be checked, or cut, before the run goes on.
void requireFilesForCheckpoint(const BatchOptions& options) {
  if (!options.checkpoint) return;
  if (isStandardStream(*options.checkpoint)) refuse("--checkpoint: needs a file, not standard output (-)");
  for (const Result& result : allResults())
    if (const auto& target = options.*result.target; target && isStandardStream(*target))
      refuse("--checkpoint: needs a file for " + std::string(result.option) + ", not standard output (-)");
}

void requireSense(BatchOptions& options) {
  if (options.document.empty()) refuse("DOCUMENT: the name is empty");
  for (const Result& result : allResults()) {
    auto& target = options.*result.target;
    if (result.kind == Result::kFile)
      recogniseStandardOutput(target);
    else if (target && isStandardStream(*target))
      refuse(std::string(result.option) + ": needs a folder, not standard output (-)");
    if (target && !result.mayBeStream && isStandardStream(*target))
      refuse(std::string(result.option) + ": needs a file, not standard output (-)");
  }
  if (options.trace && !asksFor(options, &Result::showsTraces))
    refuse("--trace: needs " + oneOf(&Result::showsTraces));
  if (options.measure && options.observables.empty())
    refuse("--measure: needs --observables (--observables help lists them)");
  if (!options.measure && !options.observables.empty()) refuse("--observables: needs --measure");
  const auto isOfRun = [](const Result& result) { return result.written != Result::kAfterAllOthers; };
  if (!asksFor(options, isOfRun)) refuse("no result is asked for: " + oneOf(isOfRun) + " is needed");
  requireRecordable(options);
  requireFilesForCheckpoint(options);
  if (const auto conflict = conflictOf(options)) refuse(*conflict);
}

constexpr const char* kDescription =
    R"(Runs a Quorvane document without a window: opens it as the application does in a
fresh start, makes sweeps and writes what you ask for. The same document and the
same number of sweeps give the same bytes, here and in the window.
)";

constexpr const char* kFooter =
    R"(A file "-" is standard input for DOCUMENT and standard output for --output,
--populations, --measure, --picture or --record; one of them only. Progress and
messages go to standard error. Existing files are replaced, but never left half
written. Rows gather beside their FILE in .FILE.quorvane-PID.partial, which
stays where the run is killed or fails.

Ctrl-C (SIGINT), SIGTERM or a terminal that closes (SIGHUP) stops the run after
a whole sweep; what you asked for is then written as it stands. Another one, a
second later or more, ends the program at once. A result that fails is told, and
the others are written. A run with --checkpoint can be continued after any of
this.

Exit status:
  0    done
  1    the document or a file failed; one line says which, where and why. Or a
       replay gave other results
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

  With a record of the run, and the same run again to compare its results:
    quorvane-batch in.quorvane --sweeps 1000 --output out.quorvane \
        --record out.json
    quorvane-batch --replay out.json

  A run that may be interrupted, and its continuation:
    quorvane-batch in.quorvane --sweeps 1000000 --populations counts.csv \
        --checkpoint run.checkpoint
    quorvane-batch --continue run.checkpoint

  In a pipe:
    gunzip -c in.gz | quorvane-batch - --sweeps 1000 --output - | gzip > out.gz)";

constexpr const char* kFileName = "FILE";
constexpr const char* kFolderName = "FOLDER";
constexpr const char* kSettingName = "SETTING";
constexpr const char* kSidesName = "IxJ";
constexpr const char* kSharesName = "SHARES";
constexpr const char* kListName = "LIST";

/// Those of the end of the run first.
void addResults(CLI::App& app, BatchOptions& options) {
  for (const auto written : {Result::kAfterRun, Result::kDuringRun, Result::kAfterAllOthers})
    for (const Result& result : allResults())
      if (result.written == written)
        app.add_option(result.option, options.*result.target, result.help)
            ->type_name(result.kind == Result::kFolder ? kFolderName : kFileName)
            ->group("What to write");
}

void addStart(CLI::App& app, StartWords& words) {
  constexpr const char* start = "The start, in this order";
  app.add_option("--seed", words.seed,
                 "Starts the random numbers as srand(S) does, 1 to\n"
                 "2147483647, before the document is opened (default\n"
                 "10)")
      ->check(wholeNumber(1, std::numeric_limits<std::int32_t>::max()))
      ->type_name("S")
      ->group(start);
  app.add_option("--set", words.settings,
                 "Changes a value: \"rule NAME parameter=VALUE\",\n"
                 "disabled=0|1 or facilitation=N, \"type NAME\n"
                 "field=VALUE\" or immobile=0|1. NAME may be an index\n"
                 "from 0, as #2. May be given several times")
      ->type_name(kSettingName)
      ->allow_extra_args(false)
      ->group(start);
  app.add_option("--remake", words.remake, "Makes the lattice anew with I times J sites")
      ->type_name(kSidesName)
      ->group(start);
  app.add_option("--fill", words.fill,
                 "Gives every site a pixel type at random, with\n"
                 "shares that add up to 1: \"NAME=0.7,#2=0.3\"")
      ->type_name(kSharesName)
      ->group(start);
}

/// The options as they are typed, where their form differs from that in BatchOptions.
struct TypedWords {
  StartWords start;
  std::string checkpointEvery;
  std::filesystem::path continued;
};

void addCheckpoints(CLI::App& app, BatchOptions& options, TypedWords& words) {
  constexpr const char* checkpoints = "Interrupted runs";
  app.add_option("--checkpoint", options.checkpoint,
                 "Where the state of the run is kept: at the start,\n"
                 "from time to time, at a stop and at the end")
      ->type_name(kFileName)
      ->group(checkpoints);
  app.add_option("--checkpoint-every", words.checkpointEvery, "Seconds between two checkpoints (default 300)")
      ->check(someSeconds())
      ->type_name("SECONDS")
      ->group(checkpoints);
  app.add_option("--continue", words.continued,
                 "Goes on from a checkpoint to the sweeps and files\n"
                 "that were asked for, or to another --sweeps N,\n"
                 "counted from the beginning. Takes nothing else")
      ->type_name(kFileName)
      ->group(checkpoints);
}

void addOptions(CLI::App& app, BatchOptions& options, TypedWords& words) {
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
                 "Sweeps between rows and between --frames, which\n"
                 "are of the same sweeps: the start, K, 2K, ... and\n"
                 "the last one (default 1)")
      ->check(wholeNumber(1, kNoLimit))
      ->type_name("K")
      ->group(run);

  addStart(app, words.start);
  addResults(app, options);
  app.add_option("--observables", options.observables,
                 "What --measure writes, as energy,order:Up:Down;\n"
                 "help lists all observables and exits")
      ->type_name(kListName)
      ->group("What to write");

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
  addCheckpoints(app, options, words);
}

/// Only for the help: its command line is recognised by its words.
void addReplay(CLI::App& app, std::filesystem::path& record) {
  app.add_option("--replay", record,
                 "Runs a record again in a temporary folder and\n"
                 "says for each result whether it is the same. No\n"
                 "document or other option with it")
      ->type_name(kFileName)
      ->group("A run again");
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
    const bool isText =
        value == kSettingName || value == kSidesName || value == kSharesName || value == kListName;
    const Takes takes = option->get_items_expected_max() == 0 ? Takes::kNothing
                        : isFile                              ? Takes::kFile
                        : isText                              ? Takes::kText
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

/// The status after what CLI11 throws for a wrong command line, and for --help and --version.
ExitStatus refused(const CLI::App& app, const CLI::ParseError& error) {
  std::ostringstream text;
  return app.exit(error, text, std::cerr) == 0 ? print(text.str()) : kExitUsage;
}

/// True for "--observables help", which needs no document.
bool asksForObservables(const std::vector<std::string>& words) {
  const auto help = std::find(words.begin(), words.end(), "help");
  const bool apart = help != words.end() && help != words.begin() && *(help - 1) == "--observables";
  return apart || std::find(words.begin(), words.end(), "--observables=help") != words.end();
}

bool asksForHelp(const std::string& word) { return word == "--help" || word == "-h" || word == "--version"; }

/// The record of "--replay FILE". words: without an error that wrongWord finds.
std::optional<ReplayRequest> replayIn(const std::vector<std::string>& words) {
  const std::string option = "--replay", attached = option + '=';
  const auto options = std::find(words.begin(), words.end(), "--");
  const auto asks = [&](const std::string& word) { return word == option || word.starts_with(attached); };
  if (std::none_of(words.begin(), options, asks) || std::any_of(words.begin(), options, asksForHelp))
    return std::nullopt;
  const bool isAttached = words.front().starts_with(attached);
  if (words.size() != (isAttached ? 1 : 2) || !asks(words.front()))
    refuse("--replay: needs no document and no other option with it");
  const std::string record = isAttached ? words.front().substr(attached.size()) : words.back();
  if (isStandardStream(record)) refuse("--replay: needs a file, not standard input (-)");
  return ReplayRequest{record};
}

/// True for "--continue FILE", which needs no document.
bool asksToContinue(const std::vector<std::string>& words) {
  const auto end = std::find(words.begin(), words.end(), "--");
  return std::any_of(words.begin(), end, [](const std::string& word) {
    return word == "--continue" || word.starts_with("--continue=");
  });
}

/// The options of the first run stand in the checkpoint.
Continuation continuationOf(const CLI::App& app, const BatchOptions& options, const TypedWords& words) {
  for (const CLI::Option* option : app.get_options()) {
    const std::string name = option->get_name();
    if (option->count() > 0 && name != "--continue" && name != "--sweeps")
      refuse("--continue: goes without " + name + ", since the checkpoint has all options but --sweeps");
  }
  const bool isLonger = app.get_option("--sweeps")->count() > 0;
  return {words.continued, isLonger ? std::optional(options.sweeps) : std::nullopt};
}

BatchOptions runOf(BatchOptions& options, const TypedWords& words) {
  if (!words.checkpointEvery.empty()) {
    if (!options.checkpoint) refuse("--checkpoint-every: needs --checkpoint");
    options.checkpointEvery = *secondsIn(words.checkpointEvery);
  }
  requireSense(options);
  options.start = startFrom(words.start);
  options.startWords = words.start;
  return options;
}

}  // namespace

Command parseCommandLine(int argc, const char* const* argv) {
  BatchOptions options;
  CLI::App app(kDescription, kProgram);
  TypedWords words;
  std::filesystem::path record;
  addOptions(app, options, words);
  addReplay(app, record);
  addHelp(app);
  try {
    const std::vector<std::string> all(argv + 1, argv + argc);
    if (const auto wrong = wrongWord(all, wordsOf(app))) refuse(*wrong);
    if (asksForObservables(all)) return print(observablesHelp());
    if (auto replay = replayIn(all)) return *replay;
    const bool continues = asksToContinue(all);
    if (continues)
      for (const char* name : {"DOCUMENT", "--sweeps"}) app.get_option(name)->required(false);
    app.parse(argc, argv);
    options.commandLine.assign(argv, argv + argc);
    return continues ? Command(continuationOf(app, options, words)) : Command(runOf(options, words));
  } catch (const SettingError& error) {
    return refused(app, CLI::ParseError(error.what(), kExitUsage));
  } catch (const CLI::ParseError& error) {
    return refused(app, error);
  }
}

}  // namespace quorvane
