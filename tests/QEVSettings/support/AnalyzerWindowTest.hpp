// SPDX-License-Identifier: MIT
#pragma once

#include "SettingsWindowTest.hpp"
#include "TestAnalyzers.hpp"

#include <memory>
#include <string>

namespace QEVSettings {

// The settings window on its Analyzer tab, with plug-ins of the test's own.
class AnalyzerWindowTest : public SettingsWindowTest {
protected:
  ~AnalyzerWindowTest() override { close(); }

  void load(const std::string& title,
            const std::shared_ptr<QEVDependencies::QEVPreferencesObject>& preferences = nullptr) {
    plugIns_.load(title, preferences);
  }
  headless::Window& open() { return SettingsWindowTest::open(Tabs::analyze); }

private:
  LoadedPlugIns plugIns_;
};

}  // namespace QEVSettings
