#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "checkpoint/Digest.h"
#include "study/Study.h"

namespace quorvane {

/// Names in the folder of results.
inline constexpr const char* kStudyName = "study.toml";
inline constexpr const char* kDocumentName = "document.quorvane";
inline constexpr const char* kDescriptionName = "study.json";

/// A study with the text of its document, and the folder of its results.
///
/// The folder holds study.toml and the document, both as they were at the start, study.json, which says what
/// made them (the builds of the program, in the order of their first start, and hashes), and shards/. Tables
/// are written beside them.
class StudyFolder {
 public:
  /// Makes the folder for a study file, or opens it if it is of this study, also if other processes do so at
  /// the same time. More replicas than so far are taken over, and a folder without runs is made anew. Throws
  /// StudyError if the study does not fit its document, and then no folder is made, or with what differs if
  /// the folder is of another study, document or version.
  static StudyFolder forStudy(const std::filesystem::path& studyFile, const std::filesystem::path& folder);

  /// Opens an existing one. Throws StudyError if it is none, or of another version.
  static StudyFolder open(const std::filesystem::path& folder);

  /// The folder of a study file if none is given: its name with ".results", in the working folder.
  static std::filesystem::path defaultFor(const std::filesystem::path& studyFile);

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path shards() const { return path_ / "shards"; }
  const Study& study() const { return study_; }
  const std::string& documentText() const { return document_; }
  /// Of everything that decides the results, in every shard.
  const Digest& identity() const { return identity_; }
  /// All shards, sorted by name.
  std::vector<std::filesystem::path> shardFiles() const;

  /// Throws StudyError if study.toml or the document has another hash than in study.json.
  void requireUnchanged() const;
  /// How many builds of the program have made runs.
  std::size_t numPrograms() const;

 private:
  StudyFolder(std::filesystem::path path, Study study, std::string document);

  std::filesystem::path path_;
  Study study_;
  std::string document_;
  Digest identity_;
};

}  // namespace quorvane
