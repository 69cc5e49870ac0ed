// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Layouts

Rectangle {
    Layout.fillWidth: true
    implicitHeight: 1
    color: palette.mid
}
