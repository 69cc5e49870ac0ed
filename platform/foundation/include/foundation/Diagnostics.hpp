// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

namespace foundation {

using DiagnosticSink = std::function<void(std::string_view line)>;

// Sets the receiver of the messages for developers. It is called with one line without its line
// feed, on the main thread or on a thread of the store. Without a sink, messages go to the standard
// error stream. A message never contains a value of the store.
void setDiagnosticSink(DiagnosticSink sink);

// Hands a line to the sink. May be called on any thread; never fails.
void reportDiagnostic(std::string_view line) noexcept;

}  // namespace foundation
