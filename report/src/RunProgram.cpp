#include "RunProgram.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace quorvane {
namespace {

/// A file without a name: unlike pipes, three of them cannot wait for each other.
class TemporaryFile {
 public:
  TemporaryFile() : file_(std::tmpfile(), std::fclose) {
    if (!file_) throw std::system_error(errno, std::generic_category(), "a temporary file");
  }

  int descriptor() const { return ::fileno(file_.get()); }

  void put(const std::string& text) {
    if (std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size() || std::fflush(file_.get()) != 0)
      throw std::system_error(errno, std::generic_category(), "a temporary file");
    std::rewind(file_.get());
  }

  std::string content() {
    std::rewind(file_.get());
    std::string text;
    std::array<char, 1 << 16> buffer{};
    for (std::size_t n = 0; (n = std::fread(buffer.data(), 1, buffer.size(), file_.get())) > 0;)
      text.append(buffer.data(), n);
    return text;
  }

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

class FileActions {
 public:
  FileActions() { ::posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { ::posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  void connect(const TemporaryFile& file, int descriptor) {
    ::posix_spawn_file_actions_adddup2(&actions_, file.descriptor(), descriptor);
  }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

int statusOf(pid_t child) {
  constexpr int signalled = 128;
  int status = 0;
  while (::waitpid(child, &status, 0) < 0)
    if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "waiting for a program");
  return WIFEXITED(status) ? WEXITSTATUS(status) : signalled + WTERMSIG(status);
}

}  // namespace

ProgramResult runProgram(const std::string& name, const std::vector<std::string>& arguments,
                         const std::string& input) {
  TemporaryFile in, out, errors;
  in.put(input);
  FileActions actions;
  actions.connect(in, STDIN_FILENO);
  actions.connect(out, STDOUT_FILENO);
  actions.connect(errors, STDERR_FILENO);
  std::vector<std::string> words = {name};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  pid_t child = 0;
  const int error = ::posix_spawnp(&child, name.c_str(), actions.get(), nullptr, argv.data(), environ);
  if (error == ENOENT) return {.isMissing = true, .output = {}, .errors = {}};
  if (error != 0) throw std::system_error(error, std::generic_category(), name);
  ProgramResult result;
  result.status = statusOf(child);
  result.output = out.content();
  result.errors = errors.content();
  return result;
}

}  // namespace quorvane
