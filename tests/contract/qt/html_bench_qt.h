// A window of the program with a view of pages in it.
#pragma once

#include "platform/qt/window/qt_window.h"
#include "tests/contract/html_view_contract.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

class QtHtmlBench : public HtmlViewBench {
  public:
    QtHtmlBench() {
        WindowEvents events;
        events.onKeyDown = [this](int code, int shift) { keysDown.emplace_back(code, shift); };
        events.onUnload = [this] { View().PrepareToClose(); };
        window_.SetEvents(std::move(events));
        window_.Open();
        window_.resize(700, 600);
        window_.SetPanelBounds({0, 0, 604, 404});
    }

    void ProcessEvents() override {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
    }
    void CloseWindow() override { window_.Close(); }
    double PixelRatio() override { return window_.devicePixelRatioF(); }

    void Press(int keyCode, int shift) override {
        const auto modifiers = shift & CtrlKey ? Qt::ControlModifier : Qt::NoModifier;
        const QString text = keyCode == 13 ? QStringLiteral("\r") : QString();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, QtKey(keyCode), modifiers, text);
            QCoreApplication::sendEvent(window_.windowHandle(), &event);
        }
    }

  protected:
    static void ShowIn(HtmlView& view) {
        view.SetBounds({0, 0, 600, 400});
        view.SetVisible(true);
        view.FocusView();
    }

    QtWindow window_;

  private:
    static int QtKey(int code) {
        switch (code) {
        case 9: return Qt::Key_Tab;
        case 13: return Qt::Key_Return;
        case 34: return Qt::Key_PageDown;
        case PlusKey: return Qt::Key_Plus;
        default: return code; // letters and digits
        }
    }
};
