// SPDX-License-Identifier: MIT
#include "UpdaterFixture.hpp"
#include "foundation/Base64.hpp"
#include "foundation/Files.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sodium.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace sparkle {
namespace {

using namespace std::chrono_literals;
using foundation::Error;
using foundation::Result;

// The keys of a publisher of updates.
class Publisher {
public:
  Publisher() {
    EXPECT_GE(sodium_init(), 0);
    crypto_sign_keypair(publicKey_.data(), secretKey_.data());
  }
  std::string publicKey() const { return foundation::base64Encoded(publicKey_); }
  std::string signature(const std::string& contents) const {
    std::array<unsigned char, crypto_sign_BYTES> signature{};
    crypto_sign_detached(signature.data(), nullptr,
                         reinterpret_cast<const unsigned char*>(contents.data()), contents.size(),
                         secretKey_.data());
    return foundation::base64Encoded(signature);
  }

private:
  std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> publicKey_{};
  std::array<unsigned char, crypto_sign_SECRETKEYBYTES> secretKey_{};
};

class PackageTest : public UpdaterTest {
protected:
  PackageTest() {
    configuration.downloadFolder = folder;
    configuration.publicKey = publisher.publicKey();
  }

  // Runs a scheduled check that downloads updates. Returns the number of requests: 2 when the
  // package was fetched.
  std::size_t check(const std::string& feed, const Result<std::string>& contents) {
    now += 24h;
    transport->requests.clear();
    driver->package.reset();
    const auto controller = start();
    controller->updater().setAutomaticallyDownloadsUpdates(true);
    controller->updater().setAutomaticallyChecksForUpdates(true);
    timer->fire();
    transport->answer(feed);
    if (transport->requests.size() > 1) transport->answer(contents);
    return transport->requests.size();
  }

  bool isAnythingKept() const {
    return std::filesystem::exists(folder) && !std::filesystem::is_empty(folder);
  }

  const support::TemporaryFolder scratch;
  const std::filesystem::path folder = scratch.path() / "packages";
  const Publisher publisher;
};

TEST_F(PackageTest, SignedPackageIsKeptReadableByUserAlone) {
  const auto path = folder / "zorvantine_202.0.deb";
  const OfferedPackage offered{.signature = publisher.signature("package")};
  for (const bool isReplacing : {false, true}) {
    if (isReplacing) {
      std::filesystem::permissions(path, std::filesystem::perms::others_read,
                                   std::filesystem::perm_options::add);
    }
    EXPECT_EQ(check(feedWith("2.0", offered), std::string("package")), 2U);
    EXPECT_EQ(transport->requests.back().address, "https://mirror/pool/zorvantine%202.0.deb");
    EXPECT_EQ(driver->shown.back(), "found 2.0");
    EXPECT_EQ(driver->problem, "");
    EXPECT_EQ(driver->package, path);
    EXPECT_EQ(*foundation::readFile(path), "package");
    struct stat found {};
    ASSERT_EQ(::stat(path.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777U, 0600U);
  }
}

TEST_F(PackageTest, PackageThatCannotBeVerifiedIsNotFetched) {
  const std::string valid = publisher.signature("package");
  const std::vector<std::pair<OfferedPackage, std::string>> packagesAndProblems = {
      {{.signature = ""}, "the update feed has no signature for it"},
      {{.length = "0", .signature = valid}, "the update feed does not say how long it is"},
      {{.length = "99999999", .signature = valid}, "it is longer than 64 MiB"},
      {{.address = "", .signature = valid}, ""},
  };
  for (const auto& [package, problem] : packagesAndProblems) {
    EXPECT_EQ(check(feedWith("2.0", package), std::string("package")), 1U);
    EXPECT_EQ(driver->shown.back(), "found 2.0");
    EXPECT_EQ(driver->problem, problem);
  }
  configuration.publicKey.clear();
  EXPECT_EQ(check(feedWith("2.0", {.signature = valid}), std::string("package")), 1U);
  EXPECT_EQ(driver->problem, "the application has no key to check its signature with");
  EXPECT_FALSE(isAnythingKept());
}

TEST_F(PackageTest, PackageWithoutValidSignatureIsNotKept) {
  const std::string valid = publisher.signature("package");
  const std::vector<std::pair<std::string, std::string>> signaturesAndContents = {
      {valid, "Package"},
      {publisher.signature("Package"), "package"},
      {Publisher().signature("package"), "package"},
      {valid.substr(4), "package"},
      {"no base64", "package"},
  };
  for (const auto& [signature, contents] : signaturesAndContents) {
    EXPECT_EQ(check(feedWith("2.0", {.signature = signature}), contents), 2U);
    EXPECT_EQ(driver->shown.back(), "found 2.0");
    EXPECT_EQ(driver->problem, "its signature is not valid");
    EXPECT_FALSE(driver->package);
  }
  EXPECT_EQ(
      check(feedWith("2.0", {.signature = publisher.signature("short")}), std::string("short")),
      2U);
  EXPECT_EQ(driver->problem, "it is not as long as the update feed says");
  EXPECT_EQ(check(feedWith("2.0", {.signature = valid}), Error{"the server does not answer"}), 2U);
  EXPECT_EQ(driver->problem, "the server does not answer");
  for (const std::string key : {"AQID", "no base64"}) {
    configuration.publicKey = key;
    EXPECT_EQ(check(feedWith("2.0", {.signature = valid}), std::string("package")), 2U);
    EXPECT_EQ(driver->problem, "its signature is not valid");
  }
  EXPECT_FALSE(isAnythingKept());
}

TEST_F(PackageTest, PackageAddressIsNeitherMoreLocalNorLessProtectedThanFeed) {
  const std::string feeds[] = {"file:///feed.xml", "https://mirror/feed.xml",
                               "http://mirror/feed.xml"};
  struct Case {
    std::string address;
    bool isAllowed[3];
  };
  const std::vector<Case> cases = {
      {"file:///etc/passwd", {true, false, false}}, {"FILE:/etc/passwd", {true, false, false}},
      {"https://mirror/a.deb", {true, true, true}}, {"HTTPS://mirror/a.deb", {true, true, true}},
      {"http://mirror/a.deb", {true, false, true}}, {"ftp://mirror/a.deb", {false, false, false}},
      {"/etc/passwd", {false, false, false}},       {" file:///etc/passwd", {false, false, false}},
  };
  configuration.allowsInsecureFeed = true;
  for (const auto& [address, isAllowed] : cases) {
    for (std::size_t i = 0; i < std::size(feeds); ++i) {
      configuration.feedAddress = feeds[i];
      const OfferedPackage package{.address = address, .signature = publisher.signature("package")};
      EXPECT_EQ(check(feedWith("2.0", package), std::string("package")), isAllowed[i] ? 2U : 1U)
          << feeds[i] << " names " << address;
      EXPECT_EQ(driver->problem,
                isAllowed[i] ? "" : "the update feed may not name the address " + address);
    }
  }
}

}  // namespace
}  // namespace sparkle
