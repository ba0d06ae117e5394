#include "platform/qt/html_view/html_plug_in.h"

#include "platform/qt/html_view/engine/engine_html_view.h"

#include <QtGlobal>

extern "C" Q_DECL_EXPORT EngineView* NorvasetMakeHtmlView(QWidget* parent, int ansiCodePage) {
    return new EngineHtmlView(parent, ansiCodePage);
}
