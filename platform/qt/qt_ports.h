// All ports of the Qt back end, for the form.
#pragma once

#include "platform/ports.h"

// The application object must exist. It has removed its own options from `argv`.
Ports MakeQtPorts(int argc, char** argv);
