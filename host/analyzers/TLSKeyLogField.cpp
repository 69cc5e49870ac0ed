#include "analyzers/TLSKeyLogField.hpp"

#include "foundation/Bundle.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace zorvantine {

using namespace viewkit;

View TLSKeyLogField::body() const {
  const auto& host = foundation::Bundle::mainBundle();
  const std::string label = host.localizedString("Log of session keys");
  const View field = TextField(
      {.placeholder = host.localizedString("The file that SSLKEYLOGFILE names")}, file.binding());
  return HStack({.spacing = 12},
                {
                    Text(label).fixedSize(),
                    field.accessibilityLabel(label),
                    FileButton(host.localizedString("Choose…"), file.binding()).help(label),
                });
}

}  // namespace zorvantine
