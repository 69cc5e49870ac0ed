// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// Icon, label and switch of one option. Highlighted while hovered.
Rectangle {
    id: row

    required property QtObject modelData

    Layout.fillWidth: true
    implicitHeight: content.implicitHeight + 8
    radius: 5
    color: hover.hovered ? Qt.alpha(palette.windowText, 0.06) : "transparent"

    HoverHandler { id: hover }
    TapHandler { onTapped: row.modelData.on = !row.modelData.on }

    RowLayout {
        id: content
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8

        Image {
            Layout.preferredWidth: 20
            fillMode: Image.Pad
            source: "qrc:/icons/" + row.modelData.icon + ".svg"
            sourceSize: Qt.size(15, 15)
        }
        Text {
            Layout.fillWidth: true
            text: row.modelData.label
            elide: Text.ElideRight
            color: palette.windowText
        }
        Switch {
            Accessible.name: row.modelData.label
            checked: row.modelData.on
            onToggled: row.modelData.on = checked
        }
    }
}
