// SPDX-License-Identifier: MIT
#include "QEVCoreComponents/CaptureCockpitView.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/SettingRow.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVCommonTools/localized.hpp"
#include "fields/CheckedTextField.hpp"
#include "fields/FormGrid.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QEVCoreComponents {

using namespace viewkit;
using QEVCommonTools::CornerRadius;
using QEVCommonTools::formatted;
using QEVCommonTools::kCornerLow;
using QEVCommonTools::kCornerMed;
using QEVCommonTools::klear;
using QEVCommonTools::localized;
using QEVCommonTools::managed;
using QEVCommonTools::points;
using QEVCommonTools::settingRow;
using QEVCommonTools::Spacing;
using QEVCommonTools::trimmed;

namespace {

constexpr double kListHeight = 150;
constexpr double kNumberWidth = 110;

using Model = std::shared_ptr<QEVCaptureViewModel>;
using NumberGetter = std::int64_t (QEVCaptureViewModel::*)() const;
using NumberSetter = void (QEVCaptureViewModel::*)(std::int64_t);

// The machine's interfaces, and the chosen one even while the machine has none of its name.
std::vector<NetworkInterface> listedInterfaces(const QEVCaptureViewModel& model) {
  std::vector<NetworkInterface> interfaces = model.interfaces();
  const std::string chosen = model.interfaceName();
  if (!chosen.empty() &&
      std::ranges::find(interfaces, chosen, &NetworkInterface::name) == interfaces.end()) {
    interfaces.push_back({.name = chosen, .addresses = {}, .isUp = false});
  }
  return interfaces;
}

std::string effectiveInterface(const QEVCaptureViewModel& model,
                               const std::vector<NetworkInterface>& interfaces) {
  if (std::string chosen = model.interfaceName(); !chosen.empty()) return chosen;
  const auto up = std::ranges::find(interfaces, true, &NetworkInterface::isUp);
  return up != interfaces.end() ? up->name : "";
}

// Each keeps its own order of characters within a line that runs from right to left.
std::string listed(const std::vector<std::string>& addresses) {
  constexpr std::string_view kLeftToRightIsolate = "\u2066";
  constexpr std::string_view kPopIsolate = "\u2069";
  std::string all;
  for (const std::string& address : addresses) {
    if (!all.empty()) all += ", ";
    all.append(kLeftToRightIsolate).append(address).append(kPopIsolate);
  }
  return all;
}

View interfaceRow(const NetworkInterface& interface, bool isSelected, const Model& model) {
  const Color text = isSelected ? Color::selectedText() : Color::primary();
  const Color detail = isSelected ? Color::selectedText() : Color::secondary();

  const View content = HStack({.spacing = points(Spacing::s6)},
                              {
                                  Text(interface.name).foreground(text).fixedSize(),
                                  Text(listed(interface.addresses))
                                      .font(Font::callout())
                                      .foreground(detail)
                                      .lineLimit(1),
                                  Spacer(0),
                                  Text(localized(interface.isUp ? "up" : "down"))
                                      .font(Font::callout())
                                      .foreground(detail)
                                      .fixedSize(),
                              })
                           .padding(Edges::vertical, Spacing::s3)
                           .padding(Edges::horizontal, Spacing::s5)
                           .background(isSelected ? Color::accent() : klear())
                           .clipped(kCornerMed);

  return content.onTap([model, name = interface.name] { model->setInterfaceName(name); })
      .accessibilityRole(Role::listItem)
      .accessibilitySelected(isSelected);
}

// Takes a number over that lies in its range.
std::optional<std::string> setNumber(std::string_view text, const NumberRange& range,
                                     const Model& model, NumberSetter setter) {
  const std::string_view digits = trimmed(text);
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size() || !range.contains(number)) {
    return formatted(localized("Type a whole number from %@ to %@"),
                     {std::to_string(range.lowest), std::to_string(range.highest)});
  }
  ((*model).*setter)(number);
  return std::nullopt;
}

View numberField(const std::string& label, std::string_view key, const NumberRange& range,
                 const Model& model, NumberGetter getter, NumberSetter setter) {
  return CheckedTextField{
      .label = label,
      .value = std::to_string(((*model).*getter)()),
      .commit = [=](std::string_view text) { return setNumber(text, range, model, setter); },
      .isManaged = model->isManaged(key),
      .width = fieldWidth(kNumberWidth, std::to_string(range.highest))};
}

std::optional<std::string> setFilter(std::string_view text, const Model& model) {
  const std::string_view filter = trimmed(text);
  int open = 0;
  for (const char c : filter) {
    if (c == '(') ++open;
    if (c == ')' && --open < 0) break;
  }
  if (open != 0) return localized("The parentheses do not match: each “(” needs a “)” after it");
  model->setCaptureFilter(filter);
  return std::nullopt;
}

