// All ports of the Qt back end, for the form.
#pragma once

#include "platform/ports.h"

// The application object must exist. It has removed its own options from `argv`. `activation` is
// what StartupActivation() was before it.
Ports MakeQtPorts(int argc, char** argv, const std::u16string& activation);
