// SPDX-License-Identifier: MIT
#include "headless/Description.hpp"

#include <gtest/gtest.h>

namespace headless {
namespace {

using namespace viewkit;

TEST(HeadlessDescription, TreeIsDescribedAsTextAndAsJSON) {
  const NodeDescription tree{
      .kind = "VStack",
      .accessibility = {},
      .frame = {{0, 0}, {100.5, 40}},
      .children = {{.kind = "Button",
                    .accessibility = {.role = Role::button,
                                      .label = "Say \"hi\"\n\xFF",
                                      .value = "",
                                      .help = "Greets",
                                      .note = "Changed",
                                      .enabled = false,
                                      .selected = true},
                    .frame = {{10, 20}, {80, 20}},
                    .visual = "placeholder \"a\"",
                    .children = {}}},
  };
  EXPECT_EQ(textDescription(tree),
            "VStack (0, 0) 100.5 x 40\n"
            "  Button button \"Say \\\"hi\\\"\\n\xEF\xBF\xBD\" help \"Greets\" note \"Changed\" "
            "selected disabled "
            "(10, 20) 80 x 20 [placeholder \\\"a\\\"]\n");
  EXPECT_EQ(
      jsonDescription(tree),
      R"({"kind":"VStack","role":"none","label":"","value":"","help":"","note":"","enabled":true,)"
      R"("selected":null,"visual":"",)"
      R"("frame":{"x":0,"y":0,"width":100.5,"height":40},"children":[)"
      R"({"kind":"Button","role":"button","label":"Say \"hi\"\n)"
      "\xEF\xBF\xBD"
      R"(","value":"","help":"Greets","note":"Changed","enabled":false,)"
      R"("selected":true,"visual":"placeholder \"a\"",)"
      R"("frame":{"x":10,"y":20,"width":80,"height":20},"children":[]}]})");
}

}  // namespace
}  // namespace headless
