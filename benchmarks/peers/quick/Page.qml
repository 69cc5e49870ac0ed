// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

Rectangle {
    id: root

    required property var page

    color: palette.window

    RowLayout {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 16

        ListView {
            id: list
            objectName: "list"
            Layout.preferredWidth: 162
            Layout.fillHeight: true
            clip: true
            model: root.page.analyzers
            currentIndex: root.page.selected
            boundsBehavior: Flickable.StopAtBounds
            reuseItems: true
            delegate: ItemDelegate {
                required property int index
                required property string title
                width: ListView.view.width
                text: title
                highlighted: ListView.isCurrentItem
                onClicked: root.page.selected = index
            }
        }

        ScrollView {
            id: scroll
            Layout.fillWidth: true
            Layout.fillHeight: true
            contentWidth: availableWidth

            AnalyzerDetails {
                width: scroll.availableWidth
                page: root.page
            }
        }
    }
}
