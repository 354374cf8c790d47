#pragma once

#include <QString>

#include "document/ParsedDocument.h"

namespace quorvane {

/// Rich text: a message, if there is one, then a document's sizes, its pixel types with their colours and its
/// rules, as far as it contains them.
QString summaryOf(const ParsedDocument& document, const QString& message);

}  // namespace quorvane
