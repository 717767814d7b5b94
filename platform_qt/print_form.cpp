// Printing a form's picture: a PDF page of its size, for the default printer or, where there is none, into a
// file.
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform_qt/event_delivery.h"
#include "platform_qt/file_dialog.h"
#include "platform_qt/form_window.h"
#include "platform_qt/qt_desktop.h"

#include <QBuffer>
#include <QEventLoop>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

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
    // The page has few colours; a photograph's format would blur them.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.scale(writer.resolution() / PixelsPerInch, writer.resolution() / PixelsPerInch);
    client.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    return painter.end() ? buffer.data() : QByteArray();
}

enum class Outcome { Done, Failed, Late };

struct Reply {
    Outcome Is = Outcome::Late;
    QByteArray Text;
};

/// What a command of the printing system answers, given the input. Meanwhile the windows are painted; what
/// the player does has to wait.
Reply Ask(const QString& program, const QStringList& arguments, const QByteArray& input = {}) {
    constexpr int Patience = 5'000; // milliseconds
    QProcess process;
    QProcessEnvironment plain = QProcessEnvironment::systemEnvironment();
    plain.insert("LC_ALL", "C");
    process.setProcessEnvironment(plain);
    QEventLoop loop;
    const auto quitAtEnd = [&loop](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning) loop.quit();
    };
    QObject::connect(&process, &QProcess::stateChanged, &loop, quitAtEnd);
    QTimer::singleShot(Patience, &loop, &QEventLoop::quit);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (process.state() != QProcess::NotRunning) loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    const bool done = process.error() != QProcess::FailedToStart
                      && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return {done ? Outcome::Done : Outcome::Failed, process.readAllStandardOutput()};
}

/// The page keeps its size on the paper.
void Print(const QByteArray& page) {
    const Outcome outcome = Ask("lp", {"-t", "Quillets", "-o", "print-scaling=none"}, page).Is;
    if (outcome == Outcome::Done) return;
    const std::string reason = outcome == Outcome::Late ? "does not answer." : "did not take it.";
    MsgBox("The page could not be printed on the default printer:\n\rthe printing system " + reason);
}

void Save(const QByteArray& page, Form& form) {
    FileDialog dialog(&WindowOf(form), QFileDialog::AcceptSave, "PDF files", "*.pdf");
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString chosen =
        dialog.Ask(QFileInfo::exists(documents) ? documents : QDir::homePath(), "Quillets.pdf");
    if (chosen.isEmpty()) return;
    const std::string path = chosen.toStdString();
    if (QFileInfo::exists(chosen)
        && MsgBox(path + "\n\r file already exists, overwrite?", BoxButtons::YesNo, BoxIcon::Warning,
                  "Quillets", BoxDefault::Second)
               != BoxAnswer::Yes)
        return;
    const FileError error = ReplaceFile(path, page.toStdString());
    if (!error.empty()) MsgBox("The file could not be written:\n\r" + path + "\n\r" + error + ".");
}

} // namespace

void PrintForm(Form& form) {
    PrepareForModal();
    const QByteArray page = PdfOf(*ClientAreaOf(form));
    if (page.isEmpty()) {
        MsgBox("The page could not be drawn.");
        return;
    }
    const Reply printer = Ask("lpstat", {"-d"});
    if (printer.Is == Outcome::Done && printer.Text.contains("destination: ")) return Print(page);
    if (printer.Is == Outcome::Late)
        MsgBox("The printing system does not answer.\n\rThe page can go into a file instead.");
    Save(page, form);
}
