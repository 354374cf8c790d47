#include "ReplayFolder.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "batch/Messages.h"

namespace quorvane {

ReplayFolder::ReplayFolder() {
  const char* wanted = std::getenv("TMPDIR");
  const std::filesystem::path where = wanted && *wanted ? wanted : "/tmp";
  std::string name = (where / "quorvane-replay-XXXXXX").native();
  if (!::mkdtemp(name.data()))
    throw BatchFailure(nameOf(where),
                       "no temporary folder can be made there: " + std::generic_category().message(errno));
  path_ = name;
}

ReplayFolder::~ReplayFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace quorvane
