#pragma once

#include <csignal>

/// Stop signals: SIGINT (Ctrl-C), SIGTERM, and SIGHUP (a terminal that closes). State of the whole process.
namespace quorvane {

/// Handles the stop signals. The first one only sets stopSignal; another one, a second later or more, ends
/// the process at once. Those in between are ignored, since a sender may signal both the process and its
/// group. A signal that was ignored before stays ignored. Also failWritesInstead.
void watchStopSignals();

/// Ignores SIGPIPE (a closed pipe) and SIGXFSZ (a limit of file sizes): the write fails instead.
void failWritesInstead();

/// The first stop signal received, 0 before that.
int stopSignal();

/// A descriptor for an event loop that becomes readable when stopSignal is set; negative on failure. Call it
/// before watchStopSignals.
int stopSignalDescriptor();

/// Ends the process by the signal as if it had not been caught, so that the shell sees how it ended and a
/// loop in a script stops too.
void endBySignal(int signal);

/// Blocks signals during its lifetime, so that they end the process only when its temporary files are gone.
/// For short work on files only: nothing but SIGKILL ends a process that hangs meanwhile.
class SignalsHeld {
 public:
  SignalsHeld();
  ~SignalsHeld();
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  sigset_t before_ = {};
};

}  // namespace quorvane
