// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCommonTools/RoundedBorderStyle.hpp"
#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "viewkit/Binding.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <optional>
#include <string>

namespace QEVCoreComponents {

// A text field for a protocol's ports. It shows the record's error or corrections underneath, and
// announces a new message to assistive technology.
//
// Typing changes the record's ports. `onCommit` is called when the user presses Return, and once
// when a changed text loses the keyboard focus, disappears, or its window closes. Escape restores
// the stored text and removes the message.
//
//     ProtocolPortInputField{.titleKey = "",
//                            .placeholderKey = "Protocol Ports",
//                            .model = record,
//                            .helperText = Binding<std::optional<std::string>>::constant(""),
//                            .onCommit = [record] { registerPorts(*record); }}
struct ProtocolPortInputField {
  // Localisation keys of the shared views' string table.
  std::string titleKey;
  std::optional<std::string> placeholderKey;
  viewkit::ObservedObject<QEVDependencies::QEVNetworkProtocol> model;
  // Shown under the field. An empty text takes no space.
  viewkit::Binding<std::optional<std::string>> helperText;
  // Has no effect: fields of this toolkit correct nothing by themselves.
  bool disableAutocorrection = true;
  // Has no effect: fields of this toolkit draw their own outline, in red around a refused text.
  QEVCommonTools::RoundedBorderStyle borderStyle = QEVCommonTools::RoundedBorderStyle::line;
  // The number of lines that the field may grow to.
  int lineLimit = 1;
  // Whether an administrator has locked the ports.
  bool isManaged = false;
  std::function<void()> onCommit;
  // Restores the record's stored text. Without it, the text before the change is restored.
  std::function<void()> onRevert = {};

  viewkit::View body() const;

private:
  viewkit::View field() const;
  std::string label(const std::string& placeholder) const;
};

}  // namespace QEVCoreComponents
