// The Qt back end: all its ports, for the form.
#pragma once

#include "platform/ports.h"

// The application object must exist. It has taken its own options out of `argv`.
Ports MakeQtPorts(int argc, char** argv);
