// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/State.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace headless::testing {

using namespace viewkit;

// What the views of a test note down when they are used.
using Journal = std::shared_ptr<std::vector<std::string>>;

// A form with one of each control that the user presses or types into.
struct Form {
  Journal journal;
  State<bool> isOn = false;
  State<std::string> name = std::string("eth0");
  State<std::string> ports = std::string();
  State<bool> locked = false;
  State<std::string> picked = std::string("None");

  View body() const {
    const auto note = [journal = journal](const std::string& what) { journal->push_back(what); };
    return VStack({},
                  {
                      Button("Lock", [self = *this] { self.locked.set(!self.locked); }),
                      Toggle(isOn.binding()).accessibilityLabel("Promiscuous"),
                      TextField({.placeholder = "Name"}, name.binding(),
                                [self = *this, note] { note("name " + self.name.get()); })
                          .accessibilityLabel("Name"),
                      TextField({},
                                Binding<std::string>([self = *this] { return self.ports.get(); },
                                                     [self = *this, note](const std::string& text) {
                                                       note("typed " + text);
                                                       self.ports.set(text);
                                                     }),
                                [self = *this, note] { note("ports " + self.ports.get()); })
                          .accessibilityLabel("Ports")
                          .disabled(locked),
                      Button("Reset", [note] { note("reset"); }).disabled(locked),
                      PopUpMenu(picked,
                                [self = *this] {
                                  std::vector<MenuItem> items;
                                  for (const std::string title : {"TCP", "UDP"}) {
                                    items.push_back({.title = title, .action = [self, title] {
                                                       self.picked.set(title);
                                                     }});
                                  }
                                  return items;
                                }),
                  });
  }
};

class HeadlessTest : public ::testing::Test {
protected:
  std::unique_ptr<Window> show(const View& root,
                               const WindowOptions& options = {.size = {{400, 400}}}) {
    return std::make_unique<Window>(root, Environment{.defaultStore = *store}, options);
  }
  std::unique_ptr<Window> showForm() { return show(Form{.journal = journal}); }

  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  Journal journal = std::make_shared<std::vector<std::string>>();
};

}  // namespace headless::testing
