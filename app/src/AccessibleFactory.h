#pragma once

namespace quorvane {

/// Installs the accessible interfaces of the window's controls: sliders with real values, labels and lists
/// with their content, colour wells with their colours. Call it once, before the first control is created.
void installAccessibleFactory();

}  // namespace quorvane
