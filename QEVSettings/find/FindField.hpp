// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Event.hpp"
#include "find/SettingsFinder.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <memory>
#include <string_view>

namespace QEVSettings {

// The field that finds settings, with the list of what it found below it, and a button for changed
// settings. Ctrl+F leads to it from anywhere in the window.
class FindField {
public:
  // `hasTab` says which tabs the window has.
  FindField(const std::shared_ptr<SettingsNavigation>& navigation,
            const std::function<bool(std::string_view)>& hasTab);

  viewkit::View body() const;

private:
  viewkit::View field() const;
  viewkit::View changedButton() const;
  bool handleKey(const appkit::Event& press) const;
  bool handleShortcut(const appkit::Event& press) const;

  std::shared_ptr<SettingsNavigation> navigation_;
  viewkit::StateObject<SettingsFinder> finder_;
};

}  // namespace QEVSettings
