// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// One row for each protocol: a menu of names, a field for the ports and a menu of transports.
ColumnLayout {
    id: table

    required property var protocols

    RowLayout {
        Text { Layout.preferredWidth: 130; text: "NAME"; color: palette.placeholderText }
        Text { Layout.fillWidth: true; text: "PORTS"; color: palette.placeholderText }
        Text { Layout.preferredWidth: 130; text: "SOURCE"; color: palette.placeholderText }
    }
    Repeater {
        model: table.protocols
        delegate: RowLayout {
            id: row

            required property int index
            required property int name
            required property string ports
            required property int transport

            ComboBox {
                Layout.preferredWidth: 130
                flat: true
                model: table.protocols.names
                currentIndex: row.name
                onActivated: chosen => table.protocols.chooseName(row.index, chosen)
            }
            TextField {
                Layout.fillWidth: true
                Layout.minimumWidth: 120
                text: row.ports
                placeholderText: "Protocol Ports"
                onTextEdited: table.protocols.typePorts(row.index, text)
                onEditingFinished: table.protocols.endTyping(row.index)
            }
            ComboBox {
                Layout.preferredWidth: 130
                flat: true
                model: table.protocols.transports
                currentIndex: row.transport
                onActivated: chosen => table.protocols.chooseTransport(row.index, chosen)
            }
        }
    }
    Button {
        Layout.alignment: Qt.AlignRight
        text: "Reset"
        onClicked: table.protocols.reset()
    }
}
