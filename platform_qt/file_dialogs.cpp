// The two file dialogs.
#include "platform/desktop.h"
#include "platform_qt/event_delivery.h"
#include "platform_qt/qt_values.h"

#include <QApplication>
#include <QFileDialog>

namespace {

std::int32_t Ask(OpenFileName& record, QFileDialog::AcceptMode mode) {
    PrepareForModal();
    const QString pattern = QtText(record.lpstrFile).trimmed();
    QFileDialog dialog(QApplication::activeWindow(), QtText(record.lpstrTitle));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(record.Flags & OFN_FILEMUSTEXIST ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    // A dot in a folder's name would be taken for the extension of a name without one.
    if (mode == QFileDialog::AcceptSave) dialog.setDefaultSuffix(pattern.section('.', -1));
    dialog.setDirectory(QtText(record.lpstrInitialDir));
    dialog.setNameFilter(QString("Quillet files (%1)").arg(pattern));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return 0;
    record.lpstrFile = dialog.selectedFiles().first().toStdString() + '\0';
    return 1;
}

} // namespace

std::int32_t GetOpenFileNameA(OpenFileName& record) {
    return Ask(record, QFileDialog::AcceptOpen);
}

std::int32_t GetSaveFileNameA(OpenFileName& record) {
    return Ask(record, QFileDialog::AcceptSave);
}

std::intptr_t ProgramInstance() {
    return static_cast<std::intptr_t>(QApplication::applicationPid());
}
