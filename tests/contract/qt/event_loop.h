// Waiting for a condition in Qt's event loop.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

#include <functional>

// Whether the condition holds within five seconds.
inline bool Becomes(const std::function<bool()>& condition) {
    QElapsedTimer time;
    time.start();
    while (!condition() && time.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
}
