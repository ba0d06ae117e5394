#include "platform/qt/dialogs/color_dialog.h"

#include "platform/qt/text_view/layout/view_style.h"

#include <QColorDialog>

ColorAnswer AskColor(QWidget* parent, const QString& title, Color start) {
    // Qt keeps them from dialog to dialog.
    for (int i = 0; i < QColorDialog::customCount(); ++i)
        QColorDialog::setCustomColor(i, Qt::white);
    QColorDialog dialog(ToQColor(start), parent);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(title);
    if (dialog.exec() != QDialog::Accepted) return {};
    return {DialogResult::Ok, FromQColor(dialog.currentColor())};
}
