#include "analyzers/ports/CompactPortsEditorView.hpp"

#include "QEVCommonTools/Hairline.hpp"
#include "QEVCommonTools/RoundedBorderStyle.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVCoreComponents/ProtocolPortInputField.hpp"
#include "analyzers/AnalyzerError.hpp"
#include "analyzers/options/CompactAnalyzerOptionsView.hpp"
#include "analyzers/ports/PortNameCell.hpp"
#include "analyzers/ports/PortSourceCell.hpp"
#include "analyzers/ports/PortsSectionHeader.hpp"
#include "resources/resource_bundle_accessor.hpp"
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
using QEVCommonTools::points;
using QEVCommonTools::RoundedBorderStyle;
using QEVCommonTools::Spacing;
using QEVCoreComponents::ProtocolPortInputField;

namespace {

View columnTitle(const std::string& title) {
  return Text(title).font(Font::caption2()).uppercased().foreground(Color::secondary());
}

GridRow headerRow() {
  return {.cells = {
              columnTitle(localized("Name")),
              columnTitle(localized("Ports")),
              columnTitle(localized("Source")),
          }};
}

GridRow protocolRow(const PortsEditing::Row& row, const std::vector<std::string>& names,
                    const std::shared_ptr<const PortsEditing>& editing) {
  return {.cells =
              {
                  PortNameCell{
                      .model = row->model(),
                      .names = names,
                      .onPick = [editing,
                                 row](const std::string& name) { editing->pickName(row, name); }},
                  View(ProtocolPortInputField{
                           .titleKey = "",
                           .placeholderKey = "Protocol Ports",
                           .model = row->model(),
                           .helperText = Binding<std::optional<std::string>>::constant(""),
                           .disableAutocorrection = true,
                           .borderStyle = RoundedBorderStyle::line,
                           .lineLimit = 4,
                           .onCommit = [editing, row] { editing->commitPorts(row); },
                           .onRevert = [editing, row] { editing->revertPorts(row); }})
                      .frame(FlexibleFrame{.minWidth = 120}),
                  PortSourceCell{
                      .model = row->model(),
                      .onPick = [editing,
                                 row](std::int64_t source) { editing->pickSource(row, source); }},
              },
          .verticalPadding = points(Spacing::s4),
          .id = row->id().text()};
}

}  // namespace

View CompactPortsEditorView::body() const {
  const auto editing = std::make_shared<const PortsEditing>(
      ports, controller, Environment::current().defaultStore.get(),
      PortsEditing::ViewState{.rows = rows.binding(),
                              .session = session.binding(),
                              .resetError = resetError.binding()});

  std::vector<GridRow> table{headerRow()};
  for (const PortsEditing::Row& row : rows.get()) {
    table.push_back(protocolRow(row, ports.defaultProtocolNames, editing));
  }

  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s6)},
                {
                    View(CompactAnalyzerOptionsView{.config = config})
                        .frame(FlexibleFrame{.minHeight = 140, .alignment = Alignment::top()}),
                    Hairline{.color = Color::separator()},
                    PortsSectionHeader{},
                    Grid({.horizontalAlignment = HorizontalAlignment::leading,
                          .verticalAlignment = VerticalAlignment::firstTextBaseline,
                          .horizontalSpacing = points(Spacing::s6),
                          .verticalSpacing = points(Spacing::s5)},
                         std::move(table))
                        .frame(FlexibleFrame{.minHeight = 120, .alignment = Alignment::top()}),
                    HStack({},
                           {
                               analyzerErrorText(resetError),
                               Spacer(),
                               Button(localized("Reset"), "arrow.counterclockwise",
                                      [editing] { editing->reset(); })
                                   .help(localized("Reset to default ports")),
                           }),
                })
      .onAppear([editing] { editing->load(); })
      .onDisappear([editing] { editing->flush(); });
}

}  // namespace QEVSettings
