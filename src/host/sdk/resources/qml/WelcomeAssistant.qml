import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15

// The page that welcomes the user to a new guided job, before the module assistant opens.
Rectangle {
    id: root

    // Asks the host to close the page without a decision.
    signal qmlCloseSignal()

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

    implicitWidth: 360
    implicitHeight: 500
    color: "#FFFFFF"

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 12

        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            Image {
                source: "qrc:/images/omniSpect.svg"
                sourceSize: Qt.size(40, 40)
                Layout.preferredWidth: 40
                Layout.preferredHeight: 40
            }

            Label {
                objectName: "titleLabel"
                Layout.fillWidth: true
                text: (root.translationRevision, qsTr("Welcome"))
                font.pixelSize: 22
                font.bold: true
                color: "#263238"
                elide: Text.ElideRight
            }

            ToolButton {
                objectName: "closeBtn"
                text: "\u2715"
                Accessible.name: (root.translationRevision, qsTr("Close"))
                onClicked: root.qmlCloseSignal()
            }
        }

        Rectangle {
            Layout.fillWidth: true
            height: 1
            color: "#CFD8DC"
        }

        Label {
            objectName: "introLabel"
            Layout.fillWidth: true
            wrapMode: Text.WordWrap
            color: "#37474F"
            font.pixelSize: 14
            text: (root.translationRevision,
                   qsTr("This job was made from a guided template. The assistant leads you "
                        + "through its modules one by one and asks only for what each of "
                        + "them needs."))
        }

        Label {
            objectName: "stepsLabel"
            Layout.fillWidth: true
            wrapMode: Text.WordWrap
            color: "#546E7A"
            font.pixelSize: 13
            textFormat: Text.StyledText
            text: (root.translationRevision,
                   qsTr("<b>1.</b> Choose a module in the job tree.<br>"
                        + "<b>2.</b> Follow the assistant's steps below the tree.<br>"
                        + "<b>3.</b> Open the assistant again at any time with "
                        + "<i>Start Assistant</i>."))
        }

        Item {
            Layout.fillHeight: true
        }

        CheckBox {
            id: checkBox
            objectName: "checkBox"
            Layout.fillWidth: true
            text: (root.translationRevision, qsTr("Do not show this page again"))
        }

        Button {
            id: okBtn
            objectName: "okBtn"
            Layout.alignment: Qt.AlignRight
            Layout.preferredWidth: 120
            highlighted: true
            text: (root.translationRevision, qsTr("OK"))
        }
    }
}
