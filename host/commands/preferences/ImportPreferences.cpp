// SPDX-License-Identifier: MIT
#include "QEVSettings/PreferenceListReader.hpp"
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/Files.hpp"
#include "foundation/PropertyList.hpp"
#include "foundation/Translation.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <array>
#include <istream>
#include <new>
#include <ostream>
#include <string>
#include <vector>

namespace zorvantine {

namespace {

using foundation::Error;
using foundation::Result;
using foundation::translated;
using QEVSettings::PreferenceDictionary;
using QEVSettings::QEVPreferencesMigration;

std::string nameOf(const std::filesystem::path& file) {
  return file == "-" ? translated("standard input") : file.string();
}

// A newer release may keep its values in forms that this one does not write.
Failed newerStore(const foundation::UserDefaults& store) {
  const auto schema = store.integerForKey(QEVPreferencesMigration::schemaVersionKey);
  if (schema <= QEVPreferencesMigration::currentSchemaVersion) return std::nullopt;
  return Failure{
      .message = translated(
          "the store is of schema %1, which a newer release wrote; import with that release",
          {std::to_string(schema)})};
}

Result<std::string> readStandardInput(std::istream& in) {
  std::string bytes;
  std::array<char, 65536> part{};
  while (in.read(part.data(), part.size()) || in.gcount() > 0) {
    bytes.append(part.data(), static_cast<std::size_t>(in.gcount()));
    // A longer list is refused when it is read.
    if (bytes.size() > foundation::kMaximumPropertyListBytes) break;
  }
  if (in.bad()) return Error{translated("standard input could not be read; name a FILE")};
  return bytes;
}

Result<PreferenceDictionary> readList(const std::filesystem::path& file, std::istream& in) {
  const bool isStandardInput = file == "-";
  try {
    auto bytes = isStandardInput
                     ? readStandardInput(in)
                     : foundation::readFile(file, foundation::kMaximumPropertyListBytes);
    if (!bytes) return bytes.error();
    auto list = QEVSettings::readPreferenceList(*std::move(bytes));
    if (list) return list;
    return Error{nameOf(file) + ": " + list.error().message};
  } catch (const std::bad_alloc&) {
    return Error{translated("there is too little memory for the list; close other programs")};
  }
}

// Takes the keys that an administrator has locked out of a list, and returns them.
std::vector<std::string> takeLocked(PreferenceDictionary& values) {
  std::vector<std::string> locked;
  std::erase_if(values, [&](const auto& entry) {
    if (!ProgramPreferences::inForce().isLocked(entry.first)) return false;
    locked.push_back(entry.first);
    return true;
  });
  return locked;
}

}  // namespace

Failed run(const ImportPreferencesCommand& command, Console& console) {
  auto list = readList(command.file, console.in);
  if (!list) return Failure{.message = list.error().message};
  auto current = QEVSettings::inCurrentSchema(*std::move(list));
  if (!current) return Failure{.message = nameOf(command.file) + ": " + current.error().message};
  if (auto failure = storeFailure(ProgramPreferences::store())) return failure;
  if (auto failure = newerStore(ProgramPreferences::store())) return failure;
  const auto skipped = takeLocked((*current).values);
  if (const auto outcome = ProgramPreferences::store().applyAll(current->values); !outcome) {
    return Failure{.message = outcome.error().message};
  }
  console.out << "Imported " << current->values.size()
              << (current->values.size() == 1 ? " key" : " keys");
  if (current->rewritten > 0)
    console.out << ", of which " << current->rewritten << " were brought up to date";
  console.out << ".\n";
  if (!skipped.empty()) {
    console.out << "Left out what your organization manages:";
    for (const std::string& key : skipped) console.out << ' ' << onOneLine(key);
    console.out << '\n';
  }
  return std::nullopt;
}

}  // namespace zorvantine
