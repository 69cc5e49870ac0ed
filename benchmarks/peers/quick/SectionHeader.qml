// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts

RowLayout {
    property alias text: label.text

    Image {
        source: "qrc:/icons/sliders.svg"
        sourceSize: Qt.size(13, 13)
    }
    Text {
        id: label
        Layout.fillWidth: true
        font.bold: true
        font.pointSize: Qt.application.font.pointSize - 1
        color: palette.windowText
    }
}
