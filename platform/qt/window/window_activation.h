// Bringing a window to the front on behalf of another start of the program.
#pragma once

class QByteArray;
class QWindow;

// `token`: an XDG activation token (Wayland) or a startup notification id (X11), with which the
// desktop knows what its user has done for it; "" for none. A start that the desktop follows on X11
// counts as ended then.
void ActivateWindow(QWindow&, const QByteArray& token);
