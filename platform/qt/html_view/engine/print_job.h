// A page on its way to paper or into a file.
#pragma once

#include <QObject>
#include <QPointer>
#include <QPrinter>
#include <QProcess>

class QPrintDialog;
class QProgressDialog;
class QWebEngineView;

// The engine makes a PDF of the page, with letters as letters: drawn by the printer's own engine
// each page would be one picture. The window owns a job, which deletes itself when it is done or
// given up; its dialog may stay longer than the page.
class PrintJob : public QObject {
  public:
    explicit PrintJob(QWebEngineView&);
    ~PrintJob() override;

    void AskHow(); // and what follows; returns at once
    void PageLeft();

  private:
    void Begin();
    void MakePages();
    void Deliver(const QByteArray& pdf);
    void WriteFile(const QByteArray& pdf);
    void SendToPrinter(const QByteArray& pdf);
    void PrinterAnswered(bool taken);
    void Fail(const QString& why);
    void End();

    QWidget* window_;
    QWebEngineView* view_; // null when the page was left
    QPrinter printer_;
    QPointer<QPrintDialog> dialog_;
    QPointer<QProgressDialog> progress_;
    QProcess sender_;
    enum class Stage { Asking, Making, Sending, Over } stage_ = Stage::Asking;
};
