#pragma once

#include <cstdint>
#include <string>

#include "model/LatticeModel.h"

/// The sites of a model as an array for NumPy: format version 1.0 of its .npy files, element type uint8 (the
/// index of a pixel type), shape (records, Imax, Jmax), C order, so the index is [record][i][j].
namespace quorvane {

/// The beginning of the file, always 128 bytes.
std::string arrayHeader(std::int64_t records, const LatticeModel& model);

/// The sites at present, Imax times Jmax bytes.
std::string arrayRecord(const LatticeModel& model);

}  // namespace quorvane
