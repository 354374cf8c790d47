#include <unistd.h>

#include <exception>

#include "Bindings.h"

namespace quorvane {
namespace {

/// An interpreter that ends unwinds the stack of a thread that wants its lock. That would drop objects of
/// Python without the lock, so the thread waits here for the end of the process.
void takeLock(PyThreadState* thread) {
  try {
    PyEval_RestoreThread(thread);
  } catch (...) {
    for (;;) ::pause();
  }
}

}  // namespace

void withoutLock(const std::function<void()>& work) {
  PyThreadState* thread = PyEval_SaveThread();
  std::exception_ptr failure;
  try {
    work();
  } catch (...) {
    failure = std::current_exception();
  }
  takeLock(thread);
  if (failure) std::rethrow_exception(failure);
}

}  // namespace quorvane
