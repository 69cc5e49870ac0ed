// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "appkit/Font.hpp"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace QEVSettings {

// The value of every key that a store holds.
using StoredValues = std::map<std::string, PreferenceValue>;

// The controls of the pages as a test needs them: where each stands, and what it stores.

struct SwitchOnPage {
  const char* tab;
  const char* label;
  std::string key;
  bool initial;

  bool isOn(const StoredValues& values) const;
};

struct FontPickerOnPage {
  const char* label;
  std::string key;
  appkit::Font (QEVCommonTools::FontPreferences::*get)() const;
};

// A text field that refuses some texts.
struct FieldOnPage {
  struct Text {
    const char* typed = nullptr;
    // What is stored; nothing for a text that is refused.
    std::optional<std::string> stored;
  };

  const char* tab;
  const char* label;
  std::string key;
  std::vector<Text> texts;
  std::function<std::string(const StoredValues&)> shown;
  std::function<void(StoredValues&, const std::string& text)> store;
  std::function<bool(const StoredValues&)> isEnabled = [](const StoredValues&) { return true; };
  // Whether a text that is not committed goes when the field is disabled, refused or not.
  bool dropsTextWhenDisabled = false;
};

const std::vector<SwitchOnPage>& switchesOfCaptureAndProxy();
const std::vector<FieldOnPage>& fieldsOfCaptureAndProxy();
const std::vector<FontPickerOnPage>& fontPickers();

}  // namespace QEVSettings
