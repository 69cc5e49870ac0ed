#include "Support.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/ObservableObject.hpp"
#include "support/TemporaryFolder.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/StoredPreference.hpp"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Row {
  std::string title;
  State<bool> hovering = false;

  View body() const {
    return HStack({}, {Text(title), Spacer()})
        .padding(4)
        .background(RoundedRectangle(4).fill(hovering ? Color::accent() : Color::clear()))
        .onHover([self = *this](bool inside) { self.hovering.set(inside); });
  }
};

struct Rows {
  int count;
  View body() const {
    std::vector<int> numbers;
    for (int i = 0; i < count; ++i) numbers.push_back(i);
    return VStack({.spacing = 0}, {forEach(
                                      numbers, [](int i) { return i; },
                                      [](int i) { return Row{"row " + std::to_string(i)}; })});
  }
};

// The work of what happens between making one and asking it.
class Work {
public:
  explicit Work(headless::Window& window) : window_(window) {
    window.host().counters() = {};
    window.host().setObserver([this](const PresentationChanges& changes) {
      damage_.insert(damage_.end(), changes.damage.begin(), changes.damage.end());
    });
  }
  ~Work() { window_.host().setObserver({}); }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

  std::vector<std::uint64_t> done() const {
    const PassCounters& counters = window_.host().counters();
    return {counters.bodiesRun, counters.nodesLaidOut, counters.nodesChanged};
  }
  const std::vector<Rect>& damage() const { return damage_; }

private:
  headless::Window& window_;
  std::vector<Rect> damage_;
};

TEST(Invalidation, HoveringARowRunsItsBodyAndPaintsItAlone) {
  for (const int count : {10, 1000}) {
    headless::Window window = testing::open(Rows{count}, {200, 60000});
    const Rect row{{0, 46}, {200, 23}};
    window.movePointer({10, row.origin.y + 5});
    {
      const Work leaving(window);
      window.movePointer({300, 5});
      EXPECT_THAT(leaving.done(), ElementsAre(1, 0, 1));
    }
    const Work entering(window);
    window.movePointer({10, row.origin.y + 5});
    EXPECT_THAT(entering.done(), ElementsAre(1, 0, 1));
    EXPECT_THAT(entering.damage(), ElementsAre(row));
  }
}

TEST(Invalidation, GoingFromRowToRowRunsTwoBodies) {
  headless::Window window = testing::open(Rows{10}, {200, 300});
  window.movePointer({10, 5});
  const Work work(window);
  window.movePointer({10, 30});
  EXPECT_THAT(work.done(), ElementsAre(2, 0, 2));
}

struct Preferences {
  struct Shown {
    std::string key;
    StoredPreference<bool> value;
    explicit Shown(const std::string& key) : key(key), value(key, false) {}
    View body() const {
      return HStack({}, {Text(key + (value ? " on" : " off")),
                         Toggle(value.binding()).accessibilityLabel(key)});
    }
  };

  View body() const {
    return VStack({}, {Shown("one"), Shown("one"), Shown("two"), Shown("three")});
  }
};

TEST(Invalidation, ASwitchRunsTheBodiesThatReadItsKey) {
  testing::store().setBool(false, "one");
  testing::store().setBool(false, "two");
  headless::Window window = testing::open(Preferences{});
  const Work work(window);
  window.click(window.find(Role::toggle, "two"));
  EXPECT_EQ(work.done()[0], 1U);
  EXPECT_TRUE(testing::store().boolForKey("two"));
  testing::store().setBool(true, "one");
  window.settle();
  EXPECT_EQ(work.done()[0], 3U);
  EXPECT_TRUE(window.findText("two on").exists());
}

// Two views that differ in nothing but the key that they are bound to.
struct OneOfTwoKeys {
  struct Bound {
    StoredPreference<bool> value;
    explicit Bound(const std::string& key) : value(key, false) {}
    View body() const {
      return HStack(
          {}, {Text(value ? "on" : "off"), Toggle(value.binding()).accessibilityLabel("value")});
    }
    friend bool operator==(const Bound&, const Bound&) = default;
  };

  State<bool> isSecond = false;
  View body() const {
    return VStack({}, {Toggle(isSecond.binding()).accessibilityLabel("second"),
                       Bound(isSecond ? "two" : "one")});
  }
};

TEST(Invalidation, AViewOfAnotherKeyShowsAndWritesThatKey) {
  testing::store().setBool(false, "one");
  testing::store().setBool(true, "two");
  headless::Window window = testing::open(OneOfTwoKeys{});
  EXPECT_TRUE(window.findText("off").exists());
  window.click(window.find(Role::toggle, "second"));
  EXPECT_TRUE(window.findText("on").exists());
  testing::store().setBool(true, "one");
  window.settle();
  window.click(window.find(Role::toggle, "value"));
  EXPECT_FALSE(testing::store().boolForKey("two"));
  EXPECT_TRUE(testing::store().boolForKey("one"));
  EXPECT_TRUE(window.findText("off").exists());
}

