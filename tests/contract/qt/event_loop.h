// Waiting for a condition in Qt's event loop.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

#include <functional>

// Whether the condition holds before a deadline, which is for a busy machine.
inline bool Becomes(const std::function<bool()>& condition) {
    QElapsedTimer time;
    time.start();
    while (!condition() && time.elapsed() < 20'000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
}
