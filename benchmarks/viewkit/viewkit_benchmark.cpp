// SPDX-License-Identifier: MIT
// Measures the update after one event: its time, the bodies run, the nodes laid out, the nodes
// changed and the bytes allocated.

#include "AllocationCount.hpp"
#include "foundation/UserDefaults.hpp"
#include "headless/Metrics.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/LazyVStack.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/Text.hpp"
#include "viewkit/ViewHost.hpp"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace viewkit;

// A store that takes almost no time, so that only the toolkit is measured.
foundation::UserDefaults& store() {
  static const std::unique_ptr<foundation::UserDefaults> store =
      foundation::UserDefaults::inMemory();
  return *store;
}

struct OptionRow {
  std::string title;
  StoredPreference<bool> value;
  State<bool> hovering = false;

  OptionRow(std::string title, const std::string& key)
      : title(std::move(title)), value(key, false) {}

  View body() const {
    return HStack(
               {.spacing = 8},
               {Image::symbol("clock").resizable().scaledToFit().frame({.width = 16, .height = 16}),
                Text(title), Spacer(), Toggle(value.binding()).accessibilityLabel(title)})
        .padding(4)
        .background(RoundedRectangle(4).fill(hovering ? Color::primary().withOpacity(0.06)
                                                      : Color::clear()))
        .onHover([self = *this](bool inside) { self.hovering.set(inside); });
  }
};

struct PortsField {
  State<std::string> ports = std::string("80, 443");

  View body() const { return TextField({.placeholder = "Ports", .lineLimit = 4}, ports.binding()); }
};

struct ListRow {
  std::int64_t index;
  StoredPreference<std::int64_t> selection{"benchmark_selection", 0};

  View body() const {
    return Text("Analyzer " + std::to_string(index))
        .padding(6)
        .background(selection == index ? Color::accent() : Color::clear())
        .clipped(4);
  }
};

struct Detail {
  StoredPreference<std::int64_t> selection{"benchmark_selection", 0};

  View body() const {
    const std::string id = std::to_string(selection.get());
    return ScrollView({},
                      VStack({.alignment = HorizontalAlignment::leading},
                             {Text("Analyzer " + id).font(Font::title3()),
                              Text("What it does · who wrote it · 1.0"),
                              OptionRow("Checksums", "one_" + id), OptionRow("Names", "two_" + id),
                              OptionRow("Times", "three_" + id), PortsField{}}))
        .id(selection.get());
  }
};

// A long list, and the options of the selected entry beside it.
struct Page {
  std::size_t count;

  View body() const {
    const auto row = [](std::size_t i) -> View {
      return ListRow{.index = static_cast<std::int64_t>(i)};
    };
    return HStack({.alignment = VerticalAlignment::top},
                  {ScrollView({}, LazyVStack({.spacing = 2}, {.count = count, .row = row}))
                       .frame({.width = 150}),
                   Detail{}});
  }
};

struct Item {
  int index;
  std::function<void(const Item&)> made;
  State<int> value = 0;

  View body() const {
    made(*this);
    return HStack({}, {Text("Item"), Text(std::to_string(value.get() % 10))}).padding(1);
  }
};

// A thousand texts, of which one can change.
struct LargePage {
  std::function<void(int)>* change;

  View body() const {
    std::vector<int> rows(500);
    for (int i = 0; i < 500; ++i) rows[static_cast<std::size_t>(i)] = i;
    return VStack({.spacing = 0}, {forEach(
                                      rows, [](int i) { return i; },
                                      [change = change](int i) {
                                        return Item{i, [change](const Item& item) {
                                                      if (item.index == 250) {
                                                        *change = [item](int value) {
                                                          item.value.set(value);
                                                        };
                                                      }
                                                    }};
                                      })});
  }
};

class Opened {
public:
  explicit Opened(const View& root, Size size = {720, 520})
      : host_(root, {.defaultStore = store()}, metrics_) {
    host_.setObserver([](const PresentationChanges& changes) {
      benchmark::DoNotOptimize(changes.damage.data());
    });
    host_.setSize(size);
    host_.update();
    host_.finishAnimations();
  }

  ViewHost& host() { return host_; }

  // All descendants of a node that have this role, in order.
  std::vector<const PresentationNode*> all(Role role) const {
    std::vector<const PresentationNode*> found;
    collect(host_.presentation(), role, found);
    return found;
  }

private:
  static void collect(const PresentationNode& node, Role role,
                      std::vector<const PresentationNode*>& into) {
    if (node.accessibility.role == role) into.push_back(&node);
    for (const PresentationNode* child : node.children) collect(*child, role, into);
  }

