// SPDX-License-Identifier: MIT
#include "QEVCoreComponents/ProtocolPortInputField.hpp"

#include "QEVCommonTools/MessageText.hpp"
#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVCommonTools/localized.hpp"
#include "QEVDependencies/ErrorViewModel.hpp"
#include "QEVDependencies/QEVError.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace QEVCoreComponents {

using namespace viewkit;
using QEVCommonTools::formatted;
using QEVCommonTools::localized;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;
using QEVDependencies::ErrorState;
using QEVDependencies::ErrorViewModel;

namespace {

// The complete text of an error without details.
constexpr std::string_view kErrorTitle = "Error";

std::string textOf(const ErrorState& state) {
  if (!state.errorDetails) return state.errorText;
  return state.errorText + "\n" + localized(message(*state.errorDetails));
}

// A state with corrections has no error: the rest of the text was valid and was stored.
bool isRefused(const ErrorState& state) {
  return state.errorDetails || state.errorText == kErrorTitle;
}

struct ErrorText {
  ObservedObject<ErrorViewModel> model;

  View body() const {
    const ErrorState& state = model->errorState;
    if (state.isEmpty()) return View();
    return QEVCommonTools::messageText(textOf(state), isRefused(state)
                                                          ? QEVCommonTools::MessageKind::problem
                                                          : QEVCommonTools::MessageKind::notice);
  }
};

}  // namespace

View ProtocolPortInputField::body() const {
  const std::string helper = helperText.get().value_or("");

  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s1)},
      {
          titleKey.empty() ? View() : Text(localized(titleKey)).font(Font::caption()),
          field(),
          helper.empty() ? View()
                         : Text(helper).font(Font::caption()).foreground(Color::secondary()),
          ErrorText{.model = model->errorModel()},
      });
}

// Tells the field from those of other protocols.
std::string ProtocolPortInputField::label(const std::string& placeholder) const {
  const std::string name = model->protocolName;
  return name.empty() ? placeholder : formatted(localized("Ports of %@"), {name});
}

View ProtocolPortInputField::field() const {
  const std::string placeholder = placeholderKey ? localized(*placeholderKey) : "";
  const ErrorState& state = model->errorModel()->errorState;
  const bool isWrong = isRefused(state);
  const Binding<std::string> ports{
      [protocol = model.get()] { return protocol->protocolPorts.get(); },
      [protocol = model.get()](std::string text) { protocol->protocolPorts = std::move(text); }};

  const auto revert = [protocol = model.get(), onRevert = onRevert](const std::string& before) {
    if (onRevert) {
      onRevert();
    } else {
      protocol->protocolPorts = before;
    }
    protocol->errorModel()->objectWillChange().announce();
    protocol->errorModel()->errorState = {};
  };

  return TextField({.placeholder = placeholder,
                    .lineLimit = lineLimit,
                    .problem = isWrong ? textOf(state) : "",
                    .revert = revert},
                   ports, onCommit)
      .accessibilityLabel(titleKey.empty() ? label(placeholder) : localized(titleKey))
      .disabled(isManaged);
}

}  // namespace QEVCoreComponents
