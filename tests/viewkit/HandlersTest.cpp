// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/ObservableObject.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/Stacks.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace viewkit {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Model : public foundation::ObservableObject {
public:
  foundation::Published<int> number{*this, 1};
  foundation::Published<int> other{*this, 1};
};

TEST(Handlers, OnChangeIsCalledOncePerUpdateThatChangesTheValue) {
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

TEST(Handlers, WriteInAChangeHandlerIsShownInTheSameUpdate) {
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

struct Chasing {
  State<int> count = 0;
  View body() const {
    return Button("go " + std::to_string(count > 0), [self = *this] { self.count.set(1); })
        .onChange<int>(count, [self = *this](const int& value) { self.count.set(value + 1); });
  }
};

TEST(Handlers, ChangeHandlersThatCauseEachOtherWithoutEndAreStopped) {
  headless::Window window = testing::open(Chasing{});
  ::testing::internal::CaptureStderr();
  window.click(window.find(Role::button));
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              HasSubstr("go on changing what they are called for"));
  EXPECT_FALSE(foundation::MainQueue::mainQueue().drain());
  EXPECT_EQ(window.find(Role::button).label(), "go 1");
}

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

TEST(Handlers, HandlerMayRemoveItsOwnControl) {
  headless::Window* reached = nullptr;
  headless::Window window = testing::open(Vanishing{.also = [&] { reached->host().update(); }});
  reached = &window;
  window.click(window.find(Role::button));
  EXPECT_TRUE(window.findText("gone").exists());
}

TEST(Handlers, HandlerMayRemoveTheClickedRegion) {
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

TEST(Handlers, HandlerMayDestroyTheHost) {
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

TEST(Handlers, ChangeHandlersAreNotCalledAfterTheHostIsDestroyed) {
  const headless::Metrics metrics;
  const auto control = std::make_shared<testing::Switch>();
  std::unique_ptr<ViewHost> host;
  int calls = 0;
  const View root = testing::Flagged{
      [&](bool flag) {
        return VStack({}, {Text("a").onChange<bool>(flag, [&](bool) { host.reset(); }),
                           Text("b").onChange<bool>(flag, [&](bool) { ++calls; })});
      },
      control};
  host = std::make_unique<ViewHost>(root, Environment{.defaultStore = testing::store()}, metrics);
  host->update();
  control->set(true);
  foundation::MainQueue::mainQueue().drainAll();
  EXPECT_EQ(host, nullptr);
  EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace viewkit
