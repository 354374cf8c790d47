#pragma once

namespace quorvane {

/// From now on assistive technology meets the window's controls as they are: sliders with their real values,
/// labels and lists with what they show, colour wells with their colours. Once is enough; to be called before
/// the first control is made.
void installAccessibleFactory();

}  // namespace quorvane
