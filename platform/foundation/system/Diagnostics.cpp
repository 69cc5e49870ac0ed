// SPDX-License-Identifier: MIT
#include "foundation/Diagnostics.hpp"

#include "QEVSettings/preferences/HostIdentity.hpp"

#include <iostream>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace foundation {

namespace {

struct Sink {
  std::mutex mutex;
  DiagnosticSink sink;
};

// Never destroyed: the store may report something while the process ends.
Sink& shared() {
  static auto* const sink = std::make_unique<Sink>().release();
  return *sink;
}

}  // namespace

void setDiagnosticSink(DiagnosticSink sink) {
  const std::scoped_lock lock(shared().mutex);
  shared().sink = std::move(sink);
}

void reportDiagnostic(std::string_view line) noexcept {
  try {
    DiagnosticSink sink;
    {
      const std::scoped_lock lock(shared().mutex);
      sink = shared().sink;
    }
    if (sink) {
      sink(line);
    } else {
      std::clog << QEVSettings::HostIdentity::current().id + ": " + std::string(line) + '\n'
                << std::flush;
    }
  } catch (...) {
    // A line that cannot be written is dropped.
  }
}

}  // namespace foundation
