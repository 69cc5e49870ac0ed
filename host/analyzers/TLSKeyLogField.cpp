// SPDX-License-Identifier: MIT
#include "analyzers/TLSKeyLogField.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/SettingRow.hpp"
#include "foundation/Bundle.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace zorvantine {

using namespace viewkit;

View TLSKeyLogField::body() const {
  const auto& host = foundation::Bundle::mainBundle();
  const std::string label = host.localizedString("Log of session keys");
  const View field =
      TextField({.placeholder = host.localizedString("From SSLKEYLOGFILE")}, file.binding());
  const bool isManaged = file.isLocked();
  const View row =
      HStack({.spacing = 12}, {
                                  Text(label).fixedSize(),
                                  isManaged ? QEVCommonTools::managedMark() : View(),
                                  field.accessibilityLabel(label).disabled(isManaged),
                                  FileButton(host.localizedString("Choose…"), file.binding())
                                      .help(label)
                                      .disabled(isManaged),
                              });
  return QEVCommonTools::settingRow({kKeyLogKey}, row);
}

}  // namespace zorvantine
