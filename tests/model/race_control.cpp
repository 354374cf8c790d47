// A plain field that two threads share, which the thread sanitizer must report.
#include <thread>

int main() {
  struct {
    int runState = 0;
  } model;
  std::thread loop([&] {
    for (int k = 0; k < 1000; ++k) model.runState = k;
  });
  for (int k = 0; k < 1000; ++k) model.runState = -k;
  loop.join();
  return model.runState == 5000 ? 1 : 0;
}
