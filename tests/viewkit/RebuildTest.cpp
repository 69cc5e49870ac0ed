// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "Work.hpp"
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
#include <numeric>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Work;

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
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return VStack({.spacing = 0}, {forEach(
                                      numbers, [](int i) { return i; },
                                      [](int i) { return Row{"row " + std::to_string(i)}; })});
  }
};

TEST(Rebuild, HoverRunsTheBodyOfOneRowAndPaintsThatRow) {
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

TEST(Rebuild, HoverFromRowToRowRunsTwoBodies) {
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

TEST(Rebuild, StoredChangeRunsTheBodiesThatReadItsKey) {
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

TEST(Rebuild, ViewWithAnotherKeyShowsAndWritesThatKey) {
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

TEST(Rebuild, WriteThroughAnotherStoreObjectRunsTheBodiesThatReadItsKey) {
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

TEST(Rebuild, WriteOfTheSameValueDoesNoWork) {
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window =
      testing::open(testing::Flagged{[](bool flag) { return Text(flag ? "on" : "off"); }, control});
  const Work work(window);
  control->set(false);
  window.settle();
  EXPECT_THAT(work.done(), ElementsAre(0, 0, 0));
  EXPECT_THAT(work.damage(), IsEmpty());
}

TEST(Rebuild, TextOfTheSameSizeIsMeasuredAndPaintedAlone) {
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

TEST(Rebuild, ChangeOfAModelIsShown) {
  headless::Window window = testing::open(Owning{});
  window.click(window.find(Role::button, "more"));
  window.click(window.find(Role::button, "more"));
  EXPECT_TRUE(window.findText("number 3").exists());
}

TEST(Rebuild, ViewWithAnotherModelNoLongerObservesTheFirst) {
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

struct WritingBody {
  State<int> count = 0;
  View body() const {
    if (count < 3) count.set(count + 1);
    return Text("count " + std::to_string(count));
  }
};

TEST(Rebuild, WriteInABodyIsReportedAndShownByTheNextUpdate) {
  ::testing::internal::CaptureStderr();
  headless::Window window = testing::open(WritingBody{});
  window.settle();
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              HasSubstr("the body of WritingBody writes"));
  EXPECT_TRUE(window.findText("count 3").exists());
}

}  // namespace
}  // namespace viewkit
