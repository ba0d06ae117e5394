#include "platform/windows/help/win_help_window.h"

#include "platform/windows/help/help_frame.h"

WinHelpWindow::WinHelpWindow() = default;
WinHelpWindow::~WinHelpWindow() = default;

void WinHelpWindow::Show(const HelpContents& contents, int page) {
    if (!frame_ || !frame_->Handle()) frame_ = std::make_unique<HelpFrame>();
    frame_->ShowContents(contents, page);
    frame_->Raise();
}

bool WinHelpWindow::Raise() {
    if (!frame_ || !frame_->Handle()) return false;
    frame_->Raise();
    return true;
}
