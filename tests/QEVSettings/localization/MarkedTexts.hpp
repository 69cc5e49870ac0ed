// SPDX-License-Identifier: MIT
#pragma once

#include "StringsTables.hpp"
#include "foundation/Bundle.hpp"
#include "headless/Window.hpp"
#include "support/TemporaryFolder.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace QEVSettings {

// Wraps every text of the English tables in marks: what is shown without them did not come from
// there.
inline constexpr std::string_view kOpen = "⟦";
inline constexpr std::string_view kClose = "⟧";

class MarkedTexts {
public:
  MarkedTexts() {
    for (const auto& bundle : {kModule, kTools}) {
      const auto folder = folder_.path() / bundle.filename() / "en.lproj";
      std::filesystem::create_directories(folder);
      std::ofstream file(folder / "Localizable.strings");
      for (const auto& [key, text] : readTable(bundle, "en")) {
        keys_.insert(key);
        file << '"' << key << "\" = \"" << kOpen << text << kClose << "\";\n";
      }
    }
    foundation::Bundle::setMainResourceFolder(folder_.path());
  }
  MarkedTexts(const MarkedTexts&) = delete;
  MarkedTexts& operator=(const MarkedTexts&) = delete;

  // Everything shown or said in the window.
  void see(const headless::Window& window) {
    see(window.describe());
    seePlaceholders(window.host().presentation());
  }
  void see(const std::string& text) {
    if (isOfTheTest(text)) return;
    if (!text.starts_with(kOpen)) unmarked_.push_back(text);
    for (auto open = text.find(kOpen); open != std::string::npos;
         open = text.find(kOpen, open + 1)) {
      seen_.insert(withoutMarks(
          text.substr(open + kOpen.size(), closeOf(text, open) - open - kOpen.size())));
    }
  }

  const std::vector<std::string>& unmarked() const { return unmarked_; }
  std::vector<std::string> unseen() const {
    std::vector<std::string> keys;
    for (const std::string& key : keys_) {
      if (std::ranges::none_of(seen_, [&](const std::string& text) { return isMadeOf(key, text); }))
        keys.push_back(key);
    }
    return keys;
  }

private:
  // Where the mark ends that begins there; a text may be filled into another.
  static std::size_t closeOf(const std::string& text, std::size_t open) {
    int depth = 0;
    for (std::size_t at = open; at < text.size(); ++at) {
      const std::string_view rest = std::string_view(text).substr(at);
      if (rest.starts_with(kOpen)) ++depth;
      if (rest.starts_with(kClose) && --depth == 0) return at;
    }
    return text.size();
  }

  static std::string withoutMarks(std::string text) {
    for (const std::string_view mark : {kOpen, kClose}) {
      for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark))
        text.erase(at, mark.size());
    }
    return text;
  }

  // The text with values for the places in the key.
  static bool isMadeOf(std::string_view key, std::string_view text) {
    for (auto place = key.find("%@"); place != std::string_view::npos; place = key.find("%@")) {
      if (!text.starts_with(key.substr(0, place))) return false;
      key.remove_prefix(place + 2);
      text.remove_prefix(place);
      if (key.empty()) return true;
      const auto next = text.find(key.substr(0, key.find("%@")));
      if (next == std::string_view::npos) return false;
      text.remove_prefix(next);
    }
    return text == key;
  }

  // Names, numbers and samples of fonts are the same in every language.
  static bool isOfTheTest(std::string_view text) {
    return text.find("x-") != std::string_view::npos || text.starts_with("Sans ") ||
           text == "TCP" || text.find_first_not_of(" .,:0123456789") == std::string_view::npos;
  }

  void see(const viewkit::NodeDescription& node) {
    see(node.accessibility.label);
    see(node.accessibility.help);
    for (const auto& child : node.children) see(child);
  }

  void seePlaceholders(const viewkit::PresentationNode& node) {
    const auto* field =
        node.control() ? std::get_if<viewkit::TextFieldControl>(node.control()) : nullptr;
    if (field) see(field->placeholder);
    for (const auto* child : node.children) seePlaceholders(*child);
  }

  support::TemporaryFolder folder_;
  std::set<std::string> keys_;
  std::set<std::string> seen_;
  std::vector<std::string> unmarked_;
};

}  // namespace QEVSettings
