// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/SettingWriter.hpp"
#include "changes/ActionStep.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace QEVSettings {

enum class ReplayDirection : std::uint8_t { back, forward };

// What became of the settings of a step. A setting is named by one of its keys.
struct ReplayedStep {
  std::vector<SettingChange> done;
  // Somebody else has changed these settings since, so they were not written.
  std::vector<std::string> changedElsewhere;
  std::vector<SettingWriter::Refusal> refused;
};

// Writes what the store held before the step, or after it, through the writer.
ReplayedStep replayStep(const ActionStep& step, ReplayDirection direction, SettingWriter& writer);

}  // namespace QEVSettings
