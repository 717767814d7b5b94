// Printing a form's picture: on the default printer, or into a PDF file where there is none.
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform_qt/qt_desktop.h"
#include "platform_qt/qt_text.h"

#include <QApplication>
#include <QBuffer>
#include <QFileDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

constexpr double PixelsPerInch = 96;

QSizeF InchesOf(const QWidget& client) {
    return QSizeF(client.size()) / PixelsPerInch;
}

/// Draws the client area at its own size; false when the device takes nothing.
bool Draw(QWidget& client, QPagedPaintDevice& device, int dotsPerInch) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    painter.scale(dotsPerInch / PixelsPerInch, dotsPerInch / PixelsPerInch);
    client.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    return painter.end();
}

/// The whole PDF is made in memory first: writing it straight to a full disk would be called a success.
QByteArray PdfOf(QWidget& client) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle("Quillets");
    writer.setResolution(1200);
    writer.setPageSize(QPageSize(InchesOf(client), QPageSize::Inch, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    return Draw(client, writer, writer.resolution()) ? buffer.data() : QByteArray();
}

void SaveAsPdf(QWidget& client) {
    const QString path = QFileDialog::getSaveFileName(
        QApplication::activeWindow(), "Quillets",
        QString::fromStdString(ApplicationFolder()) + "/Quillets.pdf", "PDF files (*.pdf)");
    if (path.isEmpty()) return;
    const QByteArray pdf = PdfOf(client);
    const FileError error =
        pdf.isEmpty() ? "the page could not be drawn" : ReplaceFile(path.toStdString(), pdf.toStdString());
    if (!error.empty())
        MsgBox("The file could not be written:\n\r" + path.toStdString() + "\n\r" + error + ".");
}

} // namespace

void PrintForm(Form& form) {
    PrepareForModal();
    QWidget& client = *ClientAreaOf(form);
    const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
    if (standard.isNull()) return SaveAsPdf(client);
    QPrinter printer(standard, QPrinter::HighResolution);
    if (!Draw(client, printer, printer.resolution()))
        MsgBox("The page could not be printed on:\n\r" + standard.printerName().toStdString());
}
