// SPDX-License-Identifier: MIT
#include "QEVModels/PortsValidator.hpp"

#include "PortsText.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace QEVModels {

namespace {

using Kind = PortCorrection::Kind;

constexpr std::size_t kNamedPieces = 3;

// The pieces of one kind of correction: the texts of the first few, and the number of the others.
class Concerned {
public:
  void add(const PortsPiece& piece) {
    if (std::ranges::find(named_, piece.text, &PortsPiece::text) != named_.end()) return;
    if (named_.size() < kNamedPieces) {
      named_.push_back(piece);
    } else {
      ++others_;
    }
  }

  bool isEmpty() const { return named_.empty(); }

  PortCorrection correction(Kind kind) const {
    std::vector<std::string> texts;
    texts.reserve(named_.size());
    for (const PortsPiece& piece : named_) texts.push_back(piece.shown());
    return {kind, texts, others_};
  }

private:
  std::vector<PortsPiece> named_;
  std::size_t others_ = 0;
};

// The ports and ranges of a text. A port is a range whose ends are the same.
class PortSet {
public:
  // Returns false when the same port or range was inserted before.
  bool insert(std::uint32_t first, std::uint32_t last) {
    return items_.insert(first << 16 | last).second;
  }

  // The normal form. An unbroken run of ports becomes a range if the text had a range in it, and
  // single ports otherwise.
  std::string text() const {
    std::vector<std::uint32_t> sorted(items_.begin(), items_.end());
    std::ranges::sort(sorted);
    std::string result;
    const auto append = [&](const std::string& item) {
      if (!result.empty()) result += ',';
      result += item;
    };
    for (auto item = sorted.begin(); item != sorted.end();) {
      const auto run = item;
      std::uint32_t last = lastOf(*run);
      bool hasRange = false;
      for (; item != sorted.end() && firstOf(*item) <= last + 1; ++item) {
        last = std::max(last, lastOf(*item));
        hasRange = hasRange || firstOf(*item) < lastOf(*item);
      }
      if (hasRange) {
        append(std::to_string(firstOf(*run)) + '-' + std::to_string(last));
      } else {
        std::for_each(run, item,
                      [&](std::uint32_t port) { append(std::to_string(firstOf(port))); });
      }
    }
    return result;
  }

private:
  static std::uint32_t firstOf(std::uint32_t item) { return item >> 16; }
  static std::uint32_t lastOf(std::uint32_t item) { return item & 0xFFFF; }

  std::unordered_set<std::uint32_t> items_;
};

}  // namespace

PortValidationResult validatedPorts(std::string_view text) {
  PortSet ports;
  std::array<Concerned, 4> concerned;
  const auto report = [&](Kind kind, const PortsPiece& piece) {
    concerned.at(static_cast<std::size_t>(kind)).add(piece);
  };

  PortsText pieces(text);
  while (const auto piece = pieces.next()) {
    if (piece->form == PortsPiece::Form::other) {
      report(Kind::invalid, *piece);
      continue;
    }
    const auto [first, last] = std::minmax(piece->first, piece->last);
    if (last > kHighestPort) {
      report(Kind::outOfRange, *piece);
      continue;
    }
    if (piece->first > piece->last) report(Kind::reversed, *piece);
    // "80-80" counts as the port 80 twice.
    const bool isTwice = first == last && piece->form == PortsPiece::Form::range;
    if (!ports.insert(first, last) || isTwice) report(Kind::duplicate, *piece);
  }

  PortValidationResult result{.ports = ports.text(), .corrections = {}};
  for (const Kind kind : {Kind::invalid, Kind::outOfRange, Kind::reversed, Kind::duplicate}) {
    const Concerned& found = concerned.at(static_cast<std::size_t>(kind));
    if (!found.isEmpty()) result.corrections.push_back(found.correction(kind));
  }
  return result;
}

}  // namespace QEVModels
