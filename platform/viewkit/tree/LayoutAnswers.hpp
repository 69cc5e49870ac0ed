// SPDX-License-Identifier: MIT
#pragma once

#include "tree/Measurement.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace viewkit {

// The cache of one node: the measurements it has given, by the size it was proposed. It keeps a
// few of them and drops the one that was not asked for the longest.
class LayoutAnswers {
public:
  // One answer. An absent length is stored as minus infinity, which no length equals: a
  // std::optional would make each answer a third larger, and there are several for each node.
  class Answer {
  public:
    Answer(const ProposedSize& proposal, const Measurement& measurement, std::uint64_t era)
        : width_(pack(proposal.width)),
          height_(pack(proposal.height)),
          size_(measurement.size),
          firstBaseline_(pack(measurement.firstBaseline)),
          era_(era) {}

    ProposedSize proposal() const { return {unpack(width_), unpack(height_)}; }
    Measurement measurement() const { return {size_, unpack(firstBaseline_)}; }
    // The layout era (see LayoutProgress) in which the answer was last asked for.
    std::uint64_t era() const { return era_; }

  private:
    friend class LayoutAnswers;
    static constexpr double kAbsent = -std::numeric_limits<double>::infinity();

    static double pack(std::optional<double> length) { return length.value_or(kAbsent); }
    static std::optional<double> unpack(double length) {
      return length == kAbsent ? std::nullopt : std::optional(length);
    }

    double width_;
    double height_;
    Size size_;
    double firstBaseline_;
    std::uint64_t era_;
  };

  // The answer to this proposal, or null. Counts as asked for in `era`.
  const Answer* find(const ProposedSize& proposal, std::uint64_t era) {
    const double width = Answer::pack(proposal.width);
    const double height = Answer::pack(proposal.height);
    for (Answer& answer : answers_) {
      if (answer.width_ != width || answer.height_ != height) continue;
      answer.era_ = era;
      return &answer;
    }
    return nullptr;
  }

  void add(const ProposedSize& proposal, const Measurement& measurement, std::uint64_t era) {
    if (answers_.size() == kMostKept) dropOldest();
    if (answers_.empty()) answers_.reserve(kExpected);
    answers_.emplace_back(proposal, measurement, era);
  }

  void clear() {
    answers_.clear();
    hasDropped_ = false;
  }

  const std::vector<Answer>& all() const { return answers_; }
  // Whether an answer that the parent may have used is no longer among them.
  bool hasDropped() const { return hasDropped_; }

private:
  // As many different proposals as a few nested containers make in one layout.
  static constexpr std::size_t kMostKept = 16;
  // As many as most nodes get.
  static constexpr std::size_t kExpected = 4;

  void dropOldest() {
    answers_.erase(
        std::min_element(answers_.begin(), answers_.end(),
                         [](const Answer& a, const Answer& b) { return a.era_ < b.era_; }));
    hasDropped_ = true;
  }

  std::vector<Answer> answers_;
  bool hasDropped_ = false;
};

}  // namespace viewkit
