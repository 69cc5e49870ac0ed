// SPDX-License-Identifier: MIT
#include "commandline/PreferenceJSON.hpp"

#include "commandline/TextForm.hpp"

#include <cmath>

namespace zorvantine {

using foundation::JSONWriter;
using QEVSettings::PreferenceValue;

namespace {

void writeReal(JSONWriter& writer, double real) {
  if (std::isfinite(real)) {
    writer.real(real);
  } else {
    writer.string(std::isnan(real) ? "nan" : real < 0 ? "-inf" : "inf");
  }
}

}  // namespace

void writePreference(JSONWriter& writer, const PreferenceValue& value) {
  switch (value.type()) {
    case PreferenceValue::Type::integer: writer.integer(*value.asInteger()); return;
    case PreferenceValue::Type::boolean: writer.boolean(*value.asBoolean()); return;
    case PreferenceValue::Type::real: writeReal(writer, *value.asReal()); return;
    case PreferenceValue::Type::string: writer.string(*value.asString()); return;
    case PreferenceValue::Type::data:
    case PreferenceValue::Type::date: writer.string(textForm(value)); return;
    case PreferenceValue::Type::array:
      writer.beginArray();
      for (const PreferenceValue& element : *value.asArray()) writePreference(writer, element);
      writer.endArray();
      return;
    case PreferenceValue::Type::dictionary:
      writer.beginObject();
      for (const auto& [key, element] : *value.asDictionary())
        writePreference(writer.name(key), element);
      writer.endObject();
      return;
  }
}

}  // namespace zorvantine
