#pragma once

#include <csignal>

/// How a program is asked from outside to end: by Ctrl-C (SIGINT), SIGTERM, or a terminal that closes
/// (SIGHUP). State of the whole process.
namespace quorvane {

/// From now on the first of these signals only asks the program to end. Another one that comes a second later
/// or more ends the process at once; earlier ones are the same wish, since a sender may reach both the
/// process and its group. A signal that was ignored stays so. A reader that goes away (SIGPIPE) or a file
/// that may grow no larger (SIGXFSZ) ends the process no more: the write fails instead.
void watchStopSignals();

/// The signal that asked the program to end, 0 while none has.
int stopSignal();

/// A descriptor that becomes readable when stopSignal does, for an event loop; negative where none can be
/// had. To be called before watchStopSignals.
int stopSignalDescriptor();

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
