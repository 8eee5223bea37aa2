import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15

// The workbench's module assistant: a short guide that the dock shows in place of the property
// tree until the user closes it.
Rectangle {
    id: root

    // Asks the dock to close the assistant.
    signal qmlCloseSignal()

    implicitWidth: 320
    implicitHeight: 260
    color: "#F5F7FA"

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 14
        spacing: 10

        Label {
            Layout.fillWidth: true
            text: qsTr("Module assistant")
            font.pixelSize: 18
            font.bold: true
            color: "#263238"
        }

        Label {
            Layout.fillWidth: true
            wrapMode: Text.WordWrap
            color: "#455A64"
            text: qsTr("Pick a module in the job tree, then set its inputs from top to bottom. "
                       + "Outputs show what the last run produced.")
        }

        Item {
            Layout.fillHeight: true
        }

        Button {
            objectName: "closeBtn"
            Layout.alignment: Qt.AlignRight
            text: qsTr("Close")
            onClicked: root.qmlCloseSignal()
        }
    }
}
