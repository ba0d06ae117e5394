#include "platform/qt/system/qt_timer.h"

#include "platform/shared/call_handler.h"

#include <QApplication>

void QtTimer::Start(int milliseconds, std::function<void()> onTick) {
    Stop();
    timer_.callOnTimeout([onTick = std::move(onTick)] {
        if (!QApplication::activeModalWidget()) CallHandler(onTick);
    });
    timer_.start(milliseconds);
}

void QtTimer::Stop() {
    timer_.stop();
    timer_.disconnect();
}
