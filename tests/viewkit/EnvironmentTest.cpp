// SPDX-License-Identifier: MIT
#include "Support.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/EnvironmentObject.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>

namespace viewkit {
namespace {

struct Name {
  std::string text;
};
struct Other {};

struct Greeting {
  View body() const {
    const auto name = Environment::current().object<Name>();
    return Text(name ? "Hello, " + name->text : "nobody");
  }
};

std::shared_ptr<Name> named(std::string text) {
  return std::make_shared<Name>(Name{std::move(text)});
}

TEST(EnvironmentObjects, ObjectOfTheWindowIsFoundByItsType) {
  const headless::Window window(
      Greeting{},
      {.defaultStore = testing::store(),
       .objects = EnvironmentObjects().with(named("window")).with(std::make_shared<Other>())});
  EXPECT_TRUE(window.findText("Hello, window").exists());
}

TEST(EnvironmentObjects, NearestObjectOfATypeIsFound) {
  const headless::Window window = testing::open(VStack(
      {}, {Greeting{}, environmentObject(
                           VStack({}, {Greeting{}, environmentObject(Greeting{}, named("inner"))}),
                           named("outer"))}));
  EXPECT_TRUE(window.findText("nobody").exists());
  EXPECT_TRUE(window.findText("Hello, outer").exists());
  EXPECT_TRUE(window.findText("Hello, inner").exists());
}

TEST(EnvironmentObjects, BodyRunsAgainWithAnotherObject) {
  const auto first = named("first");
  const auto second = named("second");
  const auto control = std::make_shared<testing::Switch>();
  headless::Window window = testing::open(testing::Flagged{
      [&](bool other) { return environmentObject(Greeting{}, other ? second : first); }, control});
  control->set(true);
  window.settle();
  EXPECT_TRUE(window.findText("Hello, second").exists());
}

TEST(EnvironmentObjects, AreEqualWithTheSameObjects) {
  const auto name = named("same");
  EXPECT_EQ(EnvironmentObjects().with(name), EnvironmentObjects().with(name));
  EXPECT_NE(EnvironmentObjects().with(name), EnvironmentObjects().with(named("same")));
  EXPECT_NE(EnvironmentObjects().with(name), EnvironmentObjects());
  EXPECT_EQ(EnvironmentObjects().with(name).with(std::shared_ptr<Name>()).find<Name>(), nullptr);
}

}  // namespace
}  // namespace viewkit
