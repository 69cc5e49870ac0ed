#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"
#include "commands/Commands.hpp"
#include "foundation/PropertyList.hpp"

#include <ostream>

namespace zorvantine {

namespace {

using QEVSettings::QEVPreferencesMigration;

// A store of a newer release keeps its values in forms that this one would not write.
Failed newerStore(const foundation::UserDefaults& store) {
  const auto schema = store.integerForKey(QEVPreferencesMigration::schemaVersionKey);
  if (schema <= QEVPreferencesMigration::currentSchemaVersion) return std::nullopt;
  return Failure{.message = "the store is of schema " + std::to_string(schema) +
                            ", which a newer release wrote; import with that release"};
}

}  // namespace

Failed run(const ImportPreferencesCommand& command, Console& console) {
  auto list = foundation::readPropertyList(command.file);
  if (!list) return Failure{.message = list.error().message};
  const auto current = QEVSettings::inCurrentSchema(*std::move(list));
  if (!current) return Failure{.message = command.file.string() + ": " + current.error().message};
  if (auto failure = storeFailure(Console::store())) return failure;
  if (auto failure = newerStore(Console::store())) return failure;
  if (const auto outcome = Console::store().applyAll(current->values); !outcome) {
    return Failure{.message = outcome.error().message};
  }
  console.out << "Imported " << current->values.size()
              << (current->values.size() == 1 ? " key" : " keys");
  if (current->rewritten > 0)
    console.out << ", of which " << current->rewritten << " were brought up to date";
  console.out << ".\n";
  return std::nullopt;
}

}  // namespace zorvantine
