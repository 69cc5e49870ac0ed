// SPDX-License-Identifier: MIT
#include "QEVDependencies/ProxyAddress.hpp"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

namespace QEVDependencies {
namespace {

TEST(ProxyAddressTest, TakesNamesAndAddresses) {
  for (const std::string_view host :
       {"localhost", "proxy-1.example.com", "example.com.", "a_b.lan", "127.0.0.1",
        "255.255.255.255", "::", "::1", "fe80::1:2", "1:2:3:4:5:6:7:8", "1::8", "::ffff:10.0.0.1",
        "1:2:3:4:5:6:10.0.0.1", "3com.example"}) {
    EXPECT_TRUE(validatedProxyHost(host)) << host;
  }
  EXPECT_EQ(ProxyAddress::fromText(" [::1] ", " 8080\n")->text(), "[::1]:8080");
  EXPECT_EQ(ProxyAddress::fromText("localhost", "080")->text(), "localhost:80");
}

TEST(ProxyAddressTest, RefusesAnythingElse) {
  for (const std::string& host : {std::string(),
                                  std::string(" "),
                                  std::string("a b"),
                                  std::string("http://localhost"),
                                  std::string("host:80"),
                                  std::string("-a.com"),
                                  std::string("a-.com"),
                                  std::string("a..com"),
                                  std::string("."),
                                  std::string("256.0.0.1"),
                                  std::string("1.2.3"),
                                  std::string("01.2.3.4"),
                                  std::string("1.2.3.4.5"),
                                  std::string("[127.0.0.1]"),
                                  std::string(":"),
                                  std::string(":::"),
                                  std::string("1::2::3"),
                                  std::string("1:2:3:4:5:6:7"),
                                  std::string("1:2:3:4:5:6:7:8:9"),
                                  std::string("12345::"),
                                  std::string("::10.0.0"),
                                  std::string("10.0.0.1::"),
                                  std::string("[::1"),
                                  std::string("ä.com"),
                                  std::string(64, 'a'),
                                  std::string("a\0b", 3)}) {
    EXPECT_FALSE(validatedProxyHost(host)) << host;
  }
  for (const std::string_view port :
       {"", "0", "65536", "-1", "+80", "80x", "8 0", "123456789012345678901", "８０"}) {
    EXPECT_FALSE(validatedProxyPort(port)) << port;
  }
}

}  // namespace
}  // namespace QEVDependencies
