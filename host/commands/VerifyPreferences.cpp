#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "commands/Commands.hpp"

#include <ostream>

namespace zorvantine {

Failed run(const VerifyPreferencesCommand&, Console& console) {
  const std::size_t count = Console::store().dictionaryRepresentation().size();
  if (auto failure = storeFailure(Console::store())) return failure;
  console.out << "The store is well: " << count << (count == 1 ? " key" : " keys") << ", schema version "
              << Console::store().integerForKey(QEVSettings::kPrefsSchemaVersion.name) << ".\n";
  return std::nullopt;
}

}  // namespace zorvantine
