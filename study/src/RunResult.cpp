#include "study/RunResult.h"

#include "checkpoint/Bytes.h"
#include "study/StudyError.h"

namespace quorvane {
namespace {

template <typename Bytes, typename Result>
void transferResult(Bytes& bytes, Result& result) {
  bytes.value(result.failure);
  bytes.list(result.moments, [](auto& each, auto& moments) {
    each.value(moments.mean);
    each.value(moments.square);
    each.value(moments.fourth);
    each.value(moments.tau);
  });
  bytes.list(result.series, [](auto& each, auto& value) { each.value(value); });
}

}  // namespace

std::string bytesOf(const RunResult& result) {
  ByteWriter bytes;
  transferResult(bytes, result);
  return bytes.take();
}

bool isFailure(std::string_view bytes) {
  // The first field is the text of the failure, which begins with its length.
  constexpr std::size_t lengthBytes = 8;
  return bytes.substr(0, lengthBytes).find_first_not_of('\0') != std::string_view::npos;
}

RunResult resultIn(std::string_view text) {
  try {
    ByteReader bytes(text);
    RunResult result;
    transferResult(bytes, result);
    bytes.requireEnd();
    return result;
  } catch (const CheckpointError& error) {
    throw StudyError(std::string("a record is no result of a run: ") + error.what());
  }
}

}  // namespace quorvane
