// SPDX-License-Identifier: MIT
#include "tree/ModifierNode.hpp"
#include "viewkit/AccessibilityNote.hpp"
#include "viewkit/EnvironmentObject.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

// Changes what the content inherits.
class SurroundingsValue final : public ModifierValue {
public:
  using Change = std::function<void(Inherited&)>;

  SurroundingsValue(View content, const char* name, Change change)
      : ModifierValue(std::move(content)), name(name), change(std::move(change)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return name; }

  const char* const name;
  const Change change;
};

class SurroundingsNode final : public ModifierNode {
protected:
  bool hasSameIdentity(const ViewValue& next) const override {
    return static_cast<const SurroundingsValue&>(next).name == valueAs<SurroundingsValue>().name;
  }

  const InheritedPtr& inheritedByContent() override {
    return inheritedByContent_.of(inheritedPtr(), valueAs<SurroundingsValue>().change);
  }

private:
  InheritedOverride inheritedByContent_;
};

std::unique_ptr<Node> SurroundingsValue::makeNode() const {
  return std::make_unique<SurroundingsNode>();
}

View withInherited(const View& content, const char* name, SurroundingsValue::Change change) {
  return modifiedView<SurroundingsValue>(content, name, std::move(change));
}

constexpr const char* kForeground = "Foreground";
constexpr const char* kFont = "Font";
constexpr const char* kDisabled = "Disabled";
constexpr const char* kHelp = "Help";
constexpr const char* kLabel = "AccessibilityLabel";
constexpr const char* kNote = "AccessibilityNote";
constexpr const char* kSelected = "AccessibilitySelected";
constexpr const char* kObject = "EnvironmentObject";

}  // namespace

View modified::byForeground(const View& content, Color color) {
  return withInherited(content, kForeground, [color](Inherited& next) { next.foreground = color; });
}

View modified::byFont(const View& content, const Font& font) {
  return withInherited(content, kFont, [font](Inherited& next) { next.font = font; });
}

View modified::byDisabled(const View& content, bool disabled) {
  return withInherited(content, kDisabled,
                       [disabled](Inherited& next) { next.enabled = next.enabled && !disabled; });
}

View modified::byHelp(const View& content, std::string help) {
  return withInherited(content, kHelp,
                       [help = std::move(help)](Inherited& next) { next.forNearest.help = help; });
}

View modified::byAccessibilityLabel(const View& content, std::string label) {
  return withInherited(content, kLabel, [label = std::move(label)](Inherited& next) {
    next.forNearest.accessibilityLabel = label;
  });
}

View accessibilityNote(const View& content, std::string note) {
  return withInherited(content, kNote,
                       [note = std::move(note)](Inherited& next) { next.controlNote = note; });
}

View modified::byAccessibilitySelected(const View& content, bool selected) {
  return withInherited(content, kSelected,
                       [selected](Inherited& next) { next.forNearest.selected = selected; });
}

View detail::withEnvironmentObjects(
    const View& content, std::function<EnvironmentObjects(const EnvironmentObjects&)> add) {
  return withInherited(content, kObject, [add = std::move(add)](Inherited& next) {
    next.environment.objects = add(next.environment.objects);
  });
}

}  // namespace viewkit
