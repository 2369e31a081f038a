// SPDX-License-Identifier: MIT
// The file dialog: the desktop's where there is one. It opens at once and reports to its picker.
import QtQml
import QtQuick.Dialogs
import GiggleArchives

FileDialog {
    id: dialog

    required property WindowDocumentPicker picker

    title: picker.isForSaving ? qsTr("Save to Files") : qsTr("Load File")
    fileMode: picker.isForSaving ? FileDialog.SaveFile : FileDialog.OpenFile
    currentFolder: picker.folder
    nameFilters: [qsTr("All files (*)")]
    onAccepted: picker.close(selectedFile)
    onRejected: picker.close("")
    Component.onCompleted: {
        if (picker.isForSaving)
            selectedFile = picker.suggestedFile;
        open();
    }
}
