#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace viewkit {

// The heights of many rows of which only some are known: the others count as high as the average of
// those. Every question is answered in the logarithm of the number of rows.
class RowHeights {
public:
  explicit RowHeights(double spacing) : spacing_(spacing) {}

  std::size_t count() const { return count_; }
  // Rows are added or dropped at the end; what is known of the others stays.
  void setCount(std::size_t count);
  void setHeight(std::size_t row, double height);

  double height(std::size_t row) const;
  // From the top of the first row to the top of this one.
  double top(std::size_t row) const;
  // The row at this distance from the top of the first one; the last where it is beyond.
  std::size_t rowAt(double distance) const;
  double total() const;

private:
  // Rows are kept in blocks; the sums of blocks stand in a Fenwick tree.
  static constexpr std::size_t kBlock = 32;
  using Block = std::array<float, kBlock>;
  struct Sum {
    double heights = 0;
    std::size_t known = 0;
  };

  double average() const;
  // How high so many rows are of which these are known.
  double extent(const Sum& sum, std::size_t rows) const;
  Sum sumOfBlocks(std::size_t blocks) const;
  void add(std::size_t block, double height, int known);

  double spacing_;
  std::size_t count_ = 0;
  // Nothing where no row of the block is known; a row that is not known is negative.
  std::vector<std::unique_ptr<Block>> blocks_;
  std::vector<Sum> tree_;
  Sum all_;
};

}  // namespace viewkit
