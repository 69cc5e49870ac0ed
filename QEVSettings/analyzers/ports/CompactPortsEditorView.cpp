// SPDX-License-Identifier: MIT
#include "analyzers/ports/CompactPortsEditorView.hpp"

#include "QEVCommonTools/Hairline.hpp"
#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/RoundedBorderStyle.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVCoreComponents/ProtocolPortInputField.hpp"
#include "analyzers/AnalyzerError.hpp"
#include "analyzers/options/CompactAnalyzerOptionsView.hpp"
#include "analyzers/ports/PortNameCell.hpp"
#include "analyzers/ports/PortSourceCell.hpp"
#include "analyzers/ports/PortsSectionHeader.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "rows/SettingRow.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::Hairline;
using QEVCommonTools::managedMark;
using QEVCommonTools::points;
using QEVCommonTools::RoundedBorderStyle;
using QEVCommonTools::Spacing;
using QEVCoreComponents::ProtocolPortInputField;

namespace {

View columnTitle(const std::string& title) {
  return Text(title).font(Font::caption2()).uppercased().foreground(Color::secondary());
}

View disabledIf(bool isDisabled, const View& control) {
  return isDisabled ? control.disabled(true) : control;
}

GridRow headerRow(bool isManaged) {
  const View ports = columnTitle(localized("Ports"));
  return {.cells = {
              columnTitle(localized("Name")),
              isManaged
                  ? HStack({.spacing = points(Spacing::s4)}, {ports.fixedSize(), managedMark()})
                  : ports,
              columnTitle(localized("Source")),
          }};
}

GridRow protocolRow(const PortsEditing::Row& row, const std::vector<std::string>& names,
                    const std::shared_ptr<const PortsEditing>& editing, bool isManaged) {
  return {.cells =
              {
                  disabledIf(isManaged, PortNameCell{.model = row->model(),
                                                     .names = names,
                                                     .onPick =
                                                         [editing, row](const std::string& name) {
                                                           editing->pickName(row, name);
                                                         }}),
                  View(ProtocolPortInputField{
                           .titleKey = "",
                           .placeholderKey = "Protocol Ports",
                           .model = row->model(),
                           .helperText = Binding<std::optional<std::string>>::constant(""),
                           .disableAutocorrection = true,
                           .borderStyle = RoundedBorderStyle::line,
                           .lineLimit = 4,
                           .isManaged = isManaged,
                           .onCommit = [editing, row] { editing->commitPorts(row); },
                           .onRevert = [editing, row] { editing->revertPorts(row); }})
                      .frame(FlexibleFrame{.minWidth = 120}),
                  disabledIf(isManaged, PortSourceCell{.model = row->model(),
                                                       .onPick =
                                                           [editing, row](std::int64_t source) {
                                                             editing->pickSource(row, source);
                                                           }}),
              },
          .verticalPadding = points(Spacing::s4),
          .id = row->id().text()};
}

}  // namespace

View CompactPortsEditorView::body() const {
  const auto editing = std::make_shared<const PortsEditing>(
      ports, controller, Environment::current().defaultStore.get(),
      Environment::current().object<SettingWriter>(),
      PortsEditing::ViewState{.rows = rows.binding(),
                              .session = session.binding(),
                              .resetError = resetError.binding(),
                              .isManaged = isManaged.binding()});

  std::vector<GridRow> table{headerRow(isManaged.get())};
  for (const PortsEditing::Row& row : rows.get()) {
    table.push_back(protocolRow(row, ports.defaultProtocolNames, editing, isManaged.get()));
  }

  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s6)},
                {
                    View(CompactAnalyzerOptionsView{.config = config})
                        .frame(FlexibleFrame{.minHeight = 140, .alignment = Alignment::top()}),
                    Hairline{.color = Color::separator()},
                    PortsSectionHeader{},
                    settingRow({ports.networkProtocolKey},
                               Grid({.horizontalAlignment = HorizontalAlignment::leading,
                                     .verticalAlignment = VerticalAlignment::firstTextBaseline,
                                     .horizontalSpacing = points(Spacing::s6),
                                     .verticalSpacing = points(Spacing::s5)},
                                    std::move(table)))
                        .frame(FlexibleFrame{.minHeight = 120, .alignment = Alignment::top()}),
                    HStack({},
                           {
                               analyzerErrorText(resetError),
                               Spacer(),
                               disabledIf(isManaged.get(),
                                          Button(localized("Reset"), "arrow.counterclockwise",
                                                 [editing] { editing->reset(); })
                                              .help(localized("Reset to default ports"))),
                           }),
                })
      .onAppear([editing] { editing->load(); })
      .onDisappear([editing] { editing->flush(); });
}

}  // namespace QEVSettings
