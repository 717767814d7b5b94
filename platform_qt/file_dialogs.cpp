// The dialogs of Open and Save as.
#include "platform/desktop.h"
#include "platform_qt/event_delivery.h"
#include "platform_qt/file_dialog.h"
#include "platform_qt/form_window.h"
#include "platform_qt/qt_values.h"

#include <QApplication>

namespace {

std::int32_t Ask(OpenFileName& record, QFileDialog::AcceptMode mode) {
    PrepareForModal();
    const QString pattern = QtText(record.lpstrFile).trimmed();
    FileDialog dialog(&WindowOf(*record.hwndOwner), mode, QtText(record.lpstrFilter), pattern);
    dialog.setWindowTitle(QtText(record.lpstrTitle));
    // The record has room for the path and a NUL.
    const QString path = dialog.Ask(QtText(record.lpstrInitialDir), pattern, record.nMaxFile - 1);
    if (path.isEmpty()) return 0;
    record.lpstrFile = path.toStdString() + '\0';
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
