#include "checkpoint/Digest.h"

#include <xxhash.h>

#include <algorithm>
#include <new>

namespace quorvane {

void DigestOf::Free::operator()(XXH3_state_s* state) const { XXH3_freeState(state); }

DigestOf::DigestOf() : state_(XXH3_createState()) {
  if (!state_) throw std::bad_alloc();
  XXH3_128bits_reset(state_.get());
}

void DigestOf::add(std::string_view piece) { XXH3_128bits_update(state_.get(), piece.data(), piece.size()); }

Digest DigestOf::value() const {
  XXH128_canonical_t bytes;
  XXH128_canonicalFromHash(&bytes, XXH3_128bits_digest(state_.get()));
  Digest digest;
  static_assert(sizeof bytes.digest == sizeof(Digest));
  std::copy_n(bytes.digest, digest.size(), digest.begin());
  return digest;
}

}  // namespace quorvane
