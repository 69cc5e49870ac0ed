// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace viewkit {

// The heights of many rows, some of them known; the average of those is the estimate for the
// others. Each query takes time in the logarithm of the number of rows. Lengths are in points.
class RowHeights {
public:
  explicit RowHeights(double spacing) : spacing_(spacing) {}

  std::size_t count() const { return count_; }
  // Adds or removes rows at the end. The known heights of the others stay.
  void setCount(std::size_t count);
  void setHeight(std::size_t row, double height);

  double height(std::size_t row) const;
  // From the top of the first row to the top of this one.
  double top(std::size_t row) const;
  // The row at this distance from the top of the first one, or the last row if it is beyond that.
  std::size_t rowAt(double distance) const;
  double total() const;

private:
  // Heights are stored in blocks, the sums of the blocks in a Fenwick tree.
  static constexpr std::size_t kBlock = 32;
  using Block = std::array<float, kBlock>;
  struct Sum {
    double heights = 0;
    std::size_t known = 0;
  };

  double average() const;
  // The height of this many rows, given the sum over the known ones.
  double extent(const Sum& sum, std::size_t rows) const;
  Sum sumOfBlocks(std::size_t blocks) const;
  void add(std::size_t block, double height, int known);

  double spacing_;
  std::size_t count_ = 0;
  // Null for a block without a known row. A row that is not known is negative.
  std::vector<std::unique_ptr<Block>> blocks_;
  std::vector<Sum> tree_;
  Sum all_;
};

}  // namespace viewkit
