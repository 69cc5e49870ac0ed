// SPDX-License-Identifier: MIT
#include "layout/RowHeights.hpp"

#include <algorithm>

namespace viewkit {

namespace {

// The estimate while no row is known: a line of text with some space around it.
constexpr double kFirstEstimate = 24;
constexpr float kUnknown = -1;

}  // namespace

void RowHeights::setCount(std::size_t count) {
  if (count == count_) return;
  // The heights of removed rows are forgotten.
  for (std::size_t row = count; row < count_; ++row) {
    const std::size_t next = (row / kBlock + 1) * kBlock;
    Block* block = blocks_[row / kBlock].get();
    if (!block) {
      row = next - 1;
      continue;
    }
    float& known = (*block)[row % kBlock];
    if (known >= 0) add(row / kBlock, -static_cast<double>(known), -1);
    known = kUnknown;
  }
  count_ = count;
  blocks_.resize((count + kBlock - 1) / kBlock);
  // The sums in a Fenwick tree depend on its size, so it is built again.
  tree_.assign(blocks_.size() + 1, {});
  all_ = {};
  for (std::size_t i = 0; i < blocks_.size(); ++i) {
    if (!blocks_[i]) continue;
    for (const float height : *blocks_[i]) {
      if (height >= 0) add(i, height, 1);
    }
  }
}

void RowHeights::add(std::size_t block, double height, int known) {
  const auto change = [&](Sum& sum) {
    sum.heights += height;
    sum.known += static_cast<std::size_t>(known);
  };
  change(all_);
  for (std::size_t i = block + 1; i < tree_.size(); i += i & (~i + 1)) change(tree_[i]);
}

void RowHeights::setHeight(std::size_t row, double height) {
  auto& block = blocks_[row / kBlock];
  if (!block) {
    block = std::make_unique<Block>();
    block->fill(kUnknown);
  }
  float& known = (*block)[row % kBlock];
  const auto next = static_cast<float>(height);
  if (known == next) return;
  if (known < 0) {
    add(row / kBlock, next, 1);
  } else {
    add(row / kBlock, static_cast<double>(next) - static_cast<double>(known), 0);
  }
  known = next;
}

double RowHeights::average() const {
  return all_.known == 0 ? kFirstEstimate : all_.heights / static_cast<double>(all_.known);
}

double RowHeights::extent(const Sum& sum, std::size_t rows) const {
  return sum.heights + average() * static_cast<double>(rows - sum.known) +
         spacing_ * static_cast<double>(rows);
}

double RowHeights::height(std::size_t row) const {
  const Block* block = blocks_[row / kBlock].get();
  return block && (*block)[row % kBlock] >= 0 ? static_cast<double>((*block)[row % kBlock])
                                              : average();
}

RowHeights::Sum RowHeights::sumOfBlocks(std::size_t blocks) const {
  Sum sum;
  for (std::size_t i = blocks; i > 0; i -= i & (~i + 1)) {
    sum.heights += tree_[i].heights;
    sum.known += tree_[i].known;
  }
  return sum;
}

double RowHeights::top(std::size_t row) const {
  const std::size_t block = row / kBlock;
  double distance = extent(sumOfBlocks(block), block * kBlock);
  for (std::size_t i = block * kBlock; i < row; ++i) distance += height(i) + spacing_;
  return distance;
}

std::size_t RowHeights::rowAt(double distance) const {
  if (count_ == 0) return 0;
  std::size_t block = 0;
  Sum before;
  std::size_t step = 1;
  while (step * 2 < tree_.size()) step *= 2;
  for (; step > 0; step /= 2) {
    // The last block may not be full, and no row lies beyond it.
    if (block + step >= tree_.size() - 1) continue;
    const Sum sum{before.heights + tree_[block + step].heights,
                  before.known + tree_[block + step].known};
    if (extent(sum, (block + step) * kBlock) > distance) continue;
    before = sum;
    block += step;
  }
  std::size_t row = block * kBlock;
  double bottom = extent(before, row) + height(row) + spacing_;
  while (row + 1 < count_ && bottom <= distance) bottom += height(++row) + spacing_;
  return row;
}

double RowHeights::total() const { return count_ == 0 ? 0 : extent(all_, count_) - spacing_; }

}  // namespace viewkit
