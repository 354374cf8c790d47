#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "batch/LatticePicture.h"

namespace quorvane {

/// What a finished process left behind.
struct Finished {
  int status = -1;  ///< exit status, or -1 where a signal ended it
  std::string out;
  std::string err;
};

/// Runs quorvane-batch with the arguments, standard output and error in pipes.
Finished runBatchProgram(const std::vector<std::string>& arguments);

/// Runs quorvane-batch with everything on a terminal; out is what the terminal received.
Finished runBatchProgramOnTerminal(const std::vector<std::string>& arguments);

/// An 8-bit RGB image read back from a PNG file.
Image readPng(const std::filesystem::path& file);

/// Red, green, blue of a pixel, x from the left and y from the top.
std::vector<int> pixelAt(const Image& image, int x, int y);

}  // namespace quorvane
