// SPDX-License-Identifier: MIT
#include "viewkit/TabView.hpp"

#include "controls/ControlNode.hpp"
#include "tree/Node.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

namespace {

// Between the header, the bar and the page.
constexpr double kSpacing = 8;
// Beside the bar, for the accessory.
constexpr double kLeastRoom = 56;

class TabViewValue final : public ViewValue {
public:
  TabViewValue(std::vector<detail::TabPage> pages, std::int64_t selected,
               std::function<void(std::int64_t)> select, View header, View accessory)
      : pages(std::move(pages)),
        selected(selected),
        select(std::move(select)),
        header(std::move(header)),
        accessory(std::move(accessory)) {}

  std::unique_ptr<Node> makeNode() const override;
  std::string kind() const override { return "TabView"; }

  // The page that is seen: the first where none has the selected tag.
  std::size_t shown() const {
    const auto found = std::find_if(pages.begin(), pages.end(),
                                    [&](const auto& page) { return page.tag == selected; });
    return found == pages.end() ? 0 : static_cast<std::size_t>(found - pages.begin());
  }

  const std::vector<detail::TabPage> pages;
  const std::int64_t selected;
  const std::function<void(std::int64_t)> select;
  const View header;
  const View accessory;
};

class TabViewNode final : public Node {
public:
  std::optional<Axis> stackAxis() const override { return Axis::vertical; }

  void visitChildren(const Visitor& visit) override {
    if (header_) visit(*header_);
    if (bar_) visit(*bar_);
    for (Page& page : pages_) visit(*page.node);
    if (accessory_) visit(*accessory_);
  }

  void visitShownChildren(const Visitor& visit) override {
    if (header_) visit(*header_);
    if (bar_) visit(*bar_);
    if (Node* page = shownPage()) visit(*page);
    if (accessory_) visit(*accessory_);
  }

protected:
  void apply(const ViewValue* before) override {
    static_cast<void>(before);
    const auto& value = valueAs<TabViewValue>();
    reconcile(header_, value.header, inheritedByChildren());
    reconcile(bar_, describeBar(), inheritedByChildren());
    reconcile(accessory_, value.accessory, inheritedByChildren());
    dropMissingPages();
    if (value.pages.empty()) {
      hasShown_ = false;
      return;
    }
    const detail::TabPage& next = value.pages[value.shown()];
    Node* const previous = shownPage();
    const bool switches = !previous || shownTag_ != next.tag;
    if (switches && previous) previous->setActive(false);
    shownTag_ = next.tag;
    hasShown_ = true;
    auto page = std::find_if(pages_.begin(), pages_.end(),
                             [&](const Page& each) { return each.tag == next.tag; });
    if (page == pages_.end()) {
      pages_.push_back({next.tag, nullptr});
      page = std::prev(pages_.end());
    }
    reconcile(page->node, next.page, inheritedByChildren());
    if (!page->node) {
      pages_.erase(page);
    } else {
      page->node->setActive(isActive());
    }
    if (switches) childrenChanged();
  }

  Measurement measure(const ProposedSize& proposal) override {
    const Size bar = bar_->sizeThatFits({proposal.width, std::nullopt});
    Node* const node = shownPage();
    // The page gets the height that the header leaves, and the header the width that the page
    // takes.
    double width = std::max(bar.width, proposal.width.value_or(0));
    if (node)
      width =
          std::max(width, node->sizeThatFits(pageProposal(proposal, bar.height + kSpacing)).width);
    const double top = headerHeight(width) + accessoryRowHeight(width, bar) + bar.height + kSpacing;
    const Size page = node ? node->sizeThatFits(pageProposal(proposal, top)) : Size{};
    return {{std::max(width, page.width), top + page.height}};
  }

  void placeChildren() override {
    const double header = headerHeight(size().width);
    if (header_) placeChild(*header_, {0, 0}, {size().width, header - kSpacing});
    const Size bar = bar_->sizeThatFits({size().width, std::nullopt});
    const double barTop = header + accessoryRowHeight(size().width, bar);
    placeChild(*bar_, {std::floor((size().width - bar.width) / 2), barTop}, bar);
    if (accessory_) placeAccessory(header, bar);
    Node* const node = shownPage();
    if (!node) return;
    const double top = barTop + bar.height + kSpacing;
    const Size page = node->sizeThatFits(pageProposal({size().width, size().height}, top));
    placeChild(*node, {std::floor((size().width - page.width) / 2), top}, page);
  }

private:
  struct Page {
    std::int64_t tag;
    std::unique_ptr<Node> node;
  };

