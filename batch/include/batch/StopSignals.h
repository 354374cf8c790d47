#pragma once

#include <csignal>

/// How a run is stopped from outside, by Ctrl-C (SIGINT) or SIGTERM. State of the whole process.
namespace quorvane {

/// From now on the first of these signals only asks the run to stop, and the second ends the process at once.
/// A reader that goes away (SIGPIPE) or a file that may grow no larger (SIGXFSZ) ends it no more: the write
/// fails instead.
void watchStopSignals();

/// The signal that asked the run to stop, 0 while none has.
int stopSignal();

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
