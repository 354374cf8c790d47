#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QByteArray>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// Sets or removes an environment variable during its lifetime.
class Variable {
 public:
  Variable(const char* name, const std::optional<std::string>& value) : name_(name), before_(qgetenv(name)) {
    if (value)
      qputenv(name, QByteArray::fromStdString(*value));
    else
      qunsetenv(name);
  }
  ~Variable() { before_.isNull() ? qunsetenv(name_) : qputenv(name_, before_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  QByteArray before_;
};

/// A folder for kept work that does not exist yet, with queries for tests.
class TemporaryKeptFolder {
 public:
  std::filesystem::path state() const { return folder_.path().toStdString(); }
  std::filesystem::path path() const { return state() / "quorvane"; }

  /// Every name in it, including hidden ones, sorted.
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(path(), missing))
      names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  void write(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories(path());
    std::ofstream(path() / name, std::ios::binary) << content;
  }
  /// Sets the modification time of a file into the past.
  void age(const std::string& name, std::chrono::seconds age) const {
    std::filesystem::last_write_time(path() / name, std::filesystem::file_time_type::clock::now() - age);
  }
  std::string read(const std::string& name) const {
    std::ifstream file(path() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  QTemporaryDir folder_;
};

inline mode_t permissionsOf(const std::filesystem::path& path) {
  struct stat status = {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777;
}

/// The name of a copy that was kept at a second of a past day.
inline std::string copyOf(int second) {
  return "2001-02-03 04.05." + std::string(second < 10 ? "0" : "") + std::to_string(second) + ".quorvane";
}

}  // namespace quorvane
