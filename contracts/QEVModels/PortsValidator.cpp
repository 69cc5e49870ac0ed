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

// The pieces that one kind of correction is about: the first few by name, the others by number.
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
    for (const PortsPiece& piece : named_) texts.push_back(piece.shown());
    return {kind, texts, others_};
  }

private:
  std::vector<PortsPiece> named_;
  std::size_t others_ = 0;
};

// The ports that a text names, each as a single port or as part of a range.
class PortSet {
public:
  // False when the same port was inserted singly before.
  bool insertPort(std::uint32_t port) {
    const bool isNew = !singles_[port];
    singles_[port] = true;
    return isNew;
  }

  // False when the same range was inserted before. `first` is below `last`.
  bool insertRange(std::uint32_t first, std::uint32_t last) {
    if (!ranges_.insert(first << 16 | last).second) return false;
    ++opening_[first];
    ++closing_[last];
    return true;
  }

  // The normal form: each unbroken run of ports is a range if a range is part of it, and single ports
  // otherwise.
  std::string text() const {
    std::string result;
    const auto append = [&](const std::string& item) {
      if (!result.empty()) result += ',';
      result += item;
    };
    std::uint32_t port = 0;
    while (port <= kHighestPort) {
      const std::uint32_t start = port;
      std::uint32_t open = 0;
      bool hasRange = false;
      for (; port <= kHighestPort && (open > 0 || singles_[port] || opening_[port] > 0); ++port) {
        open += opening_[port];
        hasRange = hasRange || open > 0;
        open -= closing_[port];
      }
      if (hasRange) {
        append(std::to_string(start) + '-' + std::to_string(port - 1));
      } else {
        for (std::uint32_t single = start; single < port; ++single) append(std::to_string(single));
      }
      if (port == start) ++port;
    }
    return result;
  }

private:
  std::vector<bool> singles_ = std::vector<bool>(kHighestPort + 1);
  // How many ranges begin and end at each port.
  std::vector<std::uint32_t> opening_ = std::vector<std::uint32_t>(kHighestPort + 1);
  std::vector<std::uint32_t> closing_ = std::vector<std::uint32_t>(kHighestPort + 1);
  std::unordered_set<std::uint32_t> ranges_;
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
    // "80-80" names the port 80 twice.
    const bool isNew = first == last ? ports.insertPort(first) && piece->form == PortsPiece::Form::port
                                     : ports.insertRange(first, last);
    if (!isNew) report(Kind::duplicate, *piece);
  }

  PortValidationResult result{.ports = ports.text(), .corrections = {}};
  for (const Kind kind : {Kind::invalid, Kind::outOfRange, Kind::reversed, Kind::duplicate}) {
    const Concerned& found = concerned.at(static_cast<std::size_t>(kind));
    if (!found.isEmpty()) result.corrections.push_back(found.correction(kind));
  }
  return result;
}

}  // namespace QEVModels
