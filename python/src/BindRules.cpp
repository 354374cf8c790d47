#include "Bindings.h"
#include "FieldsOf.h"
#include "engine/RuleKinds.h"
#include "settings/Changes.h"

namespace quorvane {
namespace {

namespace py = pybind11;

LatticeModel& withRule(Core& core, int rule) {
  LatticeModel& model = core.use();
  if (rule < 0 || rule >= model.getNumRules()) throw py::index_error("there is no such rule");
  return model;
}

using OfRule = FieldsOf<withRule>;

void renameRule(LatticeModel& model, int rule, const std::string& name) {
  requireName(name);
  model.setRuleName(rule, name);
}

/// Everything is checked before the rule is made, since deleting an interaction would clear pair energies of
/// others.
void addRule(Core& core, const std::string& name, int kind, int endA, int endB,
             std::optional<double> parameter, bool disabled, bool ignoresEnergy, int needs, int needsType) {
  LatticeModel& model = core.use();
  forField("name", [&] { requireName(name); });
  forField("a", [&] { requireTypeOrNone(model, endA); });
  forField("b", [&] { requireTypeOrNone(model, endB); });
  forField("parameter", [&] { requireParameter(kind, parameter.value_or(0.0)); });
  if (needs != 0) forField("needs", [&] { requireFacilitation(kind, needs); });
  forField("needs_type", [&] { requireTypeOrNone(model, needsType); });
  if (!model.canMakeNewRule(kind, endA, endB))
    throw py::value_error("the rule does not fit: a model has at most " + std::to_string(kMaxRules) +
                          " rules, and so has the row of a pixel type");
  const int rule = model.getNumRules();
  model.makeNewRule(name, kind, endA, endB);
  // The flag alone, which decides into which table a pair energy is written.
  model.setRuleDisabled(rule, disabled ? 1 : 0);
  model.setRuleIgnoreEnergy(rule, ignoresEnergy ? 1 : 0);
  if (needs != 0) setFacilitation(model, rule, needs);
  setFacilitatingType(model, rule, needsType);
  if (parameter) setParameter(model, rule, *parameter);
}

/// The labels of the kinds, in the order of their values.
std::vector<std::string> kinds() {
  std::vector<std::string> labels;
  labels.reserve(std::size(kRuleKinds));
  for (const RuleKind& kind : kRuleKinds) labels.emplace_back(kind.label);
  return labels;
}

}  // namespace

void bindRules(CoreClass& core) {
  using Model = LatticeModel;
  core.def_static("rule_kinds", kinds);
  core.def("num_rules", [](Core& self) { return self.use().getNumRules(); });
  core.def("add_rule", addRule);
  core.def("delete_rule", [](Core& self, int rule) { withRule(self, rule).delRule(rule); });
  core.def("rule_name", OfRule::read([](Model& m, int r) { return m.getRuleName(r); }));
  core.def("set_rule_name", OfRule::change<std::string>(renameRule));
  core.def("rule_kind", OfRule::read([](Model& m, int r) { return m.getRuleType(r); }));
  core.def("rule_a", OfRule::read([](Model& m, int r) { return m.getRulePixelA(r); }));
  core.def("rule_b", OfRule::read([](Model& m, int r) { return m.getRulePixelB(r); }));
  core.def("rule_parameter", OfRule::read([](Model& m, int r) { return m.getRuleParam(r); }));
  core.def("set_rule_parameter", OfRule::change<double>(setParameter));
  core.def("rule_disabled", OfRule::read([](Model& m, int r) { return m.getRuleDisabled(r) != 0; }));
  core.def("set_rule_disabled", OfRule::change<bool>(setDisabled));
  core.def("rule_ignore_energy", OfRule::read([](Model& m, int r) { return m.getRuleIgnoreEnergy(r) != 0; }));
  core.def("set_rule_ignore_energy", OfRule::change<bool>([](Model& m, int r, bool ignores) {
             m.setRuleIgnoreEnergy(r, ignores ? 1 : 0);
           }));
  core.def("rule_needs", OfRule::read([](Model& m, int r) { return m.getRuleFacNum(r); }));
  core.def("set_rule_needs", OfRule::change<int>(setFacilitation));
  core.def("rule_needs_type", OfRule::read([](Model& m, int r) { return m.getRuleFacPixel(r); }));
  core.def("set_rule_needs_type", OfRule::change<int>(setFacilitatingType));
}

}  // namespace quorvane
