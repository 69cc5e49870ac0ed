#include "Support.hpp"
#include "foundation/MainQueue.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// What a view's author gets wrong must neither crash nor hang, and is said.

struct Chasing {
  State<int> count = 0;
  View body() const {
    return Button("go " + std::to_string(count > 0), [self = *this] { self.count.set(1); })
        .onChange<int>(count, [self = *this](const int& value) { self.count.set(value + 1); });
  }
};

TEST(Mistakes, HandlersThatChangeWhatTheyAreToldOfAreStopped) {
  headless::Window window = testing::open(Chasing{});
  ::testing::internal::CaptureStderr();
  window.click(window.find(Role::button));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              HasSubstr("go on changing what they are called for"));
  EXPECT_FALSE(foundation::MainQueue::mainQueue().drain());
  EXPECT_EQ(window.find(Role::button).label(), "go 1");
}

struct WritingBody {
  State<int> count = 0;
  View body() const {
    if (count < 3) count.set(count + 1);
    return Text("count " + std::to_string(count));
  }
};

TEST(Mistakes, AWriteInABodyIsSeenLaterAndReported) {
  ::testing::internal::CaptureStderr();
  headless::Window window = testing::open(WritingBody{});
  window.settle();
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              HasSubstr("the body of WritingBody writes"));
  EXPECT_TRUE(window.findText("count 3").exists());
}

TEST(Mistakes, TwoWithOneIdAreToldApartByPosition) {
  ::testing::internal::CaptureStderr();
  const std::vector<int> twins{1, 1, 2};
  headless::Window window =
      testing::open(VStack({}, {forEach(
                                   twins, [](int i) { return i; },
                                   [](int i) { return Text("row " + std::to_string(i)); })}));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("have the id 1"));
  EXPECT_EQ(window.findAll(Role::text).size(), 3U);
}

#ifndef NDEBUG
TEST(MistakesDeathTest, StateOutsideOfAViewStops) {
  const State<int> loose = 0;
  EXPECT_DEATH(static_cast<void>(loose.get()), "State is used outside of the view");
}
#endif

// What a handler may do to the tree that it was called from.

struct Vanishing {
  State<bool> there = true;
  std::function<void()> also = {};
  View body() const {
    return there ? PlainButton(Text("go away"),
                               [self = *this] {
                                 self.there.set(false);
                                 if (self.also) self.also();
                                 self.there.set(false);
                               })
                 : View(Text("gone"));
  }
};

TEST(Handlers, MayTakeAwayTheirOwnControl) {
  headless::Window* reached = nullptr;
  headless::Window window = testing::open(Vanishing{.also = [&] { reached->host().update(); }});
  reached = &window;
  window.click(window.find(Role::button));
  EXPECT_TRUE(window.findText("gone").exists());
}

TEST(Handlers, MayTakeAwayTheRegionThatWasClicked) {
  headless::Window* reached = nullptr;
  struct Region {
    State<bool> there = true;
    std::function<void()> update;
    View body() const {
      return there ? Text("region").onTap([self = *this] {
        self.there.set(false);
        self.update();
        self.update();
      })
                   : View(Text("gone"));
    }
  };
  headless::Window window = testing::open(Region{.update = [&] { reached->host().update(); }});
  reached = &window;
  EXPECT_TRUE(window.click(window.findText("region")));
  EXPECT_TRUE(window.findText("gone").exists());
}

TEST(Handlers, MayEndTheHost) {
  const headless::Metrics metrics;
  std::vector<std::string> log;
  std::unique_ptr<ViewHost> host;
  const View root = VStack(
      {}, {Text("a").onAppear([&] { host.reset(); }).onDisappear([&] { log.emplace_back("-a"); }),
           Text("b").onAppear([&] { log.emplace_back("+b"); }).onDisappear([&] {
             log.emplace_back("-b");
           })});
  host = std::make_unique<ViewHost>(root, Environment{.defaultStore = testing::store()}, metrics);
  foundation::MainQueue::mainQueue().drainAll();
  EXPECT_EQ(host, nullptr);
  EXPECT_THAT(log, ElementsAre("+b", "-a", "-b"));
}

TEST(Handlers, ThePointerLeavesWhatVanishesUnderIt) {
  std::vector<bool> told;
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(testing::Flagged{
      [&](bool gone) {
        return gone ? View(Text("other"))
                    : Text("hovered").onHover([&](bool inside) { told.push_back(inside); });
      },
      control});
  window.movePointer({5, 5});
  control->set(true);
  window.settle();
  EXPECT_THAT(told, ElementsAre(true, false));
}

TEST(Handlers, ARegionThatFleesThePointerDoesNotHang) {
  struct Fleeing {
    State<bool> away = false;
    View body() const {
      return Text("flee")
          .onHover([self = *this](bool inside) { self.away.set(inside); })
          .padding(Edges::leading, away ? 300 : 0);
    }
  };
  headless::Window window = testing::open(Fleeing{});
  window.movePointer({5, 5});
  EXPECT_FALSE(foundation::MainQueue::mainQueue().drain());
}

}  // namespace
}  // namespace viewkit
