// The dialog that asks for a file.
#pragma once

#include <QFileDialog>
#include <limits>

/// The toolkit's own dialog, with three ways of its own. A pattern may stand in its name box, and confirmed
/// it is no choice. A name is taken as it is written, quotes and all. Nothing is asked about overwriting.
class FileDialog : public QFileDialog {
  public:
    /// `kind` is what the list of files is said to show: those that match the pattern.
    FileDialog(QWidget* owner, AcceptMode mode, const QString& kind, const QString& pattern);

    /// The chosen path, or nothing. At first `name` stands in the name box.
    QString Ask(const QString& folder, const QString& name, int longest = std::numeric_limits<int>::max());

    void accept() override;

  private:
    class QLineEdit& NameBox() const;
    void Write(const QString& name);

    QString Pattern;
    QString Chosen;
    /// The most characters that a path may have.
    int Longest = 0;
};
