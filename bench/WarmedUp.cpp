#include "WarmedUp.h"

#include <map>
#include <memory>
#include <string>

#include "reference/Lockstep.h"

namespace quorvane {

const reference::System& warmedUp(const reference::Case& typical) {
  constexpr int sweeps = 30;
  static std::map<std::string, std::unique_ptr<reference::System>> systems;
  auto& system = systems[typical.name];
  if (!system) {
    reference::restartSources();
    system = typical.make();
    for (int k = 0; k < sweeps * kAttempts; ++k) reference::attempt(*system);
  }
  return *system;
}

}  // namespace quorvane
