#include "commands/Commands.hpp"
#include "foundation/PropertyList.hpp"

#include <ostream>

namespace zorvantine {

Failed run(const ImportPreferencesCommand& command, Console& console) {
  const auto values = foundation::readPropertyList(command.file);
  if (!values) return Failure{.message = values.error().message};
  if (auto failure = storeFailure(Console::store())) return failure;
  if (const auto outcome = Console::store().applyAll(*values); !outcome) {
    return Failure{.message = outcome.error().message};
  }
  console.out << "Imported " << values->size() << (values->size() == 1 ? " key" : " keys") << ".\n";
  return std::nullopt;
}

}  // namespace zorvantine
