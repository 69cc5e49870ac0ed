// SPDX-License-Identifier: MIT
#include "find/FindField.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "find/FoundList.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/KeyPress.hpp"
#include "viewkit/Stacks.hpp"

namespace QEVSettings {

using namespace viewkit;
using appkit::Event;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

constexpr const char* kFieldId = "find";
constexpr double kWidest = 180;
constexpr double kSymbolSize = 14;
constexpr double kListWidth = 400;

}  // namespace

FindField::FindField(const std::shared_ptr<SettingsNavigation>& navigation,
                     const std::function<bool(std::string_view)>& hasTab)
    : navigation_(navigation), finder_([navigation, hasTab] {
        return std::make_shared<SettingsFinder>(navigation, Environment::current().defaultStore,
                                                hasTab);
      }) {}

View FindField::body() const {
  const View parts = HStack({.spacing = points(Spacing::s4)}, {field(), changedButton()});
  return onKeyPress(parts.frame(FlexibleFrame{.minWidth = 0, .maxWidth = kWidest}),
                    KeyScope::window,
                    [self = *this](const Event& press) { return self.handleShortcut(press); });
}

View FindField::field() const {
  const std::shared_ptr<SettingsFinder> finder = finder_.get();
  const Binding<std::string> query{
      [finder] { return finder->query(); },
      [finder](std::string text) { finder->setQuery(std::move(text)); }};
  const Binding<bool> isOpen{[finder] { return finder->isOpen(); },
                             [finder](bool open) { open ? finder->open() : finder->close(); }};
  const View text = TextField({.placeholder = localized("Find"),
                               .revert = [finder](const std::string&) { finder->setQuery(""); },
                               .isListOpen = finder->isOpen()},
                              query)
                        .help(localized("Find a setting"))
                        .accessibilityLabel(localized("Find"))
                        .popover(isOpen, [finder] { return View(FoundList{.finder = finder}); },
                                 {.maxWidth = kListWidth, .staysForView = true});
  return onKeyPress(text, KeyScope::focusInside,
                    [self = *this](const Event& press) { return self.handleKey(press); })
      .id(kFieldId);
}

View FindField::changedButton() const {
  const std::shared_ptr<SettingsFinder> finder = finder_.get();
  const bool isOn = finder->isForChanged();
  const View symbol = Image::symbol("line.3.horizontal.decrease")
                          .resizable()
                          .scaledToFit()
                          .frame(FixedFrame{.width = kSymbolSize, .height = kSymbolSize})
                          .foreground(isOn ? Color::accent() : Color::secondary());
  return PlainButton(symbol.padding(Spacing::s3),
                     [self = *this, finder] {
                       finder->toggleForChanged();
                       self.navigation_->focus(kFieldId);
                     })
      .help(localized("Only settings that were changed"))
      .accessibilitySelected(isOn);
}

bool FindField::handleShortcut(const Event& press) const {
  if (press.keyCode != Event::kF || press.modifiers != Event::control) return false;
  finder_->open();
  navigation_->focus(kFieldId);
  return true;
}

bool FindField::handleKey(const Event& press) const {
  if (press.modifiers != Event::none) return false;
  const std::shared_ptr<SettingsFinder> finder = finder_.get();
  const bool isArrow = press.keyCode == Event::kDownArrow || press.keyCode == Event::kUpArrow;
  if (isArrow && finder->isOpen()) {
    finder->moveSelection(press.keyCode == Event::kDownArrow ? 1 : -1);
    return true;
  }
  if (press.keyCode == Event::kDownArrow) {
    finder->open();
    return true;
  }
  if (press.characters == "\r" && finder->isOpen()) {
    finder->choose(finder->selected());
    return true;
  }
  if (press.keyCode == Event::kEscape && !finder->query().empty()) {
    finder->setQuery("");
    return true;
  }
  // Leaving the field closes the list.
  if (press.keyCode == Event::kTab) finder->close();
  return false;
}

}  // namespace QEVSettings
