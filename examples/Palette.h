#pragma once

#include "SystemBuilder.h"

/// Colours that can be told apart with every kind of colour vision (Okabe and Ito), and dark backgrounds for
/// them.
namespace quorvane::palette {

inline constexpr Color kNight{0.03, 0.05, 0.12};
inline constexpr Color kNavy{0.05, 0.16, 0.34};
inline constexpr Color kStone{0.45, 0.40, 0.36};
inline constexpr Color kAsh{0.16, 0.15, 0.14};
inline constexpr Color kCream{1.0, 0.95, 0.75};

inline constexpr Color kOrange{0.90, 0.62, 0.0};
inline constexpr Color kSkyBlue{0.34, 0.71, 0.91};
inline constexpr Color kGreen{0.0, 0.62, 0.45};
inline constexpr Color kYellow{0.94, 0.89, 0.26};
inline constexpr Color kBlue{0.0, 0.45, 0.70};
inline constexpr Color kVermilion{0.84, 0.37, 0.0};
inline constexpr Color kPurple{0.80, 0.47, 0.65};

}  // namespace quorvane::palette
