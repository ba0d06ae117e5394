// The font families that the system has.
#pragma once

#include "platform/line_layout.h"

#include <QString>

// See LineLayout::IsInstalled.
bool IsInstalledFamily(const QString& family);
QString FamilyOfKind(GenericFamily kind);
