// The Windows back end: all its ports, for the form.
#pragma once

#include "platform/ports.h"

Ports MakeWinPorts(); // its window is a WinWindow
