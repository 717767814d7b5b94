// Printing a form's picture: a PDF page of its size, for the default printer or, where there is none, into a
// file.
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform_qt/event_delivery.h"
#include "platform_qt/qt_desktop.h"
#include "platform_qt/qt_values.h"

#include <QApplication>
#include <QBuffer>
#include <QFileDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <optional>

namespace {

constexpr double PixelsPerInch = 96;

/// The whole page is made in memory first: writing it straight to a full disk would be called a success.
/// Empty when it could not be drawn.
QByteArray PdfOf(QWidget& client) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle("Quillets");
    writer.setResolution(1200);
    const QSizeF inches = QSizeF(client.size()) / PixelsPerInch;
    writer.setPageSize(QPageSize(inches, QPageSize::Inch, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer)) return {};
    painter.scale(writer.resolution() / PixelsPerInch, writer.resolution() / PixelsPerInch);
    client.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    return painter.end() ? buffer.data() : QByteArray();
}

/// What a command of the printing system answers, given the input; nothing when it fails.
std::optional<QByteArray> Ask(const QString& program, const QStringList& arguments,
                              const QByteArray& input = {}) {
    constexpr int Patience = 20'000; // milliseconds
    QProcess process;
    QProcessEnvironment plain = QProcessEnvironment::systemEnvironment();
    plain.insert("LC_ALL", "C");
    process.setProcessEnvironment(plain);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(Patience) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        return std::nullopt;
    return process.readAllStandardOutput();
}

bool HasPrinter() {
    return Ask("lpstat", {"-d"}).value_or("").contains("destination: ");
}

/// The page keeps its size on the paper.
void Print(const QByteArray& page) {
    if (!Ask("lp", {"-t", "Quillets", "-o", "print-scaling=none"}, page))
        MsgBox(
            "The page could not be printed on the default printer:\n\rthe printing system did not take it.");
}

void Save(const QByteArray& page) {
    const QString path = QFileDialog::getSaveFileName(
        QApplication::activeWindow(), "Quillets",
        QString::fromStdString(ApplicationFolder()) + "/Quillets.pdf", "PDF files (*.pdf)");
    if (path.isEmpty()) return;
    const FileError error = ReplaceFile(path.toStdString(), page.toStdString());
    if (!error.empty())
        MsgBox("The file could not be written:\n\r" + path.toStdString() + "\n\r" + error + ".");
}

} // namespace

void PrintForm(Form& form) {
    PrepareForModal();
    const QByteArray page = PdfOf(*ClientAreaOf(form));
    if (page.isEmpty())
        MsgBox("The page could not be drawn.");
    else if (HasPrinter())
        Print(page);
    else
        Save(page);
}
