// SPDX-License-Identifier: MIT
#include "fields/CheckedTextField.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/MessageText.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/TextWidth.hpp"

#include <algorithm>
#include <utility>

namespace QEVCoreComponents {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View CheckedTextField::body() const {
  const std::string& wrong = problem;
  const Binding<std::string> text{
      [shown = draft.get().value_or(value)] { return shown; },
      // A text like the stored one is no draft: the field follows the store again.
      [self = *this](std::string typed) {
        self.draft.set(typed == self.value ? std::nullopt : std::optional(std::move(typed)));
      }};

  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s1)},
      {
          TextField({.placeholder = placeholder,
                     .problem = wrong,
                     .revert = [self = *this](const std::string&) { self.discardDraft(); }},
                    text, [self = *this] { self.commitDraft(); })
              .accessibilityLabel(label)
              .disabled(isManaged)
              .frame(FlexibleFrame{.maxWidth = width})
              .overlay(isManaged
                           ? QEVCommonTools::managedMark().padding(Edges::trailing, Spacing::s5)
                           : View(),
                       Alignment::trailing()),
          QEVCommonTools::messageText(wrong, QEVCommonTools::MessageKind::problem),
      });
}

void CheckedTextField::commitDraft() const {
  const std::optional<std::string> typed = draft;
  if (typed && isManaged) return problem.set(QEVCommonTools::managedText());
  const std::optional<std::string> wrong = typed ? commit(*typed) : std::nullopt;
  problem.set(wrong.value_or(""));
  if (!wrong) draft.set(std::nullopt);
}

void CheckedTextField::discardDraft() const {
  draft.set(std::nullopt);
  problem.set("");
}

double fieldWidth(double usual, const std::string& text) {
  constexpr double insets = 24;  // between both edges of a field and its text
  return std::max(usual, textWidth(text, Font::body()) + insets);
}

}  // namespace QEVCoreComponents
