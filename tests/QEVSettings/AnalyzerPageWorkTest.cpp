// How much work the Analyzer page makes of what a person does: the same for ten analyzers and for ten thousand.

#include "AllocationCount.hpp"
#include "QEVSettings/QEVAnalyzerSettingsView.hpp"
#include "TestAnalyzers.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <string>

namespace QEVSettings {

namespace {

using viewkit::Role;

constexpr std::string_view kSelectedKey = "QEVAnalyzerSettingsSelectedIndex";
// Bytes for one selection, whose details are all made anew; and what may be left of a thousand.
constexpr std::size_t kSelectionLimit = std::size_t{512} * 1024;
constexpr std::size_t kLeftoverLimit = 1024;

struct Work {
  std::uint64_t bodiesRun;
  std::uint64_t nodesLaidOut;
  std::uint64_t nodesChanged;

  friend bool operator==(const Work&, const Work&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Work& work) {
    return out << work.bodiesRun << " bodies run, " << work.nodesLaidOut << " nodes laid out, " << work.nodesChanged
               << " nodes changed";
  }
};

// With five options and six protocols, like the largest that there are.
class AnalyzerPageWorkTest : public testing::TestWithParam<int> {
protected:
  void SetUp() override {
    foundation::Bundle::setPreferredLanguages({"en"});
    for (int i = 0; i < GetParam(); ++i) plugIns_.load("Analyzer " + std::to_string(i), preferences(i));
    window_ = std::make_unique<headless::Window>(viewkit::View(QEVAnalyzerSettingsView()),
                                                 viewkit::Environment{.defaultStore = *store_},
                                                 headless::WindowOptions{.size = viewkit::Size{760, 520}});
  }

  headless::Window& window() { return *window_; }

  void select(int index) {
    store_->setInteger(index, kSelectedKey);
    window_->settle();
  }

  // What is done afterwards, without what brought the window to where it stands.
  Work workOf(const std::function<void()>& act) {
    window_->settle();
    window_->host().counters() = {};
    act();
    window_->settle();
    const auto& counters = window_->host().counters();
    return {counters.bodiesRun, counters.nodesLaidOut, counters.nodesChanged};
  }

private:
  static std::shared_ptr<AnalyzerPreferences> preferences(int number) {
    const std::string key = "com_velloquin_qev_work" + std::to_string(number) + '_';
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config.emplace();
    for (const char* option : {"one", "two", "three", "four", "five"}) {
      preferences->config->toggles.push_back({.id = option, .defaultsKey = key + option, .labelKey = option});
    }
    preferences->config->ports = {
        .networkProtocolKey = key + "protocols", .defaultProtocolNames = {}, .defaultPorts = {}};
    for (const char* name : {"A", "B", "C", "D", "E", "F"}) {
      preferences->config->ports->defaultProtocolNames.emplace_back(name);
      preferences->config->ports->defaultPorts.push_back(protocol(name, "80", 1));
    }
    return preferences;
  }

  LoadedPlugIns plugIns_;
  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
  std::unique_ptr<headless::Window> window_;
};

TEST_P(AnalyzerPageWorkTest, IsNoMoreThanTheChangeNeeds) {
  const auto toggle = window().findAll(Role::toggle).front();
  const auto field = window().findAll(Role::textField).front();
  const viewkit::Point onOption = toggle.frame().origin - viewkit::Point{60, 0};

  EXPECT_EQ(workOf([&] { window().movePointer(onOption); }), (Work{1, 0, 1})) << "a hover";
  EXPECT_EQ(workOf([&] { window().movePointer({1, 1}); }), (Work{1, 0, 1})) << "the end of a hover";
  window().movePointer(toggle.frame().origin);
  EXPECT_EQ(workOf([&] { window().click(toggle); }), (Work{2, 0, 1})) << "a switch";
  window().click(field);
  EXPECT_EQ(workOf([&] { window().type("8"); }), (Work{4, 1, 1})) << "a key typed: the cells of its row";
  EXPECT_EQ(workOf([&] { select(3); }), (Work{62, 197, 152})) << "a selection";
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

TEST_P(AnalyzerPageWorkTest, SelectionsAllocateLittleAndLeaveNothing) {
  constexpr int kFew = 10;
  constexpr int kMany = 1000;
  for (int i = 0; i < 2 * kFew; ++i) select(i % kFew);
  const AllocationCount before = AllocationCount::now();
  for (int i = 0; i < kMany; ++i) select(i % kFew);
  const AllocationCount after = AllocationCount::now();
  EXPECT_LT((after.allocated - before.allocated) / kMany, kSelectionLimit);
  EXPECT_LT(after.alive, before.alive + kLeftoverLimit);
}

#endif

INSTANTIATE_TEST_SUITE_P(Analyzers, AnalyzerPageWorkTest, testing::Values(10, 10'000),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace QEVSettings
