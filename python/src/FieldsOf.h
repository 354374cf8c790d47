#pragma once

#include "Core.h"

namespace quorvane {

/// Operations on the fields of pixel types or of rules. kFind gives the model, or throws for an index without
/// an item.
template <LatticeModel& (*kFind)(Core& core, int index)>
struct FieldsOf {
  /// Reads a field: what a function of a model and an index gives.
  template <typename Read>
  static auto read(const Read& field) {
    return [field](Core& core, int index) { return field(kFind(core, index), index); };
  }

  /// Changes a field by a function of a model, an index and the new value.
  template <typename Value, typename Change>
  static auto change(const Change& field) {
    return [field](Core& core, int index, const Value& value) { field(kFind(core, index), index, value); };
  }
};

}  // namespace quorvane
