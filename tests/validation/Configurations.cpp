#include "Configurations.h"

namespace quorvane::validation {

Configurations::Configurations(const System& system)
    : imax_(system.imax), jmax_(system.jmax), types_(system.types) {
  for (int site = 0; site < system.sites(); ++site) count_ *= types_;
}

int Configurations::numberOf(const Configuration& configuration) const {
  int number = 0;
  for (const int type : configuration) number = number * types_ + type;
  return number;
}

int Configurations::numberOf(const LatticeModel& model) const {
  int number = 0;
  for (int i = 0; i < imax_; ++i)
    for (int j = 0; j < jmax_; ++j) number = number * types_ + model.getSiteValue(i, j);
  return number;
}

Configuration Configurations::at(int number) const {
  Configuration configuration(static_cast<std::size_t>(imax_ * jmax_));
  for (std::size_t site = configuration.size(); site-- > 0; number /= types_)
    configuration[site] = number % types_;
  return configuration;
}

void Configurations::write(int number, LatticeModel& model) const {
  for (int i = imax_; i-- > 0;)
    for (int j = jmax_; j-- > 0; number /= types_) model.setSiteValue(i, j, number % types_);
}

Site neighbourOf(const System& system, Site site, int dir) {
  static constexpr Site steps[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}, {1, 1}, {-1, 1}, {1, -1}, {-1, -1}};
  const Site step = steps[dir - 1];
  return {(site.i + step.i + system.imax) % system.imax, (site.j + step.j + system.jmax) % system.jmax};
}

int at(const System& system, const Configuration& configuration, Site site) {
  return configuration[static_cast<std::size_t>(site.i * system.jmax + site.j)];
}

double effectiveEnergy(const System& system, const Configuration& configuration) {
  double energy = 0.0;
  for (int i = 0; i < system.imax; ++i)
    for (int j = 0; j < system.jmax; ++j) {
      const int type = at(system, configuration, {i, j});
      energy += system.field[type];
      for (int dir = 1; dir <= kNumDirections; ++dir) {
        const Site n = neighbourOf(system, {i, j}, dir);
        const bool itself = n.i == i && n.j == j;
        // Each bond of two sites is visited from both.
        energy += system.J[type][at(system, configuration, n)] / (itself ? 2 : 4);
      }
    }
  return energy;
}

}  // namespace quorvane::validation
