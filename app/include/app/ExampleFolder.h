#pragma once

#include <QString>

namespace quorvane {

/// The folder of the example documents that belong to a program: those installed with it, or those of the
/// source tree that it was built in. Empty if there is none.
///
/// programFolder: where the program's file lies, absolute.
QString exampleFolder(const QString& programFolder);

/// The same for the running program.
QString exampleFolder();

/// The folder in which saving starts: the given one, or the current folder if there is none or if it is the
/// examples', which are read-only, or that of kept work, whose files are removed.
QString folderToSaveIn(const QString& folder);

}  // namespace quorvane
