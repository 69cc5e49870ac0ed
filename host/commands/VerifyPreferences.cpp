#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/PreferencesVerification.hpp"

#include <ostream>

namespace zorvantine {

Failed run(const VerifyPreferencesCommand&, Console& console) {
  const auto file = foundation::UserDefaults::standardFile();
  // Only opening it tells why there is none.
  if (file.empty()) return storeFailure(Console::store());
  const auto verification = foundation::verifyPreferences(file);
  for (const std::string& sentence : verification.sentences) console.out << onOneLine(sentence) << '\n';
  if (verification.isGood) return std::nullopt;
  return Failure{.message =
                     "the store is not in order, as the lines on standard output tell; every other command "
                     "that opens it puts right what can be"};
}

}  // namespace zorvantine
