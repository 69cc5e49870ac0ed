// SPDX-License-Identifier: MIT
#include "analyzers/QEVAnalyzerSettingsView.hpp"

#include "QEVModels/QEVPlugInsController.hpp"
#include "analyzers/AnalyzerSettingsDetailView.hpp"
#include "analyzers/AnalyzertSettingRowView.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Animation.hpp"
#include "viewkit/GroupBox.hpp"
#include "viewkit/LazyVStack.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"
#include "window/isEditingText.hpp"

#include <algorithm>
#include <functional>
#include <utility>

namespace QEVSettings {

using namespace viewkit;
using appkit::Event;
using QEVModels::QEVPlugInsController;

namespace {

// Reads the selection in a body of its own, so that a new selection does not rebuild the list.
struct FollowingSelection {
  View list;
  StoredPreference<std::int64_t> selection;
  std::function<void(std::int64_t)> select;

  View body() const { return list.onChange<std::int64_t>(selection, select); }
};

struct DetailBox {
  Binding<std::shared_ptr<AnalyzerSettingDetailsViewModel>> selectedItem;

  View body() const {
    const std::shared_ptr<AnalyzerSettingDetailsViewModel> selected = selectedItem.get();
    if (!selected) {
      return View(GroupBox{VStack({},
                                  {
                                      Spacer(),
                                      Text(localized("Nothing selected")).font(Font::title()),
                                      Spacer(),
                                  })
                               .frame(FlexibleFrame{.maxWidth = kUnlimited})})
          .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::leading()});
    }
    return View(GroupBox{ScrollView({.showsIndicators = true},
                                    View(AnalyzerSettingsDetailView{.model = selected})
                                        .frame(FlexibleFrame{.maxWidth = kUnlimited,
                                                             .alignment = Alignment::leading()}))
                             .id(selected->pluginStruct.get().id.text())})
        .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::leading()});
  }
};

}  // namespace

View QEVAnalyzerSettingsView::body() const {
  return HStack({.alignment = VerticalAlignment::top, .spacing = 16},
                {
                    listBox(),
                    DetailBox{.selectedItem = selectedItem_.binding()},
                })
      .frame(FlexibleFrame{.maxWidth = kUnlimited,
                           .minHeight = 520,
                           .maxHeight = 520,
                           .alignment = Alignment::topLeading()});
}

View QEVAnalyzerSettingsView::listBox() const {
  return GroupBox{ScrollViewReader([self = *this](const ScrollProxy& list) {
    const auto row = [self](std::size_t i) {
      return View(AnalyzertSettingRowView{.model = self.detailsModelProvider_->detailsViewModel(
                                              self.pluginStructs()[i])})
          .onTap([self, i] { self.selection_.set(static_cast<std::int64_t>(i)); });
    };
    // The key monitor moves the selection, so the list does not.
    const View analyzers =
        ScrollView({.showsIndicators = false, .list = ListItems{}},
                   LazyVStack({.alignment = HorizontalAlignment::leading, .spacing = 2},
                              {.count = self.pluginStructs().size(), .row = row}))
            .accessibilityLabel(localized("Analyzer"))
            .frame(FixedFrame{.width = 150, .alignment = Alignment::leading()})
            .onAppear([self, list] { self.appear(list); })
            .onDisappear([self] { self.disappear(); });
    return FollowingSelection{
        .list = analyzers,
        .selection = self.selection_,
        .select = [self, list](std::int64_t index) { self.select(index, list); }};
  })};
}

void QEVAnalyzerSettingsView::appear(const ScrollProxy& list) const {
  if (!keyMonitor_.get()) {
    keyMonitor_.set(Event::addLocalMonitorForEventsMatchingMask(Event::kKeyDownMask,
                                                                [self = *this](const Event& event) {
                                                                  self.handleKey(event);
                                                                  return std::optional(event);
                                                                }));
  }
  if (pluginStructs().empty()) return;
  const auto last = static_cast<std::int64_t>(pluginStructs().size()) - 1;
  const std::int64_t index = std::clamp<std::int64_t>(selection_, 0, last);
  selection_.set(index);
  select(index, list);
}

void QEVAnalyzerSettingsView::disappear() const {
  if (const auto monitor = keyMonitor_.get()) {
    Event::removeMonitor(monitor);
    keyMonitor_.set(nullptr);
  }
  if (selectedItem_.get()) selectedItem_.get()->isActive = false;
  selectedItem_.set(nullptr);
}

void QEVAnalyzerSettingsView::select(std::int64_t index, const ScrollProxy& list) const {
  // The arrow keys count the registry, which may have grown since the list was made.
  if (index < 0 || std::cmp_greater_equal(index, pluginStructs().size())) return;
  if (selectedItem_.get()) selectedItem_.get()->isActive = false;
  withAnimation([&] {
    selectedItem_.set(
        detailsModelProvider_->detailsViewModel(pluginStructs()[static_cast<std::size_t>(index)]));
  });
  if (selectedItem_.get()) selectedItem_.get()->isActive = true;
  list.scrollTo(index);
}

void QEVAnalyzerSettingsView::handleKey(const Event& event) const {
  if (isEditingText()) return;
  const std::int64_t selection = selection_;
  switch (event.keyCode) {
    case Event::kDownArrow: {
      const auto count =
          static_cast<std::int64_t>(QEVPlugInsController::sharedManager().plugInStructs().size());
      selection_.set(selection < count - 1 ? selection + 1 : 0);
      return;
    }
    case Event::kUpArrow: selection_.set(selection >= 2 ? selection - 1 : 0); return;
    default: return;
  }
}

}  // namespace QEVSettings
