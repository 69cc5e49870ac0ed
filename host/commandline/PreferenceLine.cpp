// SPDX-License-Identifier: MIT
#include "commandline/PreferenceLine.hpp"

#include "commandline/TextForm.hpp"

namespace zorvantine {

using QEVSettings::PreferenceValue;

namespace {

constexpr std::size_t kTypeWidth = std::string_view("dictionary").size();
constexpr std::size_t kLongestValue = 80;

void fillTo(std::string& line, std::size_t width) {
  if (line.size() < width) line.append(width - line.size(), ' ');
  line += "  ";
}

}  // namespace

std::string readableForm(const PreferenceValue& value) {
  const auto* bytes = value.asData();
  if (bytes == nullptr || bytes->empty()) return textForm(value);
  const std::string text(bytes->begin(), bytes->end());
  return onOneLine(text) == text ? text : textForm(value);
}

std::string preferenceLine(std::string_view key, const std::optional<PreferenceValue>& value,
                           std::size_t keyWidth) {
  std::string line = onOneLine(key);
  fillTo(line, keyWidth);
  if (!value) return line + "removed";
  const std::size_t valueStart = line.size() + kTypeWidth;
  line += nameOf(value->type());
  fillTo(line, valueStart);
  return line + onOneLine(shortened(readableForm(*value), kLongestValue));
}

}  // namespace zorvantine
