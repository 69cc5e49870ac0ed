// SPDX-License-Identifier: MIT
#include "QEVModels/PortsValidator.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/JSONWriter.hpp"
#include "foundation/Translation.hpp"

#include <algorithm>
#include <istream>
#include <iterator>
#include <ostream>

namespace zorvantine {

using foundation::translated;

using QEVModels::PortCorrection;
using QEVModels::PortValidationResult;

namespace {

void printText(const PortValidationResult& result, std::ostream& out) {
  out << result.ports << '\n';
  for (const PortCorrection& correction : result.corrections)
    out << onOneLine(correction.message()) << '\n';
}

void printJSON(const PortValidationResult& result, std::ostream& out) {
  foundation::JSONWriter writer;
  writer.beginObject().name("ports").string(result.ports).name("corrections").beginArray();
  for (const PortCorrection& correction : result.corrections) {
    writer.beginObject().name("kind").string(nameOf(correction.kind()));
    writer.name("message").string(correction.message()).endObject();
  }
  writer.endArray().endObject();
  out << writer.text() << '\n';
}

}  // namespace

Failed run(const ValidatePortsCommand& command, Console& console) {
  std::string text = command.text;
  if (text == "-") text.assign(std::istreambuf_iterator(console.in), {});
  if (console.in.bad())
    return Failure{
        .message = translated("standard input could not be read; give the ports as an argument")};
  const PortValidationResult result = QEVModels::validatedPorts(text);
  command.format == OutputFormat::json ? printJSON(result, console.out)
                                       : printText(result, console.out);
  const bool isComplete =
      std::ranges::none_of(result.corrections, [](const PortCorrection& correction) {
        return correction.kind() == PortCorrection::Kind::invalid ||
               correction.kind() == PortCorrection::Kind::outOfRange;
      });
  if (isComplete) return std::nullopt;
  return Failure{.code = ExitCode::portsLeftOut,
                 .message = translated("some of the ports were left out, as the result tells")};
}

}  // namespace zorvantine
