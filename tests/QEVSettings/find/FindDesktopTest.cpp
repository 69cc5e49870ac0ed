// SPDX-License-Identifier: MIT
#include "HostParts.hpp"
#include "TestAnalyzers.hpp"
#include "qt/WindowFixture.hpp"

#include <gmock/gmock.h>

namespace QEVSettings {
namespace {

// The find field in a real window.
class FindDesktopTest : public qt::WindowFixture, protected HostParts {
protected:
  void SetUp() override {
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config.emplace();
    preferences->config->toggles.push_back(
        {.id = "sums", .defaultsKey = "sums", .labelKey = "Compute checksums"});
    plugIns_.load("First");
    plugIns_.load("Second", preferences);
    useStore(store);
    open(settingsView(QEVSettingsView::Tabs::general));
  }

private:
  LoadedPlugIns plugIns_;
};

TEST_F(FindDesktopTest, LeadsByKeyboardToTheControlOfASetting) {
  EXPECT_FALSE(find(QAccessible::ComboBox, "Find").state().focused);
  press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(find(QAccessible::ComboBox, "Find").state().focused);
  EXPECT_TRUE(find(QAccessible::ComboBox, "Find").state().collapsed);
  type("checksums");
  EXPECT_TRUE(find(QAccessible::ComboBox, "Find").state().expanded);
  EXPECT_EQ(find(QAccessible::AlertMessage).text(QAccessible::Name), "Results: 1");
  EXPECT_TRUE(find(QAccessible::ListItem, "Compute checksums Analyzer › Second").state().selected);
  press(Qt::Key_Return);
  EXPECT_TRUE(find(QAccessible::CheckBox, "Compute checksums").state().focused);
  press(Qt::Key_Space);
  EXPECT_TRUE(store.underneath().boolForKey("sums"));
}

TEST_F(FindDesktopTest, LeadsByMouse) {
  click(find(QAccessible::ComboBox, "Find"));
  type("time zone");
  click(find(QAccessible::ComboBox, "Find"));
  click(find(QAccessible::ListItem, "Packet time zone General"));
  EXPECT_FALSE(has(QAccessible::AlertMessage)) << "the list is closed";
  EXPECT_TRUE(find(QAccessible::ButtonMenu, "Packet time zone").state().focused);
}

}  // namespace
}  // namespace QEVSettings
