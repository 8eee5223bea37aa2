import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15

// The strip above the property tree that opens the module's assistant.
Rectangle {
    id: root

    // Asks the host to explain the assistant in a tool tip.
    signal displayToolTip()

    // Written by the host after a change of language. Any write, even of the same text as
    // before, makes the texts translate again: the handler counts it and clears the property,
    // so that the next write is a change as well.
    property string forceTranslate: ""
    property int translationRevision: 0
    onForceTranslateChanged: {
        if (forceTranslate !== "") {
            translationRevision++
            forceTranslate = ""
        }
    }

    implicitWidth: 300
    implicitHeight: 50
    color: "#F5F7F8"
    opacity: enabled ? 1.0 : 0.5

    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 1
        color: "#CFD8DC"
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        spacing: 6

        Button {
            id: showAssistantBtn
            objectName: "showAssistantBtn"
            Layout.fillWidth: true
            Layout.preferredHeight: 34
            // Reading the revision makes the binding run qsTr again after a change of language.
            text: (root.translationRevision, qsTr("Start Assistant"))
            icon.source: "qrc:/images/omniSpect.svg"
            icon.color: "transparent"
            font.bold: true
        }

        ToolButton {
            id: infoBtn
            objectName: "infoBtn"
            Layout.preferredWidth: 30
            Layout.preferredHeight: 30
            text: "?"
            font.bold: true
            hoverEnabled: true
            Accessible.name: (root.translationRevision, qsTr("What is the assistant?"))
            onClicked: root.displayToolTip()
            onHoveredChanged: if (hovered) root.displayToolTip()
        }
    }
}
