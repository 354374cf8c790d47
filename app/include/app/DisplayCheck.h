#pragma once

#include <optional>
#include <string>

/// Checks of the display before Qt uses it: without a display Qt would abort or hang.
namespace quorvane {

/// Why no window can be opened here, as one line; empty if one can be tried. Uses the environment as Qt does,
/// and asks an X server for GLX; if the server does not answer within four seconds, ends the process with a
/// line and status 1. Call it before the application object is created.
std::optional<std::string> whyNoWindow();

/// Replaces Qt's messages and abort during a failed start by one line and status 1. Must live until the
/// application object exists; earlier messages then go to the log.
class QuietStart {
 public:
  QuietStart();
  ~QuietStart();
  QuietStart(const QuietStart&) = delete;
  QuietStart& operator=(const QuietStart&) = delete;
};

}  // namespace quorvane
