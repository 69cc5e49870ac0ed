// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// The description, options and ports of one analyzer.
ColumnLayout {
    id: details

    required property var page

    TextEdit {
        text: details.page.title
        readOnly: true
        selectByMouse: true
        font.bold: true
        font.pointSize: Qt.application.font.pointSize + 3
        color: palette.windowText
    }
    TextEdit {
        Layout.fillWidth: true
        text: details.page.subtitle
        readOnly: true
        selectByMouse: true
        wrapMode: TextEdit.Wrap
        color: palette.placeholderText
    }
    Line {}
    SectionHeader { text: "OPTIONS" }
    Repeater {
        model: details.page.options
        delegate: OptionRow {}
    }
    Line {}
    SectionHeader { text: "PORTS" }
    PortsTable {
        Layout.fillWidth: true
        protocols: details.page.ports
    }
}
