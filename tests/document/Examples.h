#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "DocumentSupport.h"

namespace quorvane {

/// The file names of the example documents, in order.
inline std::vector<std::string> exampleNames() {
  std::vector<std::string> examples;
  for (const std::string& name : namesIn(QUORVANE_EXAMPLES))
    if (name.ends_with(".quorvane")) examples.push_back(name);
  return examples;
}

inline std::filesystem::path exampleFile(const std::string& name) {
  return std::filesystem::path(QUORVANE_EXAMPLES) / name;
}

inline std::unique_ptr<LatticeModel> openedExample(const std::filesystem::path& file) {
  auto model = freshModel();
  const OpenResult result = openDocument(*model, file);
  EXPECT_EQ(result.status, OpenStatus::kOpened) << file << ' ' << result.message;
  return model;
}

/// The name of a parameterised test for an example.
inline std::string exampleTestName(const testing::TestParamInfo<std::string>& info) {
  std::string name;
  for (const char c : info.param)
    if (std::isalnum(static_cast<unsigned char>(c))) name.push_back(c);
  return name;
}

}  // namespace quorvane
