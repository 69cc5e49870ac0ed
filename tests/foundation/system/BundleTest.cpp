// SPDX-License-Identifier: MIT
#include "foundation/Bundle.hpp"
#include "foundation/Files.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {
namespace {

class Bundles : public testing::Test {
protected:
  void SetUp() override {
    write("en.lproj/Localizable.strings", "hello = Hello; only = English;");
    write("de.lproj/Localizable.strings", "hello = Hallo;");
    write("zh-Hans.lproj/Localizable.strings", "hello = nihao;");
    write("pt-BR.lproj/Localizable.strings", "hello = Oi;");
    write("en.lproj/Other.strings", "hello = Other;");
    write("broken.lproj/Localizable.strings", "hello = ");
    write("image.png", "");
    write("de.lproj/page.html", "");
    before = Bundle::preferredLanguages();
  }
  void TearDown() override { Bundle::setPreferredLanguages(before); }
  void write(const std::string& name, std::string_view contents) const {
    std::filesystem::create_directories((folder / name).parent_path());
    ASSERT_TRUE(writeFile(folder / name, contents));
  }

  const support::TemporaryFolder scratch;
  const std::filesystem::path folder = scratch.path() / "Test.bundle";
  std::vector<std::string> before;
};

TEST_F(Bundles, UseTheFirstPreferredLanguageThatTheyHave) {
  const auto bundle = Bundle::open(folder);
  ASSERT_NE(bundle, nullptr);
  struct Case {
    std::vector<std::string> preferred;
    const char* text;
  };
  for (const Case& language :
       {Case{{}, "Hello"}, Case{{"en-GB"}, "Hello"}, Case{{"de"}, "Hallo"},
        Case{{"de-AT", "en"}, "Hallo"}, Case{{"fr", "de"}, "Hallo"}, Case{{"fr"}, "Hello"},
        Case{{"zh-Hans"}, "nihao"}, Case{{"zh-Hans-CN"}, "nihao"}, Case{{"zh-CN"}, "nihao"},
        Case{{"zh"}, "nihao"}, Case{{"zh-Hant"}, "Hello"}, Case{{"zh-TW"}, "Hello"},
        Case{{"pt"}, "Oi"}, Case{{"pt-PT"}, "Hello"}, Case{{"broken"}, "hello"}}) {
    Bundle::setPreferredLanguages(language.preferred);
    EXPECT_EQ(bundle->localizedString("hello"), language.text)
        << testing::PrintToString(language.preferred);
  }
}

TEST_F(Bundles, FallBackToTheValueThenToTheKey) {
  const auto bundle = Bundle::open(folder);
  Bundle::setPreferredLanguages({"de"});
  EXPECT_EQ(bundle->localizedString("only"), "only");
  EXPECT_EQ(bundle->localizedString("only", "value"), "value");
  EXPECT_EQ(bundle->localizedString("hello", "", "Other"), "Other");
  EXPECT_EQ(bundle->localizedString("hello", "", "Absent"), "hello");
}

TEST_F(Bundles, FindResources) {
  const auto bundle = Bundle::open(folder);
  Bundle::setPreferredLanguages({"de"});
  EXPECT_EQ(bundle->pathForResource("image", "png"), folder / "image.png");
  EXPECT_EQ(bundle->pathForResource("image.png"), folder / "image.png");
  EXPECT_EQ(bundle->pathForResource("page", "html"), folder / "de.lproj" / "page.html");
  EXPECT_EQ(bundle->pathForResource("absent"), std::nullopt);
  EXPECT_EQ(bundle->pathForResource(""), std::nullopt);
  EXPECT_EQ(Bundle::open(folder / "absent"), nullptr);
  EXPECT_TRUE(std::filesystem::is_directory(Bundle::mainBundle().resourceFolder()));
}

}  // namespace
}  // namespace foundation
