#include "platform/qt/dialogs/color_dialog.h"

#include "platform/qt/base/qt_color.h"

#include <QColorDialog>

ColorAnswer GetColor(QWidget* parent, const QString& title, Color start) {
    // Qt keeps custom colours for the lifetime of the process.
    for (int i = 0; i < QColorDialog::customCount(); ++i)
        QColorDialog::setCustomColor(i, Qt::white);
    QColorDialog dialog(ToQColor(start), parent);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(title);
    if (dialog.exec() != QDialog::Accepted) return {};
    return {DialogResult::Ok, FromQColor(dialog.currentColor())};
}
