// SPDX-License-Identifier: MIT
#pragma once

#include "TwoWindows.hpp"

#include <cstddef>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace QEVSettings {

// Takes random steps, of the user in either window and of the second process, and checks after each
// that windows and stores agree. The same seed takes the same steps.
class RandomWalk : public TwoWindows {
public:
  explicit RandomWalk(unsigned seed) : random_(seed) {}

  void run();
  // The last steps, one a line.
  std::string lastSteps() const;

private:
  using Step = void (RandomWalk::*)(SettingsWindow&);
  struct NamedStep {
    const char* name;
    Step take;
    // How often it is taken, compared with the others.
    int weight;
  };
  static const std::vector<NamedStep>& steps();

  void changeElsewhere();
  void changePortsElsewhere();
  void changePageElsewhere();
  void selectElsewhere();
  // Perhaps calls `change`, and perhaps the windows hear of it.
  void meanwhile(const std::function<void()>& change);

  void changeSomethingElsewhere(SettingsWindow& window);
  void visitTab(SettingsWindow& window);
  void reopenWindow(SettingsWindow& window);
  void selectAnalyzer(SettingsWindow& window);
  void pickFromRow(SettingsWindow& window);
  void typePorts(SettingsWindow& window);
  void resetPorts(SettingsWindow& window);
  void flipSwitch(SettingsWindow& window);
  void flipUpdateSwitch(SettingsWindow& window);
  void chooseColor(SettingsWindow& window);
  void cancelColor(SettingsWindow& window);
  void writeNote(SettingsWindow& window);
  void chooseMode(SettingsWindow& window);
  void chooseZone(SettingsWindow& window);
  void chooseFont(SettingsWindow& window);
  void chooseInterface(SettingsWindow& window);
  void typeInField(SettingsWindow& window);

  std::size_t random(std::size_t count) { return random_() % count; }
  bool perhaps() { return random(2) == 0; }
  template <class Choices>
  const auto& oneOf(const Choices& choices) {
    return choices[random(choices.size())];
  }
  void noteMode(const std::string& mode);

  std::mt19937_64 random_;
  std::vector<std::string> taken_;
};

}  // namespace QEVSettings
