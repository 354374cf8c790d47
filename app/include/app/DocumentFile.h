#pragma once

#include <QString>

#include "document/ModelDocument.h"

/// What can be said of a document's file without reading it, and what the user is told about opening it.
namespace quorvane {

inline constexpr const char* kDocumentSuffix = "quorvane";

/// True if a path ends in ".quorvane", in upper or lower case.
bool isDocumentName(const QString& path);

/// One line without the path that says why this cannot be opened or replaced as a document; empty where it
/// can, or where there is no such file. A folder, a device and a pipe are none: reading a pipe may wait for
/// ever.
QString whyNoDocument(const QString& path);

/// What the window says of a document that could not be opened as a whole: its file name and the reason.
QString openingMessage(const QString& path, const OpenResult& result);

}  // namespace quorvane
