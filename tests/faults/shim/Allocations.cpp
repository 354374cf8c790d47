// Interposed allocations of the whole process. Memory is freed by the C library itself.

#include <cerrno>
#include <cstddef>

#include "Decision.h"

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

bool fails() { return quorvane::judge(quorvane::Call::kAllocate) == quorvane::Verdict::kFail; }

}  // namespace

extern "C" {

void* malloc(std::size_t size) noexcept { return fails() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) noexcept {
  return fails() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) noexcept {
  return fails() ? nullptr : __libc_realloc(memory, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return fails() ? nullptr : __libc_memalign(alignment, size);
}
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) noexcept {
  *memory = fails() ? nullptr : __libc_memalign(alignment, size);
  return *memory ? 0 : ENOMEM;
}
}
