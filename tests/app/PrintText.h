#pragma once

#include <QString>
#include <ostream>

/// Lets failures show texts as they are. Every source of the program has to see it before it compares texts.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
