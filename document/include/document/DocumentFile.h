#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>

/// Reading the bytes of a document from a file or descriptor.
namespace quorvane {

/// The limit for documents. The largest legal one with the longest names has less than a third of it.
inline constexpr std::size_t kMaxDocumentBytes = 4'000'000;

/// The limit for names in a document.
inline constexpr std::size_t kMaxNameLength = 10'000;

enum class DocumentSource {
  kFile,      ///< regular files only; never blocks
  kAnything,  ///< also pipes and devices, up to their end
};

/// Reads a whole file, at most a number of bytes: a larger one gives FileError::kTooLarge, for a regular file
/// before it is read. FileError::kNotRegular if only regular files are allowed.
std::error_code readDocumentFile(const std::filesystem::path& path, DocumentSource source, std::string& text,
                                 std::size_t most = kMaxDocumentBytes);

/// Reads a descriptor to its end, with the same limit.
std::error_code readDocumentFrom(int file, std::string& text, std::size_t most = kMaxDocumentBytes);

}  // namespace quorvane
