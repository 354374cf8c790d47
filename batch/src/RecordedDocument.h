#pragma once

#include <filesystem>
#include <string>

#include "record/Record.h"

namespace quorvane {

/// The text of the document of a run, unchanged. A relative path is tried from the folder that the run was
/// made in, from the present one and from that of the record; the mere name also beside the record. Reads
/// only regular files. Throws BatchFailure if none is the document.
std::string recordedDocument(const RunStart& start, const std::filesystem::path& record);

}  // namespace quorvane
