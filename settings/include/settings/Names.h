#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "model/LatticeModel.h"

/// Pixel types and rules as a command line names them.
namespace quorvane {

/// A setting that cannot be made; what() is one line that says why.
class SettingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The index of a pixel type or a rule by its whole name, or by its index from 0 as "#2". Throws
/// SettingError, which lists the names there are, if none or several have the name.
int typeNamed(const LatticeModel& model, std::string_view name);
int ruleNamed(const LatticeModel& model, std::string_view name);

/// A number, all of the text, with a point whatever the locale. Throws SettingError.
double realIn(std::string_view text);

}  // namespace quorvane
