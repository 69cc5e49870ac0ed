#pragma once

#include <functional>
#include <string_view>

namespace foundation {

using DiagnosticSink = std::function<void(std::string_view line)>;

// Where this layer's few lines for developers go from now on: one line a call, without its end, on the main
// thread or on a thread of the store. At first, and with an empty sink, they go to the standard error
// stream. A line never holds a value of the store.
void setDiagnosticSink(DiagnosticSink sink);

// Says a line there. Any thread; never fails.
void reportDiagnostic(std::string_view line) noexcept;

}  // namespace foundation
