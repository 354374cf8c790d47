#pragma once

#include <cstddef>

namespace quorvane::reference {

/// Copies a value or an array of any shape, element by element.
template <class To, class From>
void assign(To& to, const From& from) {
  to = from;
}

template <class To, class From, std::size_t N>
void assign(To (&to)[N], const From (&from)[N]) {
  for (std::size_t k = 0; k < N; ++k) assign(to[k], from[k]);
}

}  // namespace quorvane::reference
