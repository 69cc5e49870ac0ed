// SPDX-License-Identifier: MIT
#include "QEVDependencies/ProxyServiceProtocol.hpp"
#include "QEVSettings/ProxySettingsView.hpp"
#include "SettingsWindowTest.hpp"
#include "foundation/MainQueue.hpp"

#include <gmock/gmock.h>

#include <functional>
#include <utility>

namespace QEVSettings {
namespace {

using headless::Key;
using testing::HasSubstr;
using viewkit::Role;

void enter(headless::Window& window, const char* label, std::string_view text) {
  window.click(window.find(Role::textField, label));
  window.selectAll();
  window.press(Key::deleteBackward);
  window.type(text);
  window.press(Key::enter);
}

class QEVCaptureSettingsViewTest : public SettingsWindowTest {
protected:
  // Below the fields, where nothing else is.
  static viewkit::Point emptySpace(const headless::Window& window) {
    const auto label = window.findText("Size of a file (MiB)").frame();
    return {label.origin.x + 400, label.origin.y + 5};
  }
};

TEST_F(QEVCaptureSettingsViewTest, EndsTheEditingOfTextAfterAClickBesideTheControls) {
  headless::Window& window = open(Tabs::capture);
  window.click(window.find(Role::textField, "Capture filter"));
  window.type("tcp");
  ASSERT_TRUE(window.firstResponder());

  EXPECT_TRUE(window.host().click(emptySpace(window)));
  EXPECT_TRUE(window.firstResponder()) << "the click itself changes nothing";
  foundation::MainQueue::mainQueue().drainAll();
  EXPECT_FALSE(window.firstResponder());
  EXPECT_EQ(captureModel->captureFilter(), "tcp");
}

TEST_F(QEVCaptureSettingsViewTest, LeavesTheKeyboardAloneWhenNoWindowIsKey) {
  headless::Window& window = open(Tabs::capture);
  window.click(window.find(Role::textField, "Capture filter"));
  window.resignKey();
  EXPECT_TRUE(window.click(emptySpace(window)));
  EXPECT_TRUE(window.firstResponder());
}

TEST_F(QEVCaptureSettingsViewTest, ListsTheMachinesInterfacesAndKeepsTheChosenOne) {
  interfaces->interfaces = {
      {.name = "lo", .addresses = {"127.0.0.1", "::1"}, .isUp = false},
      {.name = "en0", .addresses = {"192.0.2.7"}, .isUp = true},
      {.name = "en1", .addresses = {}, .isUp = true},
  };
  headless::Window& window = open(Tabs::capture);
  const auto row = [&](std::size_t i) { return window.findAll(Role::listItem).at(i); };
  EXPECT_THAT(row(0).label(),
              testing::AllOf(HasSubstr("lo"), HasSubstr("\u2066127.0.0.1\u2069, \u2066::1\u2069"),
                             HasSubstr("down")));
  EXPECT_EQ(row(1).isSelected(), true) << "the first that is up, while none is chosen";

  window.click(row(2));
  EXPECT_EQ(captureModel->interfaceName(), "en1");

  EXPECT_TRUE(window.find(Role::list, "Capture on").isFocused()) << "the list is one stop";
  window.press(Key::upArrow);
  EXPECT_EQ(captureModel->interfaceName(), "en0");
  window.press(Key::home);
  EXPECT_EQ(captureModel->interfaceName(), "lo");
  window.press(Key::upArrow);
  EXPECT_EQ(captureModel->interfaceName(), "lo");
  window.press(Key::end);
  EXPECT_EQ(captureModel->interfaceName(), "en1");
  window.press(Key::tab);
  EXPECT_EQ(window.focused(), window.find(Role::toggle, "Promiscuous mode"));
  EXPECT_EQ(row(2).isSelected(), true);

  interfaces->objectWillChange().announce();
  interfaces->interfaces.resize(2);
  window.settle();
  EXPECT_EQ(row(2).isSelected(), true) << "it stays chosen while it is unplugged";
  EXPECT_THAT(row(2).label(), HasSubstr("down"));
}

TEST_F(QEVCaptureSettingsViewTest, TakesANumberWithinItsLimitsAndExplainsAnyOther) {
  headless::Window& window = open(Tabs::capture);
  enter(window, "Snapshot length (bytes)", " 1500 ");
  EXPECT_EQ(captureModel->snapshotLength(), 1500);
  for (const char* wrong : {"63", "262145", "15 00", "0x40", "-64", "99999999999999999999", ""}) {
    SCOPED_TRACE(wrong);
    enter(window, "Snapshot length (bytes)", wrong);
    EXPECT_EQ(captureModel->snapshotLength(), 1500);
    EXPECT_THAT(window.find(Role::alert).label(), HasSubstr("64"));
    EXPECT_EQ(window.find(Role::textField, "Snapshot length (bytes)").value(), wrong);
  }
  enter(window, "Snapshot length (bytes)", "64");
  EXPECT_FALSE(window.find(Role::alert).exists());
}

TEST_F(QEVCaptureSettingsViewTest, TypedTextIsStoredHoweverThePageIsLeft) {
  const std::pair<const char*, std::function<void(headless::Window&)>> ways[] = {
      {"another tab is clicked", [](headless::Window& window) { window.selectTab("Fonts"); }},
      {"Ctrl+Tab",
       [](headless::Window& window) { window.press(Key::tab, appkit::Event::control); }},
      {"Ctrl+W", [](headless::Window& window) { window.press(Key::w, appkit::Event::control); }},
      {"the window closes", [](headless::Window& window) { window.close(); }},
      {"the window is destroyed", [this](headless::Window&) { close(); }},
  };
  for (const auto& [way, leave] : ways) {
    SCOPED_TRACE(way);
    captureModel->setCaptureFilter("");
    headless::Window& window = open(Tabs::capture);
    window.click(window.find(Role::textField, "Capture filter"));
    window.type("tcp");
    leave(window);
    EXPECT_EQ(captureModel->captureFilter(), "tcp");
  }
}

TEST_F(QEVCaptureSettingsViewTest, KeepsRefusedTextWithItsErrorAndTellsItWhenTheWindowCloses) {
  constexpr const char* kField = "Snapshot length (bytes)";
  headless::Window& window = open(Tabs::capture);
  window.click(window.find(Role::textField, kField));
  window.selectAll();
  window.type("12");
  window.selectTab("Fonts");
  window.selectTab("Capture");
  EXPECT_EQ(window.find(Role::textField, kField).value(), "12");
  const std::string problem = window.find(Role::alert).label();
  EXPECT_THAT(problem, HasSubstr("64"));
  window.close();
  EXPECT_THAT(window.refusedTexts(), testing::ElementsAre(viewkit::RefusedText{
                                         .label = kField, .text = "12", .problem = problem}));
  EXPECT_EQ(captureModel->snapshotLength(), 262144);
}

TEST_F(QEVCaptureSettingsViewTest, FilterWithoutMatchingParenthesesIsRefused) {
  headless::Window& window = open(Tabs::capture);
  for (const char* filter : {"(tcp", "tcp)", ")tcp(", "(udp))("}) {
    enter(window, "Capture filter", filter);
    EXPECT_TRUE(window.find(Role::alert).exists()) << filter;
  }
  EXPECT_EQ(captureModel->captureFilter(), "");
  enter(window, "Capture filter", "(tcp port 80) or ((udp))");
  EXPECT_FALSE(window.find(Role::alert).exists());
  EXPECT_EQ(captureModel->captureFilter(), "(tcp port 80) or ((udp))");
}

TEST_F(QEVCaptureSettingsViewTest, EscapeBringsTheStoredNumberBackAndTakesTheErrorAway) {
  headless::Window& window = open(Tabs::capture);
  enter(window, "Snapshot length (bytes)", "12");
  window.press(Key::escape);
  EXPECT_EQ(window.find(Role::textField, "Snapshot length (bytes)").value(), "262144");
  EXPECT_FALSE(window.find(Role::alert).exists());
  EXPECT_TRUE(window.isOpen());
  window.press(Key::escape);
  EXPECT_FALSE(window.isOpen());
  EXPECT_THAT(window.refusedTexts(), testing::IsEmpty());
}

TEST_F(QEVCaptureSettingsViewTest, OffersTheSizeOfARingOnlyWithARing) {
  headless::Window& window = open(Tabs::capture);
  const auto count = window.find(Role::textField, "Number of files");
  EXPECT_FALSE(count.isEnabled());
  window.click(window.find(Role::toggle, "Ring of files"));
  EXPECT_TRUE(count.isEnabled());
  enter(window, "Number of files", "3");
  EXPECT_EQ(captureModel->ringFileCount(), 3);
}

TEST_F(QEVCaptureSettingsViewTest, UnusableStoredValueShowsTheDefault) {
  const auto& keys = QEVCoreComponents::QEVCaptureViewModel::kKeyPrefix;
  store.underneath().setInteger(-1, std::string(keys) + "snapshotLength");
  store.underneath().setObject("many", std::string(keys) + "bufferSize");
  store.underneath().setObject(PreferenceValue::Bytes{0}, std::string(keys) + "filter");
  const headless::Window& window = open(Tabs::capture);
  EXPECT_EQ(window.find(Role::textField, "Snapshot length (bytes)").value(), "262144");
  EXPECT_EQ(window.find(Role::textField, "Buffer size (MiB)").value(), "16");
  EXPECT_EQ(window.find(Role::textField, "Capture filter").value(), "");
}

class KeptProxy final : public QEVDependencies::ProxyServiceProtocol {
public:
  bool isEnabled() const override { return enabled; }
  void setEnabled(bool next) override {
    change([&] { enabled = next; });
  }
  std::optional<std::string> problem() const override {
    return enabled ? std::optional<std::string>("the port is taken") : std::nullopt;
  }
  QEVDependencies::ProxyAddress listeningAddress() const override { return listening; }
  void setListeningAddress(QEVDependencies::ProxyAddress next) override {
    change([&] { listening = next; });
  }
  std::optional<QEVDependencies::ProxyAddress> upstream() const override { return next; }
  void setUpstream(std::optional<QEVDependencies::ProxyAddress> address) override {
    change([&] { next = address; });
  }
  bool interceptsTLS() const override { return intercepts; }
  void setInterceptsTLS(bool value) override {
    change([&] { intercepts = value; });
  }
  std::optional<std::string> certificatePath() const override { return certificate; }
  void setCertificatePath(std::optional<std::string> path) override {
    change([&] { certificate = path; });
  }

