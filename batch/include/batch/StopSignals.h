#pragma once

#include <chrono>
#include <csignal>

/// How a run is stopped from outside, by Ctrl-C (SIGINT), SIGTERM, or a terminal that closes (SIGHUP). State
/// of the whole process.
namespace quorvane {

/// From now on the first of these signals only asks the run to stop. Another one that comes a second later or
/// more ends the process at once; earlier ones are the same wish, since a sender may reach both the process
/// and its group. A signal that was ignored stays so. A reader that goes away (SIGPIPE) or a file that may
/// grow no larger (SIGXFSZ) ends the process no more: the write fails instead.
void watchStopSignals();

/// The signal that asked the run to stop, 0 while none has.
int stopSignal();

/// Whether a reader that has taken nothing for so long is waited for: always, but only five seconds once the
/// run has been asked to stop.
bool mayWaitForReader(std::chrono::milliseconds stalled);

/// Ends the process by the signal as if it had not been caught, so that a shell sees a program that was
/// stopped, and a loop in a script does not go on with the next one.
void endBySignal(int signal);

/// Lets signals wait while it lives, so that a process that they end leaves no temporary file behind. For
/// short work on files only: nothing but SIGKILL ends a process that hangs meanwhile.
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