TEST(Invalidation, AWriteByAnotherOwnerOfTheFileRunsTheBodiesThatReadItsKey) {
  const support::TemporaryFolder folder;
  const auto ours = foundation::UserDefaults::open(folder.path() / "preferences.sqlite");
  const auto theirs = foundation::UserDefaults::open(folder.path() / "preferences.sqlite");
  headless::Window window(View(Preferences{}), Environment{.defaultStore = *ours});
  ASSERT_TRUE(window.findText("two off").exists());
  theirs->setBool(true, "two");
  while (!window.findText("two on").exists()) {
    ASSERT_TRUE(foundation::MainQueue::mainQueue().wait(std::chrono::seconds(20)));
    window.settle();
  }
}

TEST(Invalidation, AWriteOfTheSameValueDoesNothing) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window =
      testing::open(testing::Flagged{[](bool flag) { return Text(flag ? "on" : "off"); }, control});
  const Work work(window);
  control->set(false);
  window.settle();
  EXPECT_THAT(work.done(), ElementsAre(0, 0, 0));
  EXPECT_THAT(work.damage(), IsEmpty());
}

TEST(Invalidation, ATextOfTheSameSizeIsPaintedAndNothingElseIsLaidOut) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(VStack(
      {}, {Text("before"),
           testing::Flagged{[](bool flag) { return Text(flag ? "ab" : "ba").padding(3); }, control},
           Text("after")}));
  const Work work(window);
  control->set(true);
  window.settle();
  // The text is measured, to know that its size stayed.
  EXPECT_THAT(work.done(), ElementsAre(1, 1, 1));
}

class Model : public foundation::ObservableObject {
public:
  foundation::Published<int> number{*this, 1};
  foundation::Published<int> other{*this, 1};
};

struct Watching {
  ObservedObject<Model> model;
  View body() const { return Text("number " + std::to_string(model->number)); }
};

struct Owning {
  StateObject<Model> model{[] { return std::make_shared<Model>(); }};
  View body() const {
    return VStack({}, {Watching{model.get()}, Button("more", [self = *this] {
                         self.model->number = self.model->number + 1;
                       })});
  }
};

TEST(Invalidation, ModelsAreSeenAfterTheyChanged) {
  headless::Window window = testing::open(Owning{});
  window.click(window.find(Role::button, "more"));
  window.click(window.find(Role::button, "more"));
  EXPECT_TRUE(window.findText("number 3").exists());
}

TEST(Invalidation, AnotherModelIsWatchedInsteadOfTheFirst) {
  const auto first = std::make_shared<Model>();
  const auto second = std::make_shared<Model>();
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(testing::Flagged{
      [&](bool other) -> View { return Watching{other ? second : first}; }, control});
  control->set(true);
  window.settle();
  const Work work(window);
  first->number = 7;
  window.settle();
  EXPECT_EQ(work.done()[0], 0U);
  second->number = 8;
  window.settle();
  EXPECT_TRUE(window.findText("number 8").exists());
}

TEST(Invalidation, OnChangeIsToldOfDifferencesOnly) {
  std::vector<int> told;
  const auto model = std::make_shared<Model>();
  struct Telling {
    ObservedObject<Model> model;
    std::vector<int>* told;
    View body() const {
      return Text(std::to_string(model->other))
          .onChange<int>(model->number, [told = told](const int& n) { told->push_back(n); });
    }
  };
  headless::Window window = testing::open(Telling{model, &told});
  EXPECT_THAT(told, IsEmpty());
  model->other = 5;
  window.settle();
  model->number = 2;
  model->number = 3;
  window.settle();
  EXPECT_THAT(told, ElementsAre(3));
}

TEST(Invalidation, AnswersToAChangeAreShownInTheSameUpdate) {
  struct Echo {
    State<int> source = 0;
    State<int> echo = 0;
    View body() const {
      return VStack({}, {Button("go", [self = *this] { self.source.set(4); }),
                         Text("echo " + std::to_string(echo))})
          .onChange<int>(source, [self = *this](const int& value) { self.echo.set(value); });
    }
  };
  headless::Window window = testing::open(Echo{});
  int updates = 0;
  window.host().setObserver([&](const PresentationChanges&) { ++updates; });
  window.click(window.find(Role::button, "go"));
  EXPECT_TRUE(window.findText("echo 4").exists());
  EXPECT_EQ(updates, 1);
  window.host().setObserver({});
}

TEST(Invalidation, DamageCoversWhatWasAndWhatIs) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(testing::Flagged{
      [](bool moved) {
        return RoundedRectangle()
            .fill(Color::accent())
            .frame({.width = 10, .height = 10})
            .padding(Edges::leading, moved ? 100 : 20)
            .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::topLeading()});
      },
      control});
  const Work work(window);
  control->set(true);
  window.settle();
  EXPECT_THAT(work.damage(), ElementsAre(Rect{{20, 0}, {10, 10}}, Rect{{100, 0}, {10, 10}}));
}

}  // namespace
}  // namespace viewkit
