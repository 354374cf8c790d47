#include "Bindings.h"
#include "FieldsOf.h"
#include "engine/Limits.h"
#include "settings/Changes.h"

namespace quorvane {
namespace {

namespace py = pybind11;

LatticeModel& withType(Core& core, int type) {
  LatticeModel& model = core.use();
  if (type < 0 || type >= model.getNumPixelTypes()) throw py::index_error("there is no such pixel type");
  return model;
}

using OfType = FieldsOf<withType>;
using Color = std::array<double, 3>;

Color colorOf(const LatticeModel& model, int type) {
  return {model.getPixelColorR(type), model.getPixelColorG(type), model.getPixelColorB(type)};
}

void rename(LatticeModel& model, int type, const std::string& name) {
  requireName(name);
  model.setPixelName(type, name);
}

void setImmobile(LatticeModel& model, int type, bool immobile) {
  model.setPixelImmobile(type, immobile ? 1 : 0);
}

template <typename Value, typename Set>
void setIfGiven(const char* field, LatticeModel& model, int type, const std::optional<Value>& value,
                const Set& set) {
  if (value) forField(field, [&] { set(model, type, *value); });
}

void addType(Core& core, const std::optional<std::string>& name, const std::optional<Color>& color,
             const std::optional<double>& persistence, const std::optional<double>& opacity,
             const std::optional<bool>& immobile, const std::optional<int>& masquerade,
             const std::optional<double>& field) {
  LatticeModel& model = core.useWithSource();
  const int added = model.getNumPixelTypes();
  if (added == kMaxPixelTypes)
    throw py::value_error("a model has at most " + std::to_string(kMaxPixelTypes) + " pixel types");
  const auto setFields = [&] {
    setIfGiven("name", model, added, name, rename);
    setIfGiven("color", model, added, color, setColor);
    setIfGiven("persistence", model, added, persistence, setPersistence);
    setIfGiven("opacity", model, added, opacity, setOpacity);
    setIfGiven("immobile", model, added, immobile, setImmobile);
    setIfGiven("masquerade", model, added, masquerade, setMasquerade);
    setIfGiven("field", model, added, field, setField);
  };
  // While its place is not in use yet, a value that does not fit changes nothing. Adding sets the defaults.
  setFields();
  model.addPixelType();
  setFields();
}

}  // namespace

void bindTypes(CoreClass& core) {
  using Model = LatticeModel;
  core.def_static("require_name",
                  [](const std::string& name) { forField("types", [&] { requireName(name); }); });
  core.def("num_types", [](Core& self) { return self.use().getNumPixelTypes(); });
  core.def("add_type", addType);
  core.def("type_name", OfType::read([](Model& m, int t) { return m.getPixelName(t); }));
  core.def("set_type_name", OfType::change<std::string>(rename));
  core.def("type_color", OfType::read(colorOf));
  core.def("set_type_color", OfType::change<Color>(setColor));
  core.def("type_persistence", OfType::read([](Model& m, int t) { return m.getPixelPersistence(t); }));
  core.def("set_type_persistence", OfType::change<double>(setPersistence));
  core.def("type_opacity", OfType::read([](Model& m, int t) { return m.getPixelAlpha(t); }));
  core.def("set_type_opacity", OfType::change<double>(setOpacity));
  core.def("type_immobile", OfType::read([](Model& m, int t) { return m.getPixelImmobile(t) != 0; }));
  core.def("set_type_immobile", OfType::change<bool>(setImmobile));
  core.def("type_masquerade", OfType::read([](Model& m, int t) { return m.getPixelMasqueradeAs(t); }));
  core.def("set_type_masquerade", OfType::change<int>(setMasquerade));
  core.def("type_field", OfType::read([](Model& m, int t) { return m.getPixelField(t); }));
  core.def("set_type_field", OfType::change<double>(setField));
}

}  // namespace quorvane
