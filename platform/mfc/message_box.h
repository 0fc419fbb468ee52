#pragma once

#include <functional>
#include <string>

#include "afx.h"

namespace mfc {

// Takes the place of the message box: receives its text and type and returns the button (IDOK).
using MessageBoxHook = std::function<int(const std::string& text, UINT type)>;

// Sets what AfxMessageBox calls instead of showing a box; an empty hook brings the box back. Returns the
// former one.
MessageBoxHook ReplaceMessageBox(MessageBoxHook hook);

}  // namespace mfc
