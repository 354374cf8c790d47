#include "study/StudyFolder.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

#include "batch/Messages.h"
#include "batch/Streams.h"
#include "document/Folder.h"
#include "record/Fingerprint.h"
#include "record/Program.h"
#include "study/RunMaker.h"
#include "study/Shard.h"
#include "study/StudyFile.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr const char* kShardsName = "shards";
constexpr int kFormat = 1;

Digest digestOf(const Study& study, const std::string& document) {
  DigestOf digest(thisProgram().version + '\n' + identityOf(study));
  digest.add(document);
  return digest.value();
}

nlohmann::ordered_json contentOf(const std::string& text) {
  const Fingerprint print = fingerprintOf(text);
  return {{"sha256", print.sha256}, {"bytes", print.bytes}};
}

/// The content of study.json; null if there is none or it is damaged.
nlohmann::ordered_json descriptionIn(const fs::path& folder) {
  std::error_code none;
  if (!fs::exists(folder / kDescriptionName, none)) return nullptr;
  return nlohmann::ordered_json::parse(textOf(folder / kDescriptionName), nullptr, false);
}

/// The builds of the program that made runs: those of a former description, and this one.
nlohmann::ordered_json programsWith(const nlohmann::ordered_json& former) {
  const Program program = thisProgram();
  const nlohmann::ordered_json ours = {
      {"commit", program.commit}, {"compiler", program.compiler}, {"c_library", program.cLibrary}};
  auto programs = nlohmann::ordered_json::array();
  if (former.is_object() && former.contains("programs") && former["programs"].is_array())
    programs = former["programs"];
  if (std::find(programs.begin(), programs.end(), ours) == programs.end()) programs.push_back(ours);
  return programs;
}

/// The text of study.json.
std::string describe(const std::string& studyText, const Study& study, const std::string& document,
                     const nlohmann::ordered_json& former) {
  nlohmann::ordered_json json;
  json["format"] = kFormat;
  json["version"] = thisProgram().version;
  json["programs"] = programsWith(former);
  json["study"] = contentOf(studyText);
  json["document"] = contentOf(document);
  json["document"]["name"] = study.document.generic_string();
  constexpr int indent = 2;
  return json.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

[[noreturn]] void refuse(const fs::path& folder, const std::string& why) {
  throw StudyError(nameOf(folder) + ": " + why);
}

/// Throws unless the folder was made by this version.
void requireThisVersion(const fs::path& folder) {
  const fs::path file = folder / kDescriptionName;
  std::error_code error;
  if (!fs::exists(file, error)) refuse(folder, "is no folder of a study's results (it has no study.json)");
  const nlohmann::json json = descriptionIn(folder);
  const auto isText = [&](const char* place) {
    const nlohmann::json::json_pointer pointer(place);
    return json.contains(pointer) && json[pointer].is_string();
  };
  if (!isText("/version")) refuse(file, "is damaged");
  const std::string found = json["version"], ours = thisProgram().version;
  if (found != ours)
    refuse(folder, "its results were made by version " + onOneLine(found) + ", and this is version " + ours +
                       "; use another folder, or that version");
  if (!isText("/study/sha256") || !isText("/document/sha256") || !json.contains("programs") ||
      !json["programs"].is_array())
    refuse(file, "is damaged");
}

/// The first lines in which two texts differ.
std::pair<std::string, std::string> differenceOf(const std::string& a, const std::string& b) {
  const auto place = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  const auto lineAround = [](const std::string& text, std::size_t at) {
    const std::size_t before = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
    const std::size_t from = before == std::string::npos ? 0 : before + 1;
    return text.substr(from, text.find('\n', from) - from);
  };
  const auto at = static_cast<std::size_t>(place.first - a.begin());
  return {lineAround(a, at), lineAround(b, at)};
}

void requireSame(const StudyFolder& there, const Study& study, const std::string& document) {
  const std::string theirs = identityOf(there.study()), ours = identityOf(study);
  if (theirs != ours) {
    const auto [left, right] = differenceOf(theirs, ours);
    refuse(there.path(),
           "holds results of another study: " + inQuotes(left) + " there, " + inQuotes(right) + " here");
  }
  if (there.documentText() != document)
    refuse(there.path(), "holds results of another document: " + nameOf(study.document) +
                             " was changed since, or is another file");
  if (there.study().replicas > study.replicas)
    refuse(there.path(), "holds results of " + std::to_string(there.study().replicas) +
                             " replicas, and the study has " + std::to_string(study.replicas));
}

void write(const fs::path& file, const std::string& text) { writeOutput(file, text); }

/// A folder of somebody else is not filled with results. Other processes may be making the same study.
void requireEmpty(const fs::path& folder) {
  std::error_code none;
  if (!fs::exists(folder, none)) return;
  std::vector<std::string> names;
  if (const auto error = readFolder(folder, names)) refuse(folder, error.message());
  for (const std::string& name : names) {
    const bool ours = name == "." || name == ".." || name == kStudyName || name == kDocumentName ||
                      name == kShardsName || name == kDescriptionName ||
                      name.find(".partial") != std::string::npos;
    if (!ours) refuse(folder, "holds other files, such as " + inQuotes(name) + ", and no study.json");
  }
}

void makeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder / kShardsName, error);
  if (error) refuse(folder, error.message());
}

}  // namespace

