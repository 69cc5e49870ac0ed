#include "commandline/TextForm.hpp"
#include "commandline/Translation.hpp"
#include "commands/Commands.hpp"

namespace zorvantine {

Failed storeFailure(const foundation::UserDefaults& store) {
  const auto opening = store.opening();
  if (opening.outcome == QEVSettings::StoreOpening::Outcome::inMemory)
    return Failure{.message = opening.message};
  if (const auto status = store.status())
    return Failure{.code = ExitCode::unavailable, .message = status->message};
  return std::nullopt;
}

Failure noSuchKey(std::string_view key) {
  return {
      .code = ExitCode::noSuchKey,
      .message = translated("there is no key “%1”; prefs list shows those that there are", {key})};
}

}  // namespace zorvantine
