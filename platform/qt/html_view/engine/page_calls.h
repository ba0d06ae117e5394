// Calls of the reader's script in a page, and changes of its size, carried out in the order given.
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
    using Answer = std::function<void(const QVariant&)>;

    explicit PageCalls(QWebEnginePage&);

    void LoadScript(); // once the document is there; before it no call succeeds
    void Call(const QString& expression, Answer = {});
    void AskState(Answer); // may give way to a new size that is set before it is asked
    // The line at the top stays there. Calls after it find the page laid out so. `steps` is the
    // caller's name for this size; `settled` gets the state in it, but for sizes that gave way to
    // one set before they were begun.
    void SetZoom(double factor, double screenRatio, int steps, Answer settled);
    int ZoomSteps() const { return zoomSteps_; } // of the size that answers now are of

  private:
    struct Step {
        QString expression; // "" for a change of size
        Answer answer;
        double factor = 0, pixelRatio = 0;
        int zoomSteps = 0;
    };

    void Proceed();
    void Run(const Step&);
    void StartZoom();
    void AskForRatio();
    void FinishZoom();

    QWebEnginePage& page_;
    std::deque<Step> steps_;
    bool zooming_ = false;
    int zoomSteps_ = 0;
    QDeadlineTimer zoomEnd_;
    QTimer again_;
};
