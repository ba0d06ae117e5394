// The entry point of the HTML view's module.
#pragma once

#include "platform/qt/html_view/engine_view.h"

class QWidget;

// Creates the view in `parent`. `ansiCodePage` is for pages that declare no charset. The caller
// owns the view, and never unloads the module.
using MakeHtmlView = EngineView*(QWidget* parent, int ansiCodePage);
constexpr char makeHtmlViewName[] = "NorvasetMakeHtmlView";
