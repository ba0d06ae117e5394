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
    // The line at the top stays there. Calls after it find the page laid out so.
    void SetZoom(double factor, double screenRatio);

  private:
    struct Step {
        QString expression; // "" for a change of size
        Answer answer;
        double factor = 0, pixelRatio = 0;
    };

    void Proceed();
    void Run(const Step&);
    void StartZoom();
    void AskForRatio();

    QWebEnginePage& page_;
    std::deque<Step> steps_;
    bool zooming_ = false;
    QDeadlineTimer zoomEnd_;
    QTimer again_;
};
