// SPDX-License-Identifier: MIT
// How much work the Analyzer page makes of what the user does: the same for ten analyzers and for
// ten thousand.

#include "AllocationCount.hpp"
#include "QEVSettings/analyzers/QEVAnalyzerSettingsView.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "TestAnalyzers.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

namespace {

using viewkit::Role;

constexpr std::string_view kSelectedKey = kAnalyzerSelectedIndex.name;
// What may be left of a thousand selections, in bytes.
constexpr std::size_t kLeftoverLimit = 1024;
constexpr int kTimes = 8;

struct Work {
  std::uint64_t bodiesRun;
  std::uint64_t nodesLaidOut;
  std::uint64_t nodesChanged;
  std::uint64_t allocations;

  // The counters of the passes are exact. Allocations depend on the standard library as well, so
  // that they have an upper bound only, a quarter above what they are today.
  bool isWithin(const Work& limit) const {
    return bodiesRun == limit.bodiesRun && nodesLaidOut == limit.nodesLaidOut &&
           nodesChanged == limit.nodesChanged &&
           allocations <= limit.allocations + limit.allocations / 4;
  }
  friend std::ostream& operator<<(std::ostream& out, const Work& work) {
    return out << work.bodiesRun << " bodies run, " << work.nodesLaidOut << " nodes laid out, "
               << work.nodesChanged << " nodes changed, " << work.allocations << " allocations";
  }
};

MATCHER_P(IsWithin, limit, testing::PrintToString(limit)) { return arg.isWithin(limit); }

auto isWork(std::uint64_t bodiesRun, std::uint64_t nodesLaidOut, std::uint64_t nodesChanged,
            std::uint64_t allocations) {
  return IsWithin(Work{bodiesRun, nodesLaidOut, nodesChanged, allocations});
}

// With five options and six protocols, like the largest that there are.
class AnalyzerPageWorkTest : public testing::TestWithParam<int> {
protected:
  void SetUp() override {
    foundation::Bundle::setPreferredLanguages({"en"});
    for (int i = 0; i < GetParam(); ++i)
      plugIns_.load("Analyzer " + std::to_string(i), preferences(i));
    window_ = std::make_unique<headless::Window>(
        viewkit::View(QEVAnalyzerSettingsView()), viewkit::Environment{.defaultStore = *store_},
        headless::WindowOptions{.size = viewkit::Size{760, 520}});
  }

  headless::Window& window() { return *window_; }

  void select(int index) {
    store_->setInteger(index, kSelectedKey);
    window_->settle();
  }

  // What is done afterwards, without what brought the window to where it stands. The least of
  // several times: now and then a list outgrows its memory.
  Work workOf(const std::function<void()>& act, const std::function<void()>& undo) {
    std::vector<Work> works;
    for (int i = 0; i < kTimes; ++i) {
      window_->settle();
      window_->host().counters() = {};
      const std::size_t before = AllocationCount::now().allocations;
      act();
      window_->settle();
      const std::size_t allocations = AllocationCount::now().allocations - before;
      const auto& counters = window_->host().counters();
      works.push_back(
          {counters.bodiesRun, counters.nodesLaidOut, counters.nodesChanged, allocations});
      undo();
    }
    return *std::ranges::min_element(works, {}, &Work::allocations);
  }

private:
  static std::shared_ptr<AnalyzerPreferences> preferences(int number) {
    const std::string key = "com_velloquin_qev_work" + std::to_string(number) + '_';
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config.emplace();
    for (const char* option : {"one", "two", "three", "four", "five"}) {
      preferences->config->toggles.push_back(
          {.id = option, .defaultsKey = key + option, .labelKey = option});
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
  const auto enter = [&] { window().movePointer(onOption); };
  const auto leave = [&] { window().movePointer({1, 1}); };
  EXPECT_THAT(workOf(enter, leave), isWork(1, 0, 1, 28)) << "a hover";
  enter();
  EXPECT_THAT(workOf(leave, enter), isWork(1, 0, 1, 24)) << "the end of a hover";

  const auto flip = [&] { window().click(toggle); };
  window().movePointer(toggle.frame().origin);
  EXPECT_THAT(workOf(flip, flip), isWork(2, 0, 1, 58)) << "a switch";
  window().click(field);
  EXPECT_THAT(workOf([&] { window().type("8"); }, [] {}), isWork(4, 1, 1, 87))
      << "a key typed: the cells of its row";
  int selected = 0;
  const auto next = [&] { select(selected = 1 - selected); };
  EXPECT_THAT(workOf(next, [] {}), isWork(62, 197, 140, 2980)) << "a selection";
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)

TEST_P(AnalyzerPageWorkTest, SelectionsLeaveNothingBehind) {
  constexpr int kFew = 10;
  for (int i = 0; i < 2 * kFew; ++i) select(i % kFew);
  const AllocationCount before = AllocationCount::now();
  for (int i = 0; i < 1000; ++i) select(i % kFew);
  EXPECT_LT(AllocationCount::now().alive, before.alive + kLeftoverLimit);
}

#endif

INSTANTIATE_TEST_SUITE_P(Analyzers, AnalyzerPageWorkTest, testing::Values(10, 10'000),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace QEVSettings
