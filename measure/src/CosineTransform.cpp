#include "CosineTransform.h"

#include <algorithm>

#include "Cosines.h"

namespace quorvane {
namespace {

/// Adds factors[0] row(0) + factors[step] row(step) + ... to the sums, for rows before the end. Four rows at
/// a time, since loading and storing the sums would take longer than the arithmetic.
void addRows(const double* f, const double* factors, std::size_t first, std::size_t end,
             std::vector<double>& sums) {
  constexpr std::size_t step = 2;
  const std::size_t columns = sums.size();
  double* sum = sums.data();
  std::fill(sums.begin(), sums.end(), 0.0);
  std::size_t a = first;
  for (; a + 3 * step < end; a += 4 * step) {
    const double* row[4];
    for (std::size_t k = 0; k < 4; ++k) row[k] = f + (a + k * step) * columns;
    for (std::size_t c = 0; c < columns; ++c)
      sum[c] = sum[c] + factors[a] * row[0][c] + factors[a + step] * row[1][c] +
               factors[a + 2 * step] * row[2][c] + factors[a + 3 * step] * row[3][c];
  }
  for (; a < end; a += step)
    for (std::size_t c = 0; c < columns; ++c) sum[c] += factors[a] * f[a * columns + c];
}

/// to(c, r) = from(r, c).
void turn(const double* from, std::size_t rows, std::size_t columns, double* to) {
  for (std::size_t r = 0; r < rows; ++r)
    for (std::size_t c = 0; c < columns; ++c) to[c * rows + r] = from[r * columns + c];
}

}  // namespace

CosineTransform::Axis::Axis(int sites) : last(static_cast<std::size_t>(sites) / 2), isEven(sites % 2 == 0) {
  const auto ofTurn = cosinesOfATurn(sites);
  for (std::size_t m = 0; m <= last; ++m)
    for (std::size_t a = 0; a <= last; ++a) cosines.push_back(ofTurn[m * a % ofTurn.size()]);
}

void CosineTransform::Axis::transform(const double* f, std::size_t columns, double* sums) {
  ofEven.resize(columns);
  ofOdd.resize(columns);
  // With an even number of sites, row last - m has the cosines of row m, those of odd a with the other sign.
  for (std::size_t m = 0; m <= (isEven ? last / 2 : last); ++m) {
    const double* factors = cosines.data() + m * (last + 1);
    addRows(f, factors, 0, last + 1, ofEven);
    addRows(f, factors, 1, last + 1, ofOdd);
    double* row = sums + m * columns;
    for (std::size_t c = 0; c < columns; ++c) row[c] = ofEven[c] + ofOdd[c];
    if (!isEven) continue;
    double* mirrored = sums + (last - m) * columns;
    for (std::size_t c = 0; c < columns; ++c) mirrored[c] = ofEven[c] - ofOdd[c];
  }
}

CosineTransform::CosineTransform(int imax, int jmax) : alongI_(imax), alongJ_(jmax) {
  const std::size_t size = (alongI_.last + 1) * (alongJ_.last + 1);
  for (auto* sums : {&sums_, &turned_, &turnedSums_}) sums->resize(size);
}

const std::vector<double>& CosineTransform::of(const std::vector<double>& f) {
  const std::size_t width = alongI_.last + 1, height = alongJ_.last + 1;
  alongI_.transform(f.data(), height, sums_.data());
  turn(sums_.data(), width, height, turned_.data());
  alongJ_.transform(turned_.data(), width, turnedSums_.data());
  turn(turnedSums_.data(), height, width, sums_.data());
  return sums_;
}

}  // namespace quorvane
