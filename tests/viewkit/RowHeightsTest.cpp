// SPDX-License-Identifier: MIT
#include "layout/RowHeights.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <vector>

namespace viewkit {
namespace {

constexpr double kSpacing = 2;

// The same answers, from a list in which every height is known.
double topIn(const std::vector<double>& heights, std::size_t row) {
  double top = 0;
  for (std::size_t i = 0; i < row; ++i) top += heights[i] + kSpacing;
  return top;
}

TEST(RowHeights, KnownHeightsAddUp) {
  std::mt19937 random(1);
  std::vector<double> heights(101);
  for (double& height : heights) height = static_cast<double>(random() % 60);
  RowHeights rows(kSpacing);
  rows.setCount(heights.size());
  for (const std::size_t first : {1, 0}) {
    for (std::size_t i = first; i < heights.size(); i += 2) rows.setHeight(i, heights[i]);
  }
  rows.setHeight(50, 7);
  heights[50] = 7;

  EXPECT_DOUBLE_EQ(rows.total(), topIn(heights, heights.size()) - kSpacing);
  for (std::size_t i = 0; i < heights.size(); ++i) {
    EXPECT_DOUBLE_EQ(rows.top(i), topIn(heights, i));
    EXPECT_EQ(rows.rowAt(rows.top(i) + heights[i] / 2), i);
  }
  EXPECT_EQ(rows.rowAt(rows.total() + 100), heights.size() - 1);
}

TEST(RowHeights, UnknownRowsHaveTheAverageHeight) {
  RowHeights rows(kSpacing);
  EXPECT_EQ(rows.total(), 0);
  rows.setCount(1000);
  rows.setHeight(3, 10);
  rows.setHeight(900, 30);
  EXPECT_DOUBLE_EQ(rows.height(500), 20);
  EXPECT_DOUBLE_EQ(rows.top(500), 10 + 499 * 20 + 500 * kSpacing);
  EXPECT_EQ(rows.rowAt(rows.top(700) + 1), 700U);
}

TEST(RowHeights, RemovedRowsAreForgottenAndTheOthersStay) {
  RowHeights rows(kSpacing);
  rows.setCount(100);
  rows.setHeight(10, 50);
  rows.setHeight(90, 10);
  rows.setCount(40);
  EXPECT_DOUBLE_EQ(rows.height(39), 50);
  rows.setCount(100);
  EXPECT_DOUBLE_EQ(rows.height(90), 50);
  EXPECT_DOUBLE_EQ(rows.total(), 100 * 50 + 99 * kSpacing);
}

}  // namespace
}  // namespace viewkit