  headless::Metrics metrics_;
  ViewHost host_;
};

// Repeats the event, each time with another number, and counts the work of one event.
void measure(benchmark::State& state, Opened& opened, const std::function<void(int)>& event) {
  for (int i = 0; i < 4; ++i) {
    event(i);
    opened.host().update();
  }
  opened.host().counters() = {};
  allocatedBytes = 0;
  int count = 0;
  for ([[maybe_unused]] auto step : state) {
    event(count++);
    opened.host().update();
  }
  const auto average = [](auto total) {
    return benchmark::Counter(static_cast<double>(total), benchmark::Counter::kAvgIterations);
  };
  const PassCounters counters = opened.host().counters();
  state.counters["bodies"] = average(counters.bodiesRun);
  state.counters["laid out"] = average(counters.nodesLaidOut);
  state.counters["changed"] = average(counters.nodesChanged);
  state.counters["bytes"] = average(allocatedBytes);
}

void open(benchmark::State& state) {
  const auto rows = static_cast<std::size_t>(state.range(0));
  allocatedBytes = 0;
  for ([[maybe_unused]] auto step : state) {
    Opened opened(Page{rows});
    benchmark::DoNotOptimize(opened.host().presentation().children.data());
  }
  state.counters["bytes"] =
      benchmark::Counter(static_cast<double>(allocatedBytes), benchmark::Counter::kAvgIterations);
}
BENCHMARK(open)->Arg(10)->Arg(10000)->Unit(benchmark::kMicrosecond);

void hover(benchmark::State& state) {
  Opened opened(Page{static_cast<std::size_t>(state.range(0))});
  const Rect toggle = opened.all(Role::toggle).front()->frameInWindow();
  measure(state, opened, [&](int i) {
    opened.host().pointerMoved(i % 2 == 0 ? toggle.origin : Point{1, 519});
  });
}
BENCHMARK(hover)->Arg(10)->Arg(10000)->Unit(benchmark::kMicrosecond);

void toggle(benchmark::State& state) {
  Opened opened(Page{static_cast<std::size_t>(state.range(0))});
  const PresentationNode* node = opened.all(Role::toggle).front();
  measure(state, opened, [&](int i) { std::get<ToggleControl>(*node->control()).set(i % 2 == 0); });
}
BENCHMARK(toggle)->Arg(10)->Arg(10000)->Unit(benchmark::kMicrosecond);

void typedKey(benchmark::State& state) {
  Opened opened(Page{static_cast<std::size_t>(state.range(0))});
  const PresentationNode* node = opened.all(Role::textField).front();
  measure(state, opened, [&](int i) {
    const auto change = std::get<TextFieldControl>(*node->control()).change;
    change(i % 2 == 0 ? "80, 443, 8" : "80, 443, 80");
  });
}
BENCHMARK(typedKey)->Arg(10)->Arg(10000)->Unit(benchmark::kMicrosecond);

void selection(benchmark::State& state) {
  Opened opened(Page{static_cast<std::size_t>(state.range(0))});
  measure(state, opened, [](int i) { store().setInteger(i % 8, "benchmark_selection"); });
}
BENCHMARK(selection)->Arg(10)->Arg(10000)->Unit(benchmark::kMicrosecond);

void scrollStep(benchmark::State& state) {
  Opened opened(Page{static_cast<std::size_t>(state.range(0))});
  const PresentationNode* node = opened.all(Role::scrollArea).front();
  measure(state, opened, [&](int i) {
    const auto scroll = std::get<ScrollControl>(*node->control()).scroll;
    scroll({0, static_cast<double>(i % 400) * 30});
  });
}
BENCHMARK(scrollStep)->Arg(100)->Arg(10000)->Unit(benchmark::kMicrosecond);

void resizeStep(benchmark::State& state) {
  Opened opened(Page{static_cast<std::size_t>(state.range(0))});
  measure(state, opened, [&](int i) { opened.host().setSize({700.0 + i % 100, 520}); });
}
BENCHMARK(resizeStep)->Arg(10)->Arg(10000)->Unit(benchmark::kMicrosecond);

void oneChangeInAThousandNodes(benchmark::State& state) {
  std::function<void(int)> change;
  Opened opened(LargePage{&change}, {400, 10000});
  measure(state, opened, [&](int i) { change(i); });
}
BENCHMARK(oneChangeInAThousandNodes)->Unit(benchmark::kMicrosecond);

}  // namespace
