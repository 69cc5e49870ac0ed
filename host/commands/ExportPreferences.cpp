#include "commands/Commands.hpp"
#include "foundation/PropertyList.hpp"

namespace zorvantine {

Failed run(const ExportPreferencesCommand& command, Console&) {
  const auto preferences = Console::store().dictionaryRepresentation();
  if (auto failure = storeFailure(Console::store())) return failure;
  const auto outcome = foundation::writePropertyList(preferences, command.file, command.format);
  if (!outcome) return Failure{.message = outcome.error().message};
  return std::nullopt;
}

}  // namespace zorvantine
