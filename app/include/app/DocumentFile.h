#pragma once

#include <QString>

#include "document/ModelDocument.h"

/// Checks of a document's file without reading it, and the messages about opening it.
namespace quorvane {

inline constexpr const char* kDocumentSuffix = "quorvane";

/// True if a path ends in ".quorvane", in upper or lower case.
bool isDocumentName(const QString& path);

/// Why this cannot be opened or replaced as a document, as one line without the path; empty if it can, or if
/// there is no such file. Folders, devices and pipes cannot: reading a pipe may block for ever.
QString whyNoDocument(const QString& path);

/// The message about a document that was not opened completely: its file name and the reason.
QString openingMessage(const QString& path, const OpenResult& result);

}  // namespace quorvane
