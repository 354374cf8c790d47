#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "model/LatticeModel.h"

/// The document that holds a whole system: plain ASCII text, one value a line, each line ended by a line
/// feed.
///
/// In order: sites across, sites upwards, number of pixel types; the type of every site, i outer and j inner;
/// for each pixel type its name, immobile flag, masquerade, red, green, blue, persistence, transparency and
/// field; the number of rules; for each rule its name, disabled flag, ignore-energy flag, type, end A, end B,
/// parameter, facilitation number and facilitation type. Whole numbers are decimal, reals have ten digits
/// after a full stop, names stand as they are. Pair energies are not in it: they follow from the rules.
///
/// Everything here belongs to the main thread, depends on no locale, and reads and writes a model through its
/// operations.
namespace quorvane {

/// What the window writes to the log when a panel is cancelled or a file cannot be read or written.
inline constexpr const char* kLogOpenCancelled = "readUsingOpenPanel cancelled";
inline constexpr const char* kLogNoLines = "zAryOfLines count = 0";
inline constexpr const char* kLogSaveCancelled = "writeUsingSavePanel cancelled";
inline constexpr const char* kLogSaveFailed = "writeUsingSavePanel failed";

/// Why saving or opening failed where memory has ended. So short that a string of it needs none.
inline constexpr const char* kOutOfMemory = "out of memory";

/// The first three values of a document, within the limits of a model.
struct DocumentHeader {
  int imax;      ///< sites across, 1 to kMaxSide
  int jmax;      ///< sites upwards, 1 to kMaxSide
  int numTypes;  ///< pixel types, 1 to kMaxPixelTypes
};

/// How saving went. The reason is one line without a path, empty if the document was saved. The note is such
/// a line, too, about a document that was saved otherwise than usual; mostly empty.
struct SaveResult {
  bool saved = false;
  std::string reason = {};
  std::string note = {};
};

enum class OpenStatus {
  kOpened,
  kCutShort,    ///< the document ends early; the model holds what there was of it
  kRefused,     ///< a value is outside the limits; nothing was changed
  kUnreadable,  ///< no such file, too large, or not ASCII; nothing was changed
};

/// How opening went. Message and reason are one line each without a path, empty if the whole document was
/// opened. The message is for the log: it begins with "line N: ", N counted from 1, except that of an
/// unreadable file, which is kLogNoLines or kOutOfMemory. The reason is for people: the same, but why the
/// file is unreadable.
struct OpenResult {
  OpenStatus status = OpenStatus::kUnreadable;
  std::string message;
  std::string reason;
};

/// Called with the header of a document that is about to be applied, before the model is touched.
using HeaderObserver = std::function<void(const DocumentHeader&)>;

/// The document of a model as text. Each value is read once, when its turn comes: of a model that runs
/// meanwhile, every site is as it was at that moment. A name outside ASCII or with a line feed goes in as it
/// is.
std::string writeDocument(const LatticeModel& model);

/// Writes the document of a model to a file as writeFileAtomically does, and removes what earlier processes
/// have left half written beside it. Fails where a name is not ASCII or longer than a document may have it,
/// and never waits for the reader of a pipe.
SaveResult saveDocument(const LatticeModel& model, const std::filesystem::path& path);

/// The same for a text that writeDocument has given.
SaveResult saveDocument(std::string_view text, const std::filesystem::path& path);

/// Rebuilds a model from the text of a document; no run loop may be active.
///
/// Checks every value that stands in the text before anything changes: sizes 1 to kMaxSide, types 1 to
/// kMaxPixelTypes, rules 0 to kMaxRules and no more in a row of the model than fit beside those that already
/// stand there, every site within the types, every end, masquerade and facilitation type within them or -1.
/// Names have kMaxNameLength characters at most. Flags, facilitation numbers, rule types and reals may be
/// anything. Then initialises the model (with the draws of initializeLatticeModel) and sets everything in the
/// order of the text; traces start anew from the lattice. A text that ends early is applied up to where it
/// ends, except that a colour or a rule needs all its lines; one with fewer than three lines changes nothing.
/// What stands behind the last rule is ignored, and the empty line behind a final line feed is a line like
/// any other.
OpenResult readDocument(LatticeModel& model, std::string_view text, const HeaderObserver& onHeader = {});

/// Rebuilds a model from a regular file, as readDocument does. Nothing else is read: a pipe or a device might
/// never end.
OpenResult openDocument(LatticeModel& model, const std::filesystem::path& path,
                        const HeaderObserver& onHeader = {});

}  // namespace quorvane
