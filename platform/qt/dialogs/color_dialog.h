// The dialog that selects a colour.
#pragma once

#include "platform/dialogs.h"

class QString;
class QWidget;

ColorAnswer GetColor(QWidget* parent, const QString& title, Color start);
