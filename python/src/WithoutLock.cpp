#include <exception>

#include "Bindings.h"

namespace quorvane {

void withoutLock(const std::function<void()>& work) {
  PyThreadState* thread = PyEval_SaveThread();
  std::exception_ptr failure;
  try {
    work();
  } catch (...) {
    failure = std::current_exception();
  }
  PyEval_RestoreThread(thread);
  if (failure) std::rethrow_exception(failure);
}

}  // namespace quorvane
