#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>

/// A document as bytes that come from somewhere.
namespace quorvane {

/// Bytes of the largest document. The largest legal one with the longest names has less than a third of it.
inline constexpr std::size_t kMaxDocumentBytes = 4'000'000;

/// Characters of the longest name in a document.
inline constexpr std::size_t kMaxNameLength = 10'000;

enum class DocumentSource {
  kFile,      ///< regular files only, without ever waiting
  kAnything,  ///< also pipes and devices, up to their end
};

/// Reads a whole file, at most kMaxDocumentBytes: a larger one gives FileError::kTooLarge, a regular one
/// before it is read. FileError::kNotRegular where only regular files are asked for.
std::error_code readDocumentFile(const std::filesystem::path& path, DocumentSource source, std::string& text);

/// Reads a descriptor to its end, with the same limit.
std::error_code readDocumentFrom(int file, std::string& text);

}  // namespace quorvane
