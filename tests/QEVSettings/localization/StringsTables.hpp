// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/StringsFile.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

namespace QEVSettings {

// The bundles with string tables, from the root of the sources.
inline const std::filesystem::path kSource = QEV_SOURCE_FOLDER;
inline const std::filesystem::path kModule = "QEVSettings/resources/QEVSettings_QEVSettings.bundle";
inline const std::filesystem::path kHost = "host/resources";
inline const std::filesystem::path kTools =
    "contracts/QEVCommonTools/resources/QEVCommonTools_QEVCommonTools.bundle";

// The table of a bundle in a language; a failure of the test when it cannot be read.
inline foundation::StringsTable readTable(const std::filesystem::path& bundle,
                                          const std::string& language) {
  auto table =
      foundation::readStringsFile(kSource / bundle / (language + ".lproj") / "Localizable.strings");
  EXPECT_TRUE(table) << bundle << ' ' << language << ": " << (table ? "" : table.error().message);
  return table ? *std::move(table) : foundation::StringsTable();
}

}  // namespace QEVSettings
