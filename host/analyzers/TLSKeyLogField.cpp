#include "analyzers/TLSKeyLogField.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace zorvantine {

using namespace viewkit;

View TLSKeyLogField::body() const {
  const std::string label = "Log of session keys";
  const View field =
      TextField({.placeholder = "The file that SSLKEYLOGFILE names"}, file.binding());
  const bool isManaged = file.isLocked();
  return HStack({.spacing = 12}, {Text(label), isManaged ? QEVCommonTools::managedMark() : View(),
                                  field.accessibilityLabel(label).disabled(isManaged)});
}

}  // namespace zorvantine
