// SPDX-License-Identifier: MIT
#include "WindowFixture.hpp"

#include "appkit/Application.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Modifiers.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <QImage>

#include <string>
#include <utility>
#include <vector>

namespace qt {
namespace {

using appkit::Appearance;
using viewkit::Binding;
using viewkit::Color;
using viewkit::View;

using AppearanceTest = WindowFixture;

View controls() {
  const auto items = [] { return std::vector<viewkit::MenuItem>{}; };
  return viewkit::VStack(
      {}, {viewkit::Button("button", [] {}), viewkit::Toggle(Binding<bool>::constant(true)),
           viewkit::PopUpMenu("menu", items),
           viewkit::TextField({.placeholder = "field"}, Binding<std::string>::constant("text")),
           viewkit::TextField({.placeholder = "field"}, Binding<std::string>::constant(""))});
}

View page() {
  return viewkit::VStack(
      {}, {viewkit::Text("primary"), viewkit::Text("secondary").foreground(Color::secondary()),
           viewkit::Text("selectable").foreground(Color::secondary()).selectable(),
           View(viewkit::Image::symbol("clock")).foreground(Color::accent()),
           View(viewkit::RoundedRectangle().fill(Color::windowBackground()))
               .frame(viewkit::FixedFrame{.width = 40, .height = 20}),
           controls(), controls().disabled(true)});
}

TEST_F(AppearanceTest, WindowAfterFortySwitchesLooksLikeNewOne) {
  auto& application = appkit::Application::sharedApplication();
  const auto picture = [this] { return topLevel().grab().toImage(); };
  for (const auto& [first, last] : {std::pair{Appearance::light, Appearance::dark},
                                    std::pair{Appearance::dark, Appearance::light}}) {
    application.setAppearance(first);
    open(page());
    for (int i = 0; i < 40; ++i) {
      application.setAppearance(i % 2 == 0 ? last : first);
      settle();
    }
    application.setAppearance(last);
    settle();
    const QImage switched = picture();
    destroyWindow();
    open(page());
    EXPECT_EQ(switched, picture());
    destroyWindow();
  }
}

}  // namespace
}  // namespace qt
