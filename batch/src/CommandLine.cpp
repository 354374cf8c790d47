#include "batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

#include "batch/Streams.h"

namespace quorvane {
namespace {

constexpr const char* kProgram = "quorvane-batch";
constexpr std::int64_t kNoLimit = std::numeric_limits<std::int64_t>::max();

/// Only decimal digits, and a value in range: the library itself takes a number that is too large as the
/// largest one there is.
CLI::Validator wholeNumber(std::int64_t lowest, std::int64_t highest) {
  const auto check = [=](const std::string& text) -> std::string {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    if (whole && value >= lowest && value <= highest) return {};
    return text + " is not a whole number from " + std::to_string(lowest) +
           (highest == kNoLimit ? " upwards" : " to " + std::to_string(highest));
  };
  return {check, ""};
}

using Target = std::optional<std::filesystem::path>;

/// One path for all names of a file, as far as they can be followed: a pipe has no path.
std::filesystem::path identityOf(const std::filesystem::path& target) {
  const std::filesystem::path file = isStandardStream(target) ? "/dev/stdout" : target;
  std::error_code error;
  const auto absolute = std::filesystem::absolute(file, error);
  auto path = error ? file : std::filesystem::weakly_canonical(absolute, error);
  if (error) path = file;
  return path.has_filename() ? path : path.parent_path();  // FOLDER/ is FOLDER
}

/// Two results in one file would leave only the later one, and on standard output a mixture.
void requireDifferentTargets(const BatchOptions& options) {
  std::vector<std::filesystem::path> seen;
  for (const Target& target : {options.output, options.populations, options.picture, options.frames}) {
    if (!target) continue;
    const std::filesystem::path path = identityOf(*target);
    if (std::find(seen.begin(), seen.end(), path) != seen.end())
      throw CLI::ValidationError(isStandardStream(*target) ? "standard output (-)" : target->string(),
                                 "is asked for twice");
    seen.push_back(path);
  }
}

void requireSense(const BatchOptions& options) {
  requireDifferentTargets(options);
  if (options.frames && isStandardStream(*options.frames))
    throw CLI::ValidationError("--frames", "needs a folder, not standard output (-)");
  if (options.trace && !options.picture && !options.frames)
    throw CLI::ValidationError("--trace", "needs --picture or --frames");
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

Ctrl-C (SIGINT) or SIGTERM stops the run after a whole sweep; what you asked for is
then written as it stands. A second one ends the program at once.

Exit status:
  0    done
  1    the document or a file failed; one line says which, where and why
  2    wrong usage
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

void addOptions(CLI::App& app, BatchOptions& options) {
  app.add_option("DOCUMENT", options.document, "The document to open, - for standard input")
      ->required()
      ->type_name("FILE");

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

  constexpr const char* results = "What to write";
  app.add_option("--output", options.output, "The document after the run")->type_name("FILE")->group(results);
  app.add_option("--picture", options.picture,
                 "The lattice after the run, as the window shows it,\n"
                 "as PNG")
      ->type_name("FILE")
      ->group(results);
  app.add_option("--populations", options.populations,
                 "The number of sites of each pixel type, as CSV,\n"
                 "a row every K sweeps")
      ->type_name("FILE")
      ->group(results);
  app.add_option("--frames", options.frames,
                 "A picture every K sweeps: frame-000000.png is the\n"
                 "start. Makes the folder if there is none; refuses\n"
                 "one that holds frames already")
      ->type_name("FOLDER")
      ->group(results);

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
    return std::string(kProgram) + ": " + error.what() + " (--help tells more)\n";
  });
}

}  // namespace

std::variant<BatchOptions, ExitStatus> parseCommandLine(int argc, const char* const* argv) {
  BatchOptions options;
  CLI::App app(kDescription, kProgram);
  addOptions(app, options);
  addHelp(app);
  try {
    app.parse(argc, argv);
    requireSense(options);
  } catch (const CLI::ParseError& error) {
    return app.exit(error, std::cout, std::cerr) == 0 ? kExitDone : kExitUsage;
  }
  return options;
}

}  // namespace quorvane
