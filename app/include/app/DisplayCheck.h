#pragma once

#include <optional>
#include <string>

/// What has to be known of the display before the toolkit looks at it, which would abort or hang where there
/// is none.
namespace quorvane {

/// Why no window can be opened here, as one line, or nothing if one can be tried. Goes by the environment, as
/// the toolkit does, and asks an X server for GLX; ends the process with a line and status 1 where the server
/// does not answer within four seconds. To be called before the application object is made.
std::optional<std::string> whyNoWindow();

/// Turns what the toolkit says while it starts into one line and status 1 where it gives up, which would
/// abort the process otherwise. To live until the application object is there; what was said meanwhile then
/// goes to the log.
class QuietStart {
 public:
  QuietStart();
  ~QuietStart();
  QuietStart(const QuietStart&) = delete;
  QuietStart& operator=(const QuietStart&) = delete;
};

}  // namespace quorvane
