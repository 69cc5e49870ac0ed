// SPDX-License-Identifier: MIT
#include "catalogue/HostSettings.hpp"
#include "commandline/PreferenceJSON.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/JSONWriter.hpp"
#include "history/HistoryText.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <ostream>

namespace zorvantine {

using foundation::JSONWriter;
using foundation::RememberedChange;
using foundation::RememberedValue;

namespace {

constexpr std::size_t kLongestValue = 60;

void printText(const std::vector<RememberedChange>& history, std::ostream& out) {
  for (const RememberedChange& change : history) {
    out << textForm(change.time) << "  " << onOneLine(change.key) << "  "
        << historyText(change.before, kLongestValue) << " → "
        << historyText(change.after, kLongestValue) << "  (" << onOneLine(change.program) << ")\n";
  }
}

// A value that is not kept is null, as a missing one. An entry beside it says why.
void writeSide(JSONWriter& writer, std::string_view name, const RememberedValue& side) {
  writer.name(name);
  if (side.kind == RememberedValue::Kind::kept) {
    writePreference(writer, *side.value);
  } else {
    writer.null();
  }
  if (side.kind == RememberedValue::Kind::tooLarge)
    writer.name(std::string(name) + "Bytes").integer(static_cast<std::int64_t>(side.bytes));
  if (side.kind == RememberedValue::Kind::secret)
    writer.name(std::string(name) + "IsSecret").boolean(true);
}

void printJSON(const std::vector<RememberedChange>& history, std::ostream& out) {
  JSONWriter writer;
  writer.beginArray();
  for (const RememberedChange& change : history) {
    writer.beginObject().name("time").string(textForm(change.time)).name("key").string(change.key);
    writeSide(writer, "before", change.before);
    writeSide(writer, "after", change.after);
    writer.name("program").string(change.program).endObject();
  }
  out << writer.endArray().text() << '\n';
}

}  // namespace

Failed run(const ShowHistoryCommand& command, Console& console) {
  const auto& store = ProgramPreferences::store();
  const auto history = store.history(command.key);
  if (!history) return Failure{.message = history.error().message};
  const bool isUnknown = !command.key.empty() && history->empty() &&
                         hostCatalogue().find(command.key) == nullptr &&
                         store.find(command.key) == nullptr;
  if (isUnknown) return noSuchKey(command.key);
  if (command.format == OutputFormat::json) {
    printJSON(*history, console.out);
  } else {
    printText(*history, console.out);
  }
  return storeFailure(store);
}

}  // namespace zorvantine