  bool enabled = false;
  QEVDependencies::ProxyAddress listening{.host = "127.0.0.1", .port = 8080};
  std::optional<QEVDependencies::ProxyAddress> next;
  bool intercepts = false;
  std::optional<std::string> certificate = "/certificates/root.pem";

private:
  void change(const std::function<void()>& make) {
    objectWillChange().announce();
    make();
  }
};

class ProxySettingsViewTest : public SettingsWindowTest {};

TEST_F(ProxySettingsViewTest, EditsTheHostsServiceAndRefusesBadAddresses) {
  const auto proxy = std::make_shared<KeptProxy>();
  headless::Window& window = open(Tabs::proxy, ProxySettingsView(proxy));

  window.click(window.find(Role::toggle, "Proxy"));
  EXPECT_TRUE(proxy->enabled);
  EXPECT_EQ(window.find(Role::alert).label(), "the port is taken");
  window.click(window.find(Role::toggle, "Proxy"));
  window.click(window.find(Role::toggle, "Intercept TLS"));
  EXPECT_TRUE(proxy->intercepts);

  enter(window, "Listening address", "::1");
  enter(window, "Listening port", "9090");
  EXPECT_EQ(proxy->listening.text(), "[::1]:9090");
  for (const auto& [label, text] :
       {std::pair{"Listening address", "not a host"}, {"Listening port", "0"}}) {
    enter(window, label, text);
    EXPECT_TRUE(window.find(Role::alert).exists()) << label;
    EXPECT_EQ(proxy->listening.text(), "[::1]:9090");
    enter(window, label, label == std::string("Listening port") ? "9090" : "::1");
  }

  EXPECT_FALSE(window.find(Role::textField, "Upstream port").isEnabled());
  enter(window, "Upstream proxy", "proxy.example");
  enter(window, "Upstream port", "3128");
  ASSERT_TRUE(proxy->next);
  EXPECT_EQ(proxy->next->text(), "proxy.example:3128");
  enter(window, "Upstream proxy", "");
  EXPECT_FALSE(proxy->next);

  EXPECT_EQ(window.find(Role::textField, "Certificate").value(), "/certificates/root.pem");
  enter(window, "Certificate", "/other.pem");
  EXPECT_EQ(proxy->certificate, "/other.pem");
  const auto chooser = std::get<viewkit::FileButtonControl>(
      *window.find(Role::button, "Choose…").content().control());
  EXPECT_EQ(chooser.path(), "/other.pem");
  chooser.choose("/picked.pem");
  window.settle();
  EXPECT_EQ(window.find(Role::textField, "Certificate").value(), "/picked.pem");
  enter(window, "Certificate", "");
  EXPECT_EQ(proxy->certificate, std::nullopt);
}

TEST_F(ProxySettingsViewTest, TypedTextIsStoredWhenThePageIsLeft) {
  const auto proxy = std::make_shared<KeptProxy>();
  headless::Window& window = open(Tabs::proxy, ProxySettingsView(proxy));
  window.click(window.find(Role::textField, "Listening port"));
  window.selectAll();
  window.type("9090");
  window.selectTab("Fonts");
  EXPECT_EQ(proxy->listening.text(), "127.0.0.1:9090");
}

}  // namespace
}  // namespace QEVSettings
