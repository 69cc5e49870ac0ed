#include "window/DesktopHost.hpp"

#include "Language.hpp"
#include "foundation/Bundle.hpp"
#include "window/DescriptorWatch.hpp"
#include "window/Updates.hpp"
#include "window/startAgainWithoutDisplay.hpp"

#include <array>
#include <string>

namespace zorvantine {

namespace {

// What Qt asks for; the command line is ours alone.
struct NoArguments {
  std::string name = "zorvantine";
  int count = 1;
  std::array<char*, 2> words{name.data(), nullptr};
};

NoArguments& noArguments() {
  static NoArguments arguments;
  return arguments;
}

NoArguments& preparedFor(QtMessages& messages, qt::Application::Display display) {
  if (display == qt::Application::Display::screen) messages.beforeStop(startAgainWithoutDisplay);
  return noArguments();
}

}  // namespace

DesktopHost::DesktopHost(const WindowOptions& options, foundation::UserDefaults& store,
                         qt::Application::Display display)
    : application_(preparedFor(messages_, display).count, noArguments().words.data(), display) {
  messages_.beforeStop(nullptr);
  useDesktopForUpdates(store);
  host_.emplace(options, store);
  application_.setLanguage(windowLanguage());
}

DesktopHost::~DesktopHost() {
  host_.reset();
  forgetDesktopUpdates();
}

std::unique_ptr<qt::Window> DesktopHost::makeWindow(Tab tab) const {
  viewkit::Environment environment = host_->environment();
  environment.reducedMotion = application_.reducedMotion();
  return std::make_unique<qt::Window>(
      qt::WindowOptions{.title = foundation::Bundle::mainBundle().localizedString("Settings"),
                        .environment = environment,
                        .root = host_->settingsView(tab)});
}

void DesktopHost::run(Tab tab, const Interruption& interruption) {
  const auto window = makeWindow(tab);
  // Closing commits a text that is being edited, which ending the process would lose.
  const DescriptorWatch interrupted(interruption.descriptor(), [&window] { window->close(); });
  window->show();
  application_.run();
}

}  // namespace zorvantine