  // `top` is the height of what stands above the page.
  static ProposedSize pageProposal(const ProposedSize& proposal, double top) {
    std::optional<double> height = proposal.height;
    if (height) *height = std::max(0.0, *height - top);
    return {proposal.width, height};
  }

  // Including the space below it; 0 without a header.
  double headerHeight(double width) const {
    return header_ ? header_->sizeThatFits({width, std::nullopt}).height + kSpacing : 0;
  }

  // The width that the centred bar leaves at its trailing end; nothing where that is too little.
  static std::optional<double> roomBeside(const Size& bar, double width) {
    const double room = std::floor((width - bar.width) / 2) - kSpacing;
    return room >= kLeastRoom ? std::optional(room) : std::nullopt;
  }

  // The row above the bar, including the space below it; 0 where the accessory is beside the bar.
  double accessoryRowHeight(double width, const Size& bar) const {
    if (!accessory_ || roomBeside(bar, width)) return 0;
    return accessory_->sizeThatFits({width, std::nullopt}).height + kSpacing;
  }

  // `top` is where the row of the bar, or of the accessory above it, begins.
  void placeAccessory(double top, const Size& bar) {
    const auto room = roomBeside(bar, size().width);
    const Size accessory = accessory_->sizeThatFits({room.value_or(size().width), std::nullopt});
    const double below = room ? std::floor((bar.height - accessory.height) / 2) : 0;
    placeChild(*accessory_, {size().width - accessory.width, top + below}, accessory);
  }

  Node* shownPage() {
    if (!hasShown_) return nullptr;
    const auto page = std::find_if(pages_.begin(), pages_.end(),
                                   [&](const Page& p) { return p.tag == shownTag_; });
    return page == pages_.end() ? nullptr : page->node.get();
  }

  View describeBar() const {
    const auto& value = valueAs<TabViewValue>();
    TabBarControl bar;
    bar.items.reserve(value.pages.size());
    for (const detail::TabPage& page : value.pages) bar.items.push_back({page.title, page.symbol});
    bar.selected = static_cast<int>(value.shown());
    std::vector<std::int64_t> tags;
    tags.reserve(value.pages.size());
    for (const detail::TabPage& page : value.pages) tags.push_back(page.tag);
    bar.select = [tags = std::move(tags), select = value.select](int index) {
      if (index >= 0 && static_cast<std::size_t>(index) < tags.size())
        select(tags[static_cast<std::size_t>(index)]);
    };
    const std::string title =
        value.pages.empty() ? std::string() : value.pages[value.shown()].title;
    return makeControl("TabBar", std::move(bar), {.role = Role::tabList, .value = title});
  }

  void dropMissingPages() {
    const auto& described = valueAs<TabViewValue>().pages;
    for (std::size_t i = pages_.size(); i-- > 0;) {
      const auto isThis = [&](const detail::TabPage& page) { return page.tag == pages_[i].tag; };
      if (std::any_of(described.begin(), described.end(), isThis)) continue;
      std::unique_ptr<Node> node = std::move(pages_[i].node);
      pages_.erase(pages_.begin() + static_cast<std::ptrdiff_t>(i));
      removeChild(std::move(node));
      childrenChanged();
    }
  }

  std::unique_ptr<Node> header_;
  std::unique_ptr<Node> bar_;
  std::unique_ptr<Node> accessory_;
  std::vector<Page> pages_;
  std::int64_t shownTag_ = 0;
  bool hasShown_ = false;
};

std::unique_ptr<Node> TabViewValue::makeNode() const { return std::make_unique<TabViewNode>(); }

}  // namespace

View detail::makeTabView(std::vector<TabPage> pages, std::int64_t selected,
                         std::function<void(std::int64_t)> select, View header, View accessory) {
  return View(std::make_shared<const TabViewValue>(std::move(pages), selected, std::move(select),
                                                   std::move(header), std::move(accessory)));
}

}  // namespace viewkit
