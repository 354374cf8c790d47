#include "app/DisplayCheck.h"

#include <unistd.h>
#include <xcb/xcb.h>

#include <QDebug>
#include <QMutex>
#include <QStringList>
#include <QtGlobal>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

namespace quorvane {
namespace {

constexpr const char* kNoAnswer = "Quorvane needs a display: the X server of DISPLAY does not answer\n";

/// An environment variable, empty if it is not set.
std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

bool begins(const std::string& text, const char* with) { return text.rfind(with, 0) == 0; }

/// Ends the process if it still runs after the seconds.
class Deadline {
 public:
  explicit Deadline(unsigned seconds) {
    std::signal(SIGALRM, [](int) {
      static_cast<void>(!::write(STDERR_FILENO, kNoAnswer, std::strlen(kNoAnswer)));
      ::_exit(EXIT_FAILURE);
    });
    ::alarm(seconds);
  }
  ~Deadline() {
    ::alarm(0);
    std::signal(SIGALRM, SIG_DFL);
  }
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;
};

bool offersGlx(xcb_connection_t& server) {
  const auto question = xcb_query_extension(&server, 3, "GLX");
  const std::unique_ptr<xcb_query_extension_reply_t, decltype(&std::free)> answer(
      xcb_query_extension_reply(&server, question, nullptr), &std::free);
  return answer && answer->present;
}

std::optional<std::string> whyNoWindowOnX(bool elseWayland) {
  constexpr unsigned secondsToAnswer = 4;
  const Deadline deadline(secondsToAnswer);
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(xcb_connect(nullptr, nullptr),
                                                                            &xcb_disconnect);
  const std::string display = "the X server of DISPLAY=" + variable("DISPLAY");
  if (xcb_connection_has_error(server.get())) {
    if (elseWayland) return std::nullopt;
    return display + " cannot be reached";
  }
  // Without this Qt may wait for ever; a user who sets the variable overrides it.
  if (variable("QT_XCB_GL_INTEGRATION") == "xcb_egl" || offersGlx(*server)) return std::nullopt;
  return display + " offers no OpenGL (no GLX; QT_XCB_GL_INTEGRATION=xcb_egl tries to do without)";
}

/// Qt's own threads write messages too.
QMutex withholding;
QStringList withheld;

void withhold(QtMsgType type, const QMessageLogContext&, const QString& message) {
  const QMutexLocker lock(&withholding);
  if (type != QtFatalMsg) {
    withheld += message;
    return;
  }
  const QString first = withheld.isEmpty() ? message.section('\n', 0, 0) : withheld.constFirst();
  std::fprintf(stderr, "Quorvane needs a display: %s\n", first.trimmed().toLocal8Bit().constData());
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

std::optional<std::string> whyNoWindow() {
  const std::string platform = variable("QT_QPA_PLATFORM");
  const bool x = !variable("DISPLAY").empty(), wayland = !variable("WAYLAND_DISPLAY").empty();
  const bool windowSystem = platform.empty() || begins(platform, "xcb") || begins(platform, "wayland");
  if (!windowSystem) return std::nullopt;
  if (!x && !wayland) return "neither DISPLAY nor WAYLAND_DISPLAY is set";
  // A Wayland session also has an X server for older programs.
  const bool prefersX = x && variable("XDG_SESSION_TYPE") != "wayland";
  const bool usesX = begins(platform, "xcb") || (platform.empty() && prefersX);
  return usesX ? whyNoWindowOnX(platform.empty() && wayland) : std::nullopt;
}

QuietStart::QuietStart() { qInstallMessageHandler(withhold); }

QuietStart::~QuietStart() {
  qInstallMessageHandler(nullptr);
  for (const QString& message : std::exchange(withheld, {})) qWarning().noquote() << message;
}

}  // namespace quorvane
