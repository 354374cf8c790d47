#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

#include "model/LatticeModel.h"

/// The document of a whole system: plain ASCII text, one value per line, each line ended by a line feed.
///
/// In order: sites across, sites upwards, number of pixel types; the type of every site, i outer and j inner;
/// for each pixel type its name, immobile flag, masquerade, red, green, blue, persistence, opacity and field;
/// the number of rules; for each rule its name, disabled flag, ignore-energy flag, type, end A, end B,
/// parameter, facilitation number and facilitation type. Whole numbers are decimal, reals have ten digits
/// after a full stop, names are not quoted. Pair energies are not stored: they follow from the rules.
///
/// All functions are for the main thread, do not depend on the locale, and access a model through its
/// operations.
namespace quorvane {

/// The log lines for a cancelled panel and for a file that cannot be read or written.
inline constexpr const char* kLogOpenCancelled = "readUsingOpenPanel cancelled";
inline constexpr const char* kLogNoLines = "zAryOfLines count = 0";
inline constexpr const char* kLogSaveCancelled = "writeUsingSavePanel cancelled";
inline constexpr const char* kLogSaveFailed = "writeUsingSavePanel failed";

/// The reason when memory runs out. Short enough for a std::string without allocation.
inline constexpr const char* kOutOfMemory = "out of memory";

/// The first three values of a document, within the limits of a model.
struct DocumentHeader {
  int imax;      ///< sites across, 1 to kMaxSide
  int jmax;      ///< sites upwards, 1 to kMaxSide
  int numTypes;  ///< pixel types, 1 to kMaxPixelTypes
};

/// The result of saving. reason: one line without a path, empty if the document was saved. note: such a line
/// about a save with a peculiarity; mostly empty. error: why the file could not be written, if that was it.
struct SaveResult {
  bool saved = false;
  std::string reason = {};
  std::string note = {};
  std::error_code error = {};
};

enum class OpenStatus {
  kOpened,
  kCutShort,    ///< the document ends early; what there is of it was applied
  kRefused,     ///< a value is outside the limits; nothing was changed
  kUnreadable,  ///< no such file, too large, or not ASCII; nothing was changed
};

/// The result of opening. Message and reason are one line each without a path, empty if the whole document
/// was opened. The message is for the log: it begins with "line N: ", N counted from 1, or is kLogNoLines or
/// kOutOfMemory for an unreadable file. The reason is for the user: the same, except that it says why a file
/// is unreadable.
struct OpenResult {
  OpenStatus status = OpenStatus::kUnreadable;
  std::string message;
  std::string reason;
};

/// Called with the header of a document that will be applied, before the model is changed.
using HeaderObserver = std::function<void(const DocumentHeader&)>;

/// The document of a model as text. Each value is read once, so during a run each site is as it was when it
/// was read. A name outside ASCII or with a line feed is written unchanged.
std::string writeDocument(const LatticeModel& model);

/// Writes the document of a model to a file as writeFileAtomically does, and removes partial files of dead
/// processes beside it. Fails if a name is not ASCII or too long for a document; never blocks on a pipe.
SaveResult saveDocument(const LatticeModel& model, const std::filesystem::path& path);

/// The same for a text from writeDocument.
SaveResult saveDocument(std::string_view text, const std::filesystem::path& path);

/// Rebuilds a model from the text of a document; no run loop may be active.
///
/// Checks every value of the text before anything changes: sizes 1 to kMaxSide, types 1 to kMaxPixelTypes,
/// rules 0 to kMaxRules that fit into the model's rows beside the present entries, every site within the
/// types, every end, masquerade and facilitation type within them or -1. Names have kMaxNameLength characters
/// at most. Flags, facilitation numbers, rule types and reals are not limited. Then initialises the model
/// (with the draws of initializeLatticeModel) and sets everything in the order of the text; traces start from
/// the lattice. A text that ends early is applied as far as it goes, except that a colour or a rule needs all
/// its lines; one with fewer than three lines changes nothing. Everything after the last rule is ignored. The
/// empty line after a final line feed counts as a line.
OpenResult readDocument(LatticeModel& model, std::string_view text, const HeaderObserver& onHeader = {});

/// Rebuilds a model from a regular file, as readDocument does. Pipes and devices, which might never end, are
/// refused.
OpenResult openDocument(LatticeModel& model, const std::filesystem::path& path,
                        const HeaderObserver& onHeader = {});

}  // namespace quorvane
