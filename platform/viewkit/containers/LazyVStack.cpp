// SPDX-License-Identifier: MIT
#include "viewkit/LazyVStack.hpp"

#include "layout/RowHeights.hpp"
#include "tree/Node.hpp"
#include "tree/ScrollRegion.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

namespace viewkit {

namespace {

// Rows kept beyond both ends of what is in sight, so that scrolling a little builds nothing.
constexpr std::size_t kRowsBeyond = 2;
// How often more rows are built in one placement because those in sight were lower than estimated.
constexpr int kRounds = 16;

// A view of its own, so that what `make` reads is recorded as read by a body.
struct LazyRow {
  std::function<View(std::size_t)> make;
  std::size_t index;

  View body() const { return make(index); }
};

class LazyValue final : public ViewValue {
public:
  LazyValue(const VStackOptions& options, LazyRows rows)
      : options(options), rows(std::move(rows)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "LazyVStack"; }

  const VStackOptions options;
  const LazyRows rows;
};

class LazyNode final : public Node {
public:
  ~LazyNode() override {
    if (scroll_) scroll_->removeDependent(*this);
  }

  void visitChildren(const Visitor& visit) override {
    for (const auto& row : rows_) visit(*row);
  }

  std::optional<Rect> frameOf(const ViewId& id) const override {
    const auto* row = std::get_if<std::int64_t>(&id);
    if (!row || *row < 0 || static_cast<std::size_t>(*row) >= heights_->count())
      return std::nullopt;
    const auto index = static_cast<std::size_t>(*row);
    return Rect{{0, heights_->top(index)}, {size().width, heights_->height(index)}};
  }

protected:
  void apply(const ViewValue* before) override {
    const auto* last = static_cast<const LazyValue*>(before);
    if (!last || last->options.spacing != value().options.spacing) {
      heights_ = std::make_unique<RowHeights>(value().options.spacing);
    }
    if (!last) {
      for (Node* node = parent(); node && !scroll_; node = node->parent())
        scroll_ = node->scrollRegion();
      if (scroll_) scroll_->addDependent(*this);
    }
    const std::size_t count = value().rows.count;
    const bool isAnotherCount = count != heights_->count();
    heights_->setCount(count);
    while (!rows_.empty() && first_ + rows_.size() > count) removeRow(rows_.size() - 1);
    for (std::size_t i = 0; i < rows_.size(); ++i)
      rows_[i]->become(describeRow(first_ + i), inheritedByChildren());
    // At least one row is built: it gives the width, and the first estimate of the height.
    if (rows_.empty() && count > 0) {
      first_ = 0;
      addRow(0);
    }
    if (last && (isAnotherCount || last->options.spacing != value().options.spacing ||
                 last->options.alignment != value().options.alignment)) {
      layoutChanged();
    }
  }

  Measurement measure(const ProposedSize& proposal) override {
    if (rows_.empty()) return {};
    double width = proposal.width.value_or(0);
    for (const auto& row : rows_) {
      const Size size = row->sizeThatFits({proposal.width, std::nullopt});
      if (!proposal.width) width = std::max(width, size.width);
    }
    if (heights_->count() == 0) return {{width, 0}};
    return {{width, heights_->total()}};
  }

  void placeChildren() override {
    if (heights_->count() == 0) return;
    const double before = heights_->total();
    const Rect sight = visible();
    const std::size_t anchor = heights_->rowAt(sight.origin.y);
    const double anchorTop = heights_->top(anchor);
    for (int round = 0; round < kRounds && buildRowsInSight(sight); ++round) {
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      const Size row = rows_[i]->sizeThatFits({size().width, std::nullopt});
      const double x = aligned(row, size(), {.horizontal = value().options.alignment}).x;
      placeChild(*rows_[i], {x, heights_->top(first_ + i)}, row);
    }
    if (heights_->total() != before) layoutChanged();
    // The rows above turned out higher or lower than estimated. Content and offset move by the same
    // distance, so that what is in sight stays where it is.
    const double moved = heights_->top(anchor) - anchorTop;
    if (scroll_ && moved != 0 && sight.origin.y > 0)
      scroll_->scrollTo(scroll_->visibleRect().origin + Point{0, moved});
  }

private:
  const LazyValue& value() const { return valueAs<LazyValue>(); }

  View describeRow(std::size_t index) const { return LazyRow{value().rows.row, index}; }

  // In the stack's own coordinates.
  Rect visible() const {
    if (!scroll_) return {{}, size()};
    return scroll_->visibleRect().movedBy(Point{} - originWithin(scroll_->content()));
  }

  void addRow(std::size_t index) {
    auto row = makeChild(describeRow(index), inheritedByChildren());
    if (index < first_) {
      rows_.push_front(std::move(row));
      first_ = index;
    } else {
      rows_.push_back(std::move(row));
    }
    shownChildrenChanged();
  }

  void removeRow(std::size_t place) {
    std::unique_ptr<Node> row = std::move(rows_[place]);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(place));
    if (place == 0) ++first_;
    removeChild(std::move(row));
    shownChildrenChanged();
  }

  // Returns whether any row has another height than was estimated.
  bool buildRowsInSight(const Rect& sight) {
    const std::size_t last =
        std::min(heights_->rowAt(sight.maxY()) + kRowsBeyond, heights_->count() - 1);
    const std::size_t top = heights_->rowAt(sight.origin.y);
    const std::size_t first = top > kRowsBeyond ? top - kRowsBeyond : 0;
    while (!rows_.empty() && first_ < first) removeRow(0);
    while (!rows_.empty() && first_ + rows_.size() - 1 > last) removeRow(rows_.size() - 1);
    if (rows_.empty()) {
      first_ = first;
      addRow(first);
    }
    while (first_ > first) addRow(first_ - 1);
    while (first_ + rows_.size() <= last) addRow(first_ + rows_.size());
    bool isOther = false;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      const double height = rows_[i]->sizeThatFits({size().width, std::nullopt}).height;
      isOther = isOther || height != heights_->height(first_ + i);
      heights_->setHeight(first_ + i, height);
    }
    return isOther;
  }

  ScrollRegion* scroll_ = nullptr;
  std::unique_ptr<RowHeights> heights_;
  // The rows that are built are consecutive; `first_` is the index of the first.
  std::size_t first_ = 0;
  std::deque<std::unique_ptr<Node>> rows_;
};

std::unique_ptr<Node> LazyValue::makeNode() const { return std::make_unique<LazyNode>(); }

}  // namespace

View LazyVStack(const VStackOptions& options, LazyRows rows) {
  return View(std::make_shared<const LazyValue>(options, std::move(rows)));
}

}  // namespace viewkit
