// Asks for a file.
#include "platform_qt/file_dialog.h"

#include "platform_qt/window_icon.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTreeView>

FileDialog::FileDialog(QWidget* owner, AcceptMode mode, const QString& kind, const QString& pattern)
    : QFileDialog(owner, QApplication::applicationName()), Pattern(pattern) {
    setWindowIcon(WindowIcon());
    setAcceptMode(mode);
    setNameFilter(QString("%1 (%2)").arg(kind, pattern));
    setOption(HideNameFilterDetails);
    if (mode == AcceptSave) {
        setLabelText(LookIn, "Save in:");
        // A dot in a folder's name would be taken for the extension of a name without one.
        setDefaultSuffix(pattern.section('.', -1));
    }
    QHeaderView* header = findChild<QTreeView*>("treeView")->header();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
}

QString FileDialog::Ask(const QString& folder, const QString& name, int longest) {
    Longest = longest;
    setDirectory(folder);
    Write(name);
    return exec() == Accepted ? Chosen : QString();
}

void FileDialog::accept() {
    const QString name = NameBox().text().trimmed();
    if (name.isEmpty()) return;
    if (name == Pattern) return reject();
    // The dialog itself would take quotes for marks around several names.
    Chosen = name.contains('"') ? directory().absoluteFilePath(name) : selectedFiles().value(0);
    const QFileInfo file(Chosen);
    const auto refuse = [this](const QString& why) { QMessageBox::warning(this, windowTitle(), why); };
    if (file.isDir()) {
        setDirectory(Chosen);
        Write(Pattern);
    } else if (Chosen.size() > Longest) {
        refuse(QString("The path is too long. It may have %1 characters.").arg(Longest));
    } else if (acceptMode() == AcceptOpen && !file.exists()) {
        refuse("There is no such file:\n" + Chosen);
    } else {
        done(Accepted);
    }
}

QLineEdit& FileDialog::NameBox() const {
    return *findChild<QLineEdit*>("fileNameEdit");
}

void FileDialog::Write(const QString& name) {
    NameBox().setText(name);
    NameBox().selectAll();
}
