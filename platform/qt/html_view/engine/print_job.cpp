#include "platform/qt/html_view/engine/print_job.h"

#include "platform/qt/html_view/engine/print_service.h"
#include "product.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QProgressDialog>
#include <QSaveFile>
#include <QTimer>
#include <QWebEngineScript>
#include <QWebEngineView>

namespace {
constexpr double margin = 15;      // millimetres; the default
constexpr int progressDelay = 400; // milliseconds before a progress dialog appears

// Returns "" or the error. An existing file is replaced only when all is written; a device and the
// like is not replaced.
QString WriteFileAtomically(const QString& path, const QByteArray& bytes) {
    const QFileInfo existing(path);
    if (existing.exists() && !existing.isFile()) return PrintJob::tr("This is not a file.");
    QSaveFile file(path);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    return written ? QString() : file.errorString();
}

void ShowWarning(QWidget* window, const QString& text) {
    auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral(PRODUCT_TITLE " Message"),
                                text, QMessageBox::Ok, window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
} // namespace

PrintJob::PrintJob(QWebEngineView& view)
    : QObject(view.window()), window_(view.window()), view_(&view),
      printer_(QPrinter::HighResolution) {
    printer_.setDocName(DocumentName(view.title()));
    printer_.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
}

PrintJob::~PrintJob() {
    delete dialog_; // it refers to the printer
    delete progress_;
}

void PrintJob::ShowDialog() {
    dialog_ = new QPrintDialog(&printer_, window_);
    connect(dialog_, &QDialog::finished, this, [this](int result) {
        if (result == QDialog::Accepted)
            Start();
        else
            Finish();
    });
    dialog_->open();
}

// A job that is with the printer needs no page any more.
void PrintJob::OnPageReleased() {
    view_ = nullptr;
    if (stage_ == Stage::Rendering) Fail(tr("The page was left before."));
}

// A script is run first, because the engine aborts the program if the renderer process of a hung
// page dies before it has started on a PDF.
void PrintJob::Start() {
    if (!view_) return Fail(tr("The page was left before."));
    stage_ = Stage::Rendering;
    progress_ = new QProgressDialog(tr("Printing..."), tr("Cancel"), 0, 0, window_);
    progress_->setWindowTitle(tr("Print"));
    progress_->setWindowModality(Qt::WindowModal);
    progress_->setCursor(Qt::BusyCursor);
    progress_->setAutoReset(false);
    QTimer::singleShot(progressDelay, this, [this] {
        if (progress_) progress_->show();
    });
    connect(progress_, &QProgressDialog::canceled, this, &PrintJob::Finish);
    view_->page()->runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                                 [job = QPointer<PrintJob>(this)](const QVariant&) {
                                     if (job) QTimer::singleShot(0, job, &PrintJob::PrintToPdf);
                                 });
}

void PrintJob::PrintToPdf() {
    if (stage_ != Stage::Rendering) return; // cancelled
    const bool isRange = printer_.printRange() == QPrinter::PageRange;
    view_->page()->printToPdf(
        [job = QPointer<PrintJob>(this)](const QByteArray& pdf) {
            if (job) job->OnPdfReady(pdf);
        },
        printer_.pageLayout(), isRange ? printer_.pageRanges() : QPageRanges());
}

void PrintJob::OnPdfReady(const QByteArray& pdf) {
    if (stage_ != Stage::Rendering) return; // cancelled
    stage_ = Stage::Sending;
    if (pdf.isEmpty()) return Fail(tr("No pages came of it."));
    if (printer_.outputFileName().isEmpty())
        SendToPrinter(pdf);
    else
        WriteFile(pdf);
}

void PrintJob::WriteFile(const QByteArray& pdf) {
    if (const QString error = WriteFileAtomically(printer_.outputFileName(), pdf); error.isEmpty())
        Finish();
    else
        Fail(printer_.outputFileName() + QLatin1Char('\n') + error);
}

void PrintJob::SendToPrinter(const QByteArray& pdf) {
    connect(&sender_, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        OnSenderFinished(status == QProcess::NormalExit && code == 0);
    });
    connect(&sender_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) Fail(sender_.errorString());
    });
    sender_.setStandardOutputFile(QProcess::nullDevice());
    sender_.start(QLatin1String(printProgram), PrintArguments(printer_));
    sender_.write(pdf);
    sender_.closeWriteChannel();
}

void PrintJob::OnSenderFinished(bool accepted) {
    if (accepted)
        Finish();
    else
        Fail(QString::fromLocal8Bit(sender_.readAllStandardError()).trimmed());
}

void PrintJob::Fail(const QString& reason) {
    if (stage_ == Stage::Finished) return;
    Finish();
    ShowWarning(window_, tr("The page could not be printed.") + QLatin1Char('\n') + reason);
}

void PrintJob::Finish() {
    stage_ = Stage::Finished;
    if (progress_) { // may be the sender of the signal
        progress_->hide();
        progress_->deleteLater();
        progress_ = nullptr;
    }
    deleteLater();
}
