// The dialog that opens a file: the desktop's own, or Qt's where the desktop offers none.
#pragma once

#include "platform/dialogs.h"

class QWidget;

OpenFileAnswer GetOpenFile(QWidget* owner, const OpenFileRequest&);
