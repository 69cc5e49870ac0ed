// SPDX-License-Identifier: MIT
#pragma once

namespace QEVSettings {

// Whether a text is being edited in the window that has the keyboard, so that keys of the window
// belong to the text.
bool isEditingText();

}  // namespace QEVSettings
