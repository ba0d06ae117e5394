// A queue of script calls and zoom changes for a page, executed in order.
#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <QTimer>
#include <QVariant>

#include <deque>
#include <functional>

class QWebEnginePage;

class PageCalls : public QObject {
  public:
    using Callback = std::function<void(const QVariant&)>;

    explicit PageCalls(QWebEnginePage&);

    void LoadScript(); // after the document has loaded; earlier calls fail
    void Call(const QString& expression, Callback = {});
    void QueryState(Callback); // may be overtaken by a zoom change queued later
    // Keeps the line at the top. Later calls see the page in the new size. `steps` identifies the
    // size for ZoomSteps(). `onApplied` receives the page state; it is not called for a size that
    // was replaced before it was started.
    void SetZoom(double factor, double screenRatio, int steps, Callback onApplied);
    int ZoomSteps() const { return zoomSteps_; } // the size that replies now refer to

  private:
    struct QueuedCall {
        QString expression; // "" for a zoom change
        Callback callback;
        double factor = 0, pixelRatio = 0;
        int zoomSteps = 0;
    };

    void ProcessQueue();
    void RunScript(const QueuedCall&);
    void StartZoom();
    void CheckPixelRatio();
    void FinishZoom();

    QWebEnginePage& page_;
    std::deque<QueuedCall> queue_;
    bool zooming_ = false;
    int zoomSteps_ = 0;
    QDeadlineTimer zoomDeadline_;
    QTimer retryTimer_;
};
