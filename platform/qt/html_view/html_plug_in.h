// The one door into the module of the HTML view.
#pragma once

class HtmlView;
class QWidget;

// Makes the engine's view in `parent`. `ansiCodePage` is of pages that name no charset. The caller
// deletes the view, and lets go of no module.
using MakeHtmlView = HtmlView*(QWidget* parent, int ansiCodePage);
constexpr char makeHtmlViewName[] = "NorvasetMakeHtmlView";
