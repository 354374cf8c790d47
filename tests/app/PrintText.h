#pragma once

#include <QString>
#include <ostream>

/// Prints texts in failure messages. Every source of the program must include it before it compares texts.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
