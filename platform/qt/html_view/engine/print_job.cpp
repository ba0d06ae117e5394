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
constexpr double margin = 15;  // millimetres, unless the user chooses others
constexpr int shortWork = 400; // milliseconds without a word of it

// "" when all is written, else why not. A file that was there before stays until the new one is
// whole; what is no file, as a device, is not replaced.
QString WriteWhole(const QString& path, const QByteArray& bytes) {
    const QFileInfo there(path);
    if (there.exists() && !there.isFile()) return PrintJob::tr("This is not a file.");
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    return written ? QString() : file.errorString();
}

void Tell(QWidget* window, const QString& text) {
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
    delete dialog_; // before its printer
    delete progress_;
}

void PrintJob::AskHow() {
    dialog_ = new QPrintDialog(&printer_, window_);
    connect(dialog_, &QDialog::finished, this, [this](int result) {
        if (result == QDialog::Accepted)
            Begin();
        else
            End();
    });
    dialog_->open();
}

// What goes to the printer already needs no page.
void PrintJob::PageLeft() {
    view_ = nullptr;
    if (stage_ == Stage::Making) Fail(tr("The page was left before."));
}

// A page that hangs is not asked for a PDF: the engine ends the whole program when the process of a
// page ends that has not begun with it.
void PrintJob::Begin() {
    if (!view_) return Fail(tr("The page was left before."));
    stage_ = Stage::Making;
    progress_ = new QProgressDialog(tr("Printing..."), tr("Cancel"), 0, 0, window_);
    progress_->setWindowTitle(tr("Print"));
    progress_->setWindowModality(Qt::WindowModal);
    progress_->setCursor(Qt::BusyCursor);
    progress_->setAutoReset(false);
    QTimer::singleShot(shortWork, this, [this] {
        if (progress_) progress_->show();
    });
    connect(progress_, &QProgressDialog::canceled, this, &PrintJob::End);
    view_->page()->runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                                 [job = QPointer<PrintJob>(this)](const QVariant&) {
                                     if (job) QTimer::singleShot(0, job, &PrintJob::MakePages);
                                 });
}

void PrintJob::MakePages() {
    if (stage_ != Stage::Making) return; // given up
    const bool some = printer_.printRange() == QPrinter::PageRange;
    view_->page()->printToPdf(
        [job = QPointer<PrintJob>(this)](const QByteArray& pdf) {
            if (job) job->Deliver(pdf);
        },
        printer_.pageLayout(), some ? printer_.pageRanges() : QPageRanges());
}

void PrintJob::Deliver(const QByteArray& pdf) {
    if (stage_ != Stage::Making) return; // given up
    stage_ = Stage::Sending;
    if (pdf.isEmpty()) return Fail(tr("No pages came of it."));
    if (printer_.outputFileName().isEmpty())
        SendToPrinter(pdf);
    else
        WriteFile(pdf);
}

void PrintJob::WriteFile(const QByteArray& pdf) {
    if (const QString error = WriteWhole(printer_.outputFileName(), pdf); error.isEmpty())
        End();
    else
        Fail(printer_.outputFileName() + QLatin1Char('\n') + error);
}

void PrintJob::SendToPrinter(const QByteArray& pdf) {
    connect(&sender_, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        PrinterAnswered(status == QProcess::NormalExit && code == 0);
    });
    connect(&sender_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) Fail(sender_.errorString());
    });
    sender_.setStandardOutputFile(QProcess::nullDevice());
    sender_.start(QLatin1String(printProgram), PrintArguments(printer_));
    sender_.write(pdf);
    sender_.closeWriteChannel();
}

void PrintJob::PrinterAnswered(bool taken) {
    if (taken)
        End();
    else
        Fail(QString::fromLocal8Bit(sender_.readAllStandardError()).trimmed());
}

void PrintJob::Fail(const QString& why) {
    if (stage_ == Stage::Over) return;
    End();
    Tell(window_, tr("The page could not be printed.") + QLatin1Char('\n') + why);
}

void PrintJob::End() {
    stage_ = Stage::Over;
    if (progress_) { // which may be what calls
        progress_->hide();
        progress_->deleteLater();
        progress_ = nullptr;
    }
    deleteLater();
}
