// Asking for a colour.
#pragma once

#include "platform/dialogs.h"

class QString;
class QWidget;

ColorAnswer AskColor(QWidget* parent, const QString& title, Color start);