StudyFolder::StudyFolder(fs::path path, Study study, std::string document)
    : path_(std::move(path)),
      study_(std::move(study)),
      document_(std::move(document)),
      identity_(digestOf(study_, document_)) {}

StudyFolder StudyFolder::forStudy(const fs::path& studyFile, const fs::path& folder) {
  std::string text = textOf(studyFile);
  Study study = studyIn(text, studyFile);
  std::string document = textOf(studyFile.parent_path() / study.document);
  // A study that does not fit its document leaves no folder behind.
  const RunMaker fits(study, document);
  const auto former = descriptionIn(folder);
  std::optional<StudyFolder> there;
  if (former.is_null())
    requireEmpty(folder);
  else
    there = open(folder);
  const bool hasRuns = there && !there->shardFiles().empty();
  if (hasRuns) requireSame(*there, study, document);
  makeFolder(folder);
  if (!hasRuns) write(folder / kDocumentName, document);
  if (!hasRuns || there->study().replicas < study.replicas)
    write(folder / kStudyName, text);
  else
    text = textOf(folder / kStudyName);
  // Last, since it is what makes the folder one of results.
  const std::string description = describe(text, study, document, former);
  if (former.is_null() || description != textOf(folder / kDescriptionName))
    write(folder / kDescriptionName, description);
  // If another process began another study here at the same time, one of both is refused.
  requireSame(open(folder), study, document);
  return {folder, std::move(study), std::move(document)};
}

void StudyFolder::requireUnchanged() const {
  const auto json = descriptionIn(path_);
  for (const auto& [key, name] : {std::pair("study", kStudyName), {"document", kDocumentName}}) {
    const std::string print = fingerprintOf(textOf(path_ / name)).sha256;
    if (json.at(key).at("sha256") != print)
      refuse(path_ / name, "was changed: its SHA-256 is not that in study.json");
  }
}

std::size_t StudyFolder::numPrograms() const { return descriptionIn(path_).at("programs").size(); }

StudyFolder StudyFolder::open(const fs::path& folder) {
  requireThisVersion(folder);
  return {folder, readStudy(folder / kStudyName), textOf(folder / kDocumentName)};
}

fs::path StudyFolder::defaultFor(const fs::path& studyFile) { return studyFile.stem().string() + ".results"; }

std::vector<fs::path> StudyFolder::shardFiles() const {
  std::vector<std::string> names;
  std::error_code none;
  if (!fs::exists(shards(), none)) return {};
  if (const auto error = readFolder(shards(), names)) refuse(shards(), error.message());
  std::sort(names.begin(), names.end());
  std::vector<fs::path> files;
  for (const std::string& name : names)
    if (name.ends_with(kShardSuffix)) files.push_back(shards() / name);
  return files;
}

}  // namespace quorvane
