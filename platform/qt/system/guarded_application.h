// The application object; no exception leaves the handling of an event.
#pragma once

#include <QApplication>

// An event whose handler throws, such as a painting without enough memory, counts as handled: Qt's
// event loop cannot propagate an exception, and the program would end with what is not saved.
class GuardedApplication : public QApplication {
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};
