#include <algorithm>

#include "Bindings.h"
#include "engine/Limits.h"
#include "model/SiteCounts.h"
#include "output/LatticePicture.h"
#include "output/Png.h"
#include "settings/Fill.h"

namespace quorvane {
namespace {

namespace py = pybind11;

using Sites = py::array_t<std::uint8_t, py::array::c_style>;
using Places = py::array_t<std::int32_t, py::array::c_style>;

void requireSides(int imax, int jmax) {
  if (std::min(imax, jmax) < 1 || std::max(imax, jmax) > kMaxSide)
    throw py::value_error("a lattice has sides from 1 to " + std::to_string(kMaxSide));
}

Sites sitesOf(Core& core) {
  const LatticeModel& model = core.use();
  const int imax = model.getIMax(), jmax = model.getJMax();
  Sites sites({imax, jmax});
  std::uint8_t* site = sites.mutable_data();
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) *site++ = static_cast<std::uint8_t>(model.getSiteValue(i, j));
  return sites;
}

/// An index from 0; a negative one counts from the end.
int indexWithin(int index, int size, int axis) {
  if (index >= -size && index < size) return index < 0 ? index + size : index;
  throw py::index_error("index " + std::to_string(index) + " is out of bounds for axis " +
                        std::to_string(axis) + " with size " + std::to_string(size));
}

int siteAt(Core& core, int i, int j) {
  const LatticeModel& model = core.use();
  return model.getSiteValue(indexWithin(i, model.getIMax(), 0), indexWithin(j, model.getJMax(), 1));
}

/// The number of sites that hold each type.
py::array_t<std::int64_t> populations(Core& core) {
  const LatticeModel& model = core.use();
  const SiteCounts counts = countSites(model);
  py::array_t<std::int64_t> numbers(model.getNumPixelTypes());
  std::copy_n(counts.begin(), numbers.size(), numbers.mutable_data());
  return numbers;
}

/// places: i * Jmax + j of each site, in any order.
void paint(Core& core, const Places& places, const Sites& types) {
  LatticeModel& model = core.use();
  const int jmax = model.getJMax(), numTypes = model.getNumPixelTypes();
  const std::int64_t numSites = std::int64_t{model.getIMax()} * jmax;
  const std::int32_t *place = places.data(), *lastPlace = place + places.size();
  const std::uint8_t *type = types.data(), *lastType = type + types.size();
  if (places.size() != types.size() ||
      !std::all_of(place, lastPlace, [&](std::int32_t p) { return p >= 0 && p < numSites; }) ||
      !std::all_of(type, lastType, [&](std::uint8_t t) { return t < numTypes; }))
    throw py::value_error("sites do not fit the lattice");
  for (; place != lastPlace; ++place, ++type) model.paintSiteAs(*place / jmax, *place % jmax, *type);
}

void initialise(Core& core, int numTypes, int imax, int jmax) {
  LatticeModel& model = core.useWithSource();
  requireSides(imax, jmax);
  if (numTypes != -1 && (numTypes < 1 || numTypes > kMaxPixelTypes))
    throw py::value_error("a model has 1 to " + std::to_string(kMaxPixelTypes) + " pixel types");
  model.initializeLatticeModel(numTypes, imax, jmax);
}

/// Index and share of pixel types.
using Density = std::vector<std::pair<int, double>>;

std::vector<Share> sharesOf(const Density& density) {
  std::vector<Share> shares;
  shares.reserve(density.size());
  for (const auto& [type, share] : density)
    shares.push_back({std::string("#").append(std::to_string(type)), share});
  return shares;
}

void requireDensity(const Density& density) {
  forField("density", [&] { requireShares(sharesOf(density)); });
}

void fillWith(Core& core, const Density& density) {
  LatticeModel& model = core.useWithSource();
  requireDensity(density);
  fill(model, sharesOf(density));
}

Image drawn(Core& core, int scale) {
  const LatticeModel& model = core.use();
  if (scale < 1 || scale > kMaxScale)
    throw py::value_error("a site has 1 to " + std::to_string(kMaxScale) + " pixels");
  return drawLattice(model, scale);
}

Sites picture(Core& core, int scale) {
  const Image image = drawn(core, scale);
  constexpr int channels = 3;
  Sites pixels({image.height, image.width, channels});
  std::copy(image.rgb.begin(), image.rgb.end(), pixels.mutable_data());
  return pixels;
}

py::array_t<double> pairEnergies(Core& core) {
  const LatticeModel& model = core.use();
  const int numTypes = model.getNumPixelTypes();
  py::array_t<double> energies({numTypes, numTypes});
  for (int a = 0; a < numTypes; ++a)
    for (int b = 0; b < numTypes; ++b) energies.mutable_at(a, b) = model.getPixelIntConstant(a, b);
  return energies;
}

}  // namespace

void bindLattice(CoreClass& core) {
  core.def("shape", [](Core& self) {
    const LatticeModel& model = self.use();
    return std::pair(model.getIMax(), model.getJMax());
  });
  core.def("sites", sitesOf);
  core.def("site", siteAt);
  core.def("populations", populations);
  core.def("paint", paint);
  core.def("initialise", initialise);
  core.def("fill", fillWith);
  core.def_static("require_density", requireDensity);
  core.def("picture", picture);
  core.def("png", [](Core& self, int scale) { return py::bytes(encodePng(drawn(self, scale))); });
  core.def("pair_energies", pairEnergies);
}

}  // namespace quorvane
