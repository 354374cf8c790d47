#include "TransferMatrix.h"

#include <array>
#include <bit>
#include <cmath>
#include <vector>

namespace quorvane::validation {
namespace {

constexpr std::size_t kOrders = 5;

/// A power series in the field up to fourth order.
using Series = std::array<double, kOrders>;

void addProduct(Series& sum, const Series& a, const Series& b) {
  for (std::size_t n = 0; n < kOrders; ++n)
    for (std::size_t k = 0; k <= n; ++k) sum[n] += a[k] * b[n - k];
}

/// A square matrix of series.
class Matrix {
 public:
  explicit Matrix(std::size_t size) : size_(size), elements_(size * size) {}

  std::size_t size() const { return size_; }
  Series& operator()(std::size_t row, std::size_t column) { return elements_[row * size_ + column]; }
  const Series& operator()(std::size_t row, std::size_t column) const {
    return elements_[row * size_ + column];
  }

  Matrix operator*(const Matrix& other) const {
    Matrix product(size_);
    for (std::size_t i = 0; i < size_; ++i)
      for (std::size_t k = 0; k < size_; ++k)
        for (std::size_t j = 0; j < size_; ++j) addProduct(product(i, j), (*this)(i, k), other(k, j));
    return product;
  }

  Series traceOfProductWith(const Matrix& other) const {
    Series trace{};
    for (std::size_t i = 0; i < size_; ++i)
      for (std::size_t k = 0; k < size_; ++k) addProduct(trace, (*this)(i, k), other(k, i));
    return trace;
  }

 private:
  std::size_t size_;
  std::vector<Series> elements_;
};

Matrix power(const Matrix& matrix, int exponent) {
  if (exponent == 1) return matrix;
  const Matrix half = power(matrix, exponent / 2);
  return exponent % 2 == 0 ? half * half : half * half * matrix;
}

/// A row of spins, one bit each, rotated by one site.
unsigned turned(unsigned row, int L) { return ((row << 1) | (row >> (L - 1))) & ((1u << L) - 1); }

/// The sum over sites of the products of two rows' spins.
int overlap(unsigned a, unsigned b, int L) { return L - 2 * std::popcount(a ^ b); }

/// The weight of two consecutive rows, with the bonds inside the first and those between the two.
Matrix rowToRow(int L, double K) {
  const unsigned rows = 1u << L;
  Matrix matrix(rows);
  for (unsigned a = 0; a < rows; ++a) {
    const double magnetisation = 2 * std::popcount(a) - L;
    Series field{1.0};
    for (std::size_t n = 1; n < kOrders; ++n)
      field[n] = field[n - 1] * magnetisation / static_cast<double>(n);
    for (unsigned b = 0; b < rows; ++b) {
      const int bonds = overlap(a, turned(a, L), L) + overlap(a, b, L) + overlap(a, turned(b, L), L) +
                        overlap(turned(a, L), b, L);
      for (std::size_t n = 0; n < kOrders; ++n) matrix(a, b)[n] = field[n] * std::exp(K * bonds);
    }
  }
  return matrix;
}

/// The partition function.
Series partitionFunction(int L, double K) {
  const Matrix once = rowToRow(L, K);
  // The power L is split into two halves, so that the last product need not be formed, only its trace.
  const Matrix half = power(once, L / 2);
  const Matrix otherHalf = L % 2 == 0 ? half : half * once;
  return half.traceOfProductWith(otherHalf);
}

}  // namespace

IsingMoments exactIsingMoments(int L, double K) {
  const Series Z = partitionFunction(L, K);
  const double sites = L * L;
  return {2 * Z[2] / Z[0] / std::pow(sites, 2), 24 * Z[4] / Z[0] / std::pow(sites, 4)};
}

double exactIsingBonds(int L, double K) {
  // The derivative of ln Z by a difference with an error of fourth order in the step.
  constexpr double step = 1e-4;
  const auto lnZ = [=](int steps) { return std::log(partitionFunction(L, K + steps * step)[0]); };
  return (8 * (lnZ(1) - lnZ(-1)) - (lnZ(2) - lnZ(-2))) / (12 * step) / (L * L);
}

double exactCumulantCrossing(int L1, int L2) {
  const auto difference = [=](double K) {
    return exactIsingMoments(L2, K).cumulant() - exactIsingMoments(L1, K).cumulant();
  };
  // The secant method, from both sides of the critical coupling.
  double K = 0.189, other = 0.192;
  double atK = difference(K), atOther = difference(other);
  for (int step = 0; step < 20 && std::abs(K - other) > 1e-10; ++step) {
    const double next = K - atK * (K - other) / (atK - atOther);
    other = K;
    atOther = atK;
    K = next;
    atK = difference(K);
  }
  return K;
}

}  // namespace quorvane::validation
