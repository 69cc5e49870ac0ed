// SPDX-License-Identifier: MIT
#include "viewkit/Grid.hpp"

#include "layout/GridLayout.hpp"
#include "tree/ContainerNode.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace viewkit {

namespace {

class GridValue final : public ViewValue {
public:
  GridValue(const GridOptions& options, std::vector<GridRow> rows)
      : options(options), rows(std::move(rows)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "Grid"; }

  const GridOptions options;
  const std::vector<GridRow> rows;
};

class GridRowValue final : public ViewValue {
public:
  explicit GridRowValue(Children cells) : cells(std::move(cells)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "GridRow"; }

  const Children cells;
};

// Only holds its cells: the grid measures and places them, all rows at once.
class GridRowNode final : public ContainerNode {
public:
  using ContainerNode::children;

  // Whatever changes in a row may change the columns of all.
  bool cachesMeasurements() const override { return false; }

  void placeCells(std::span<const Rect> frames) {
    for (std::size_t i = 0; i < frames.size(); ++i)
      placeChild(*children()[i], frames[i].origin, frames[i].size);
  }

protected:
  void apply(const ViewValue* before) override {
    static_cast<void>(before);
    reconcileChildren(valueAs<GridRowValue>().cells.all());
  }
  Measurement measure(const ProposedSize& proposal) override {
    static_cast<void>(proposal);
    return {};
  }
};

std::unique_ptr<Node> GridRowValue::makeNode() const { return std::make_unique<GridRowNode>(); }

class GridNode final : public ContainerNode {
protected:
  void apply(const ViewValue* before) override {
    const auto& rows = valueAs<GridValue>().rows;
    std::vector<Children::Child> described;
    described.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const ChildKey key{.position = rows[i].id ? 0 : static_cast<int>(i), .id = rows[i].id};
      described.push_back({key, View(std::make_shared<const GridRowValue>(rows[i].cells))});
    }
    reconcileChildren(described);
    if (before && !looksLike(*static_cast<const GridValue*>(before))) layoutChanged();
  }

  Measurement measure(const ProposedSize& proposal) override { return layOut(proposal); }

  void placeChildren() override {
    layOut({size().width, size().height},
           [this](std::size_t i, const Rect& frame, std::span<const Rect> cells) {
             auto& row = static_cast<GridRowNode&>(*children()[i]);
             placeChild(row, frame.origin, frame.size);
             row.placeCells(cells);
           });
  }

private:
  bool looksLike(const GridValue& last) const {
    const auto& value = valueAs<GridValue>();
    const auto& a = value.options;
    const auto& b = last.options;
    return a.horizontalAlignment == b.horizontalAlignment &&
           a.verticalAlignment == b.verticalAlignment &&
           a.horizontalSpacing == b.horizontalSpacing && a.verticalSpacing == b.verticalSpacing &&
           std::equal(value.rows.begin(), value.rows.end(), last.rows.begin(), last.rows.end(),
                      [](const GridRow& x, const GridRow& y) {
                        return x.verticalPadding == y.verticalPadding;
                      });
  }

  Measurement layOut(const ProposedSize& proposal, const GridLayout::Place& place = {}) {
    const auto& value = valueAs<GridValue>();
    Scratch scratch;
    std::pmr::vector<GridLayout::Row> rows(scratch.memory());
    rows.reserve(children().size());
    for (std::size_t i = 0; i < children().size(); ++i) {
      rows.push_back(
          {static_cast<GridRowNode&>(*children()[i]).children(), value.rows[i].verticalPadding});
    }
    return GridLayout{value.options}.layOut(rows, proposal, place);
  }
};

std::unique_ptr<Node> GridValue::makeNode() const { return std::make_unique<GridNode>(); }

}  // namespace

View Grid(const GridOptions& options, std::vector<GridRow> rows) {
  return View(std::make_shared<const GridValue>(options, std::move(rows)));
}

}  // namespace viewkit