Binding<bool> switchBinding(const Model& model, bool (QEVCaptureViewModel::*getter)() const,
                            void (QEVCaptureViewModel::*setter)(bool)) {
  return {[=] { return ((*model).*getter)(); }, [=](bool isOn) { ((*model).*setter)(isOn); }};
}

}  // namespace

View CaptureCockpitView::body() const {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s6)},
                {
                    Text(localized("Capture on"))
                        .font(Font::body().semibold())
                        .accessibilityRole(Role::heading),
                    interfaceList(),
                    options(),
                });
}

View CaptureCockpitView::interfaceList() const {
  const Model& model = viewModel.get();
  const std::vector<NetworkInterface> interfaces = listedInterfaces(*model);
  const std::string effective = effectiveInterface(*model, interfaces);
  const auto name = [](const NetworkInterface& each) { return each.name; };
  const auto row = [&](const NetworkInterface& each) {
    return interfaceRow(each, each.name == effective, model);
  };

  const auto selected = std::ranges::find(interfaces, effective, &NetworkInterface::name);
  const ListItems items{
      .count = static_cast<int>(interfaces.size()),
      .selected =
          selected != interfaces.end() ? static_cast<int>(selected - interfaces.begin()) : -1,
      .select = [model, interfaces](int index) {
        model->setInterfaceName(interfaces.at(static_cast<std::size_t>(index)).name);
      }};

  const View list =
      ScrollView(
          {.list = items},
          VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s0)},
                 {
                     interfaces.empty() ? Text(localized("This machine has no network interface"))
                                              .foreground(Color::secondary())
                                        : View(),
                     forEach(interfaces, name, row),
                 })
              .padding(Spacing::s3))
          .accessibilityLabel(localized("Capture on"))
          .frame(FixedFrame{.height = kListHeight})
          .background(Color::controlBackground())
          .modifier(CornerRadius{.radius = kCornerLow});
  return settingRow({std::string(QEVCaptureViewModel::kInterfaceKey)},
                    managed(list, model->isManaged(QEVCaptureViewModel::kInterfaceKey)));
}

View CaptureCockpitView::options() const {
  const Model& model = viewModel.get();
  const std::string promiscuous = localized("Promiscuous mode");
  const std::string snapshotLength = localized("Snapshot length (bytes)");
  const std::string bufferSize = localized("Buffer size (MiB)");
  const std::string filter = localized("Capture filter");
  const std::string ring = localized("Ring of files");
  const std::string fileCount = localized("Number of files");
  const std::string fileSize = localized("Size of a file (MiB)");
  const bool usesRing = model->usesRingOfFiles();
  using Capture = QEVCaptureViewModel;

  const auto row = [](const std::string& label, std::string_view key, const View& control) {
    return formRow(label, control, {std::string(key)});
  };

  return formGrid({
      row(promiscuous, Capture::kPromiscuousKey,
          managed(Toggle(switchBinding(model, &Capture::isPromiscuous, &Capture::setPromiscuous),
                         ToggleControl::Size::small)
                      .accessibilityLabel(promiscuous),
                  model->isManaged(Capture::kPromiscuousKey))),
      row(snapshotLength, Capture::kSnapshotLengthKey,
          numberField(snapshotLength, Capture::kSnapshotLengthKey, Capture::kSnapshotLength, model,
                      &Capture::snapshotLength, &Capture::setSnapshotLength)),
      row(bufferSize, Capture::kBufferSizeKey,
          numberField(bufferSize, Capture::kBufferSizeKey, Capture::kBufferSize, model,
                      &Capture::bufferSize, &Capture::setBufferSize)),
      row(filter, Capture::kFilterKey,
          CheckedTextField{
              .label = filter,
              .placeholder = localized("all packets"),
              .value = model->captureFilter(),
              .commit = [model](std::string_view text) { return setFilter(text, model); },
              .isManaged = model->isManaged(Capture::kFilterKey)}),
      row(ring, Capture::kUsesRingKey,
          managed(
              Toggle(switchBinding(model, &Capture::usesRingOfFiles, &Capture::setUsesRingOfFiles),
                     ToggleControl::Size::small)
                  .accessibilityLabel(ring),
              model->isManaged(Capture::kUsesRingKey))),
      row(fileCount, Capture::kRingFileCountKey,
          numberField(fileCount, Capture::kRingFileCountKey, Capture::kRingFileCount, model,
                      &Capture::ringFileCount, &Capture::setRingFileCount)
              .disabled(!usesRing)),
      row(fileSize, Capture::kRingFileSizeKey,
          numberField(fileSize, Capture::kRingFileSizeKey, Capture::kRingFileSize, model,
                      &Capture::ringFileSize, &Capture::setRingFileSize)
              .disabled(!usesRing)),
  });
}

}  // namespace QEVCoreComponents
