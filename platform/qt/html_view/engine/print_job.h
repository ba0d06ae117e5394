// Printing a page to a printer or into a file.
#pragma once

#include <QObject>
#include <QPointer>
#include <QPrinter>
#include <QProcess>

class QPrintDialog;
class QProgressDialog;
class QWebEngineView;

// The engine renders the page as PDF, which keeps text as text: rendered through QPrinter each page
// would be one picture. The window owns the job, which deletes itself when it has finished or was
// cancelled; its dialog may stay open longer than the page.
class PrintJob : public QObject {
  public:
    explicit PrintJob(QWebEngineView&);
    ~PrintJob() override;

    void ShowDialog(); // non-modal; the job goes on from there
    void OnPageReleased();

  private:
    void Start();
    void PrintToPdf();
    void OnPdfReady(const QByteArray& pdf);
    void WriteFile(const QByteArray& pdf);
    void SendToPrinter(const QByteArray& pdf);
    void OnSenderFinished(bool accepted);
    void Fail(const QString& reason);
    void Finish();

    QWidget* window_;
    QWebEngineView* view_; // null once the page was released
    QPrinter printer_;
    QPointer<QPrintDialog> dialog_;
    QPointer<QProgressDialog> progress_;
    QProcess sender_;
    enum class Stage { Choosing, Rendering, Sending, Finished } stage_ = Stage::Choosing;
};
