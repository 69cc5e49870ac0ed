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

// The field for a protocol's ports, with the record's error or corrections under it.
//
// The record's ports are the text as it is typed; `onCommit` is called when the person presses
// Return, and once when a changed text loses the keyboard, disappears, or its window closes. Escape
// brings the stored text back and takes the message away. The message under the field is spoken
// when it changes.
struct ProtocolPortInputField {
  // Texts that are looked up in the shared views' string table.
  std::string titleKey;
  std::optional<std::string> placeholderKey;
  viewkit::ObservedObject<QEVDependencies::QEVNetworkProtocol> model;
  // Said under the field; empty or nothing takes no space.
  viewkit::Binding<std::optional<std::string>> helperText;
  // The toolkit's fields correct nothing by themselves.
  bool disableAutocorrection = true;
  QEVCommonTools::RoundedBorderStyle borderStyle = QEVCommonTools::RoundedBorderStyle::line;
  // The field grows to this many lines.
  int lineLimit = 1;
  std::function<void()> onCommit;
  // Makes the stored text the record's again. Without it that is the text before the change.
  std::function<void()> onRevert = {};

  viewkit::View body() const;

private:
  viewkit::View field() const;
};

}  // namespace QEVCoreComponents
