#pragma once

#include <QString>

namespace quorvane {

/// The folder of the example documents that belong to a program: those installed with it, or those of the
/// source tree that it was built in. Empty if there is none.
///
/// programFolder: where the program's file lies, absolute.
QString exampleFolder(const QString& programFolder);

/// That of the running program.
QString exampleFolder();

/// Where to save: the folder, or the current one where none is given, or the examples', which are for
/// reading, or that of kept work, which goes in the end.
QString folderToSaveIn(const QString& folder);

}  // namespace quorvane
