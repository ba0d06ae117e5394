#include "platform/qt/qt_dialogs.h"

#include "platform/qt/color_dialog.h"
#include "platform/qt/file_filter.h"
#include "platform/qt/find_dialog.h"
#include "platform/qt/font_dialog.h"
#include "platform/qt/qt_text.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include <algorithm>

namespace {

QMessageBox::Icon NativeIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::None: return QMessageBox::NoIcon;
    case MessageIcon::Information: return QMessageBox::Information;
    case MessageIcon::Question: return QMessageBox::Question;
    case MessageIcon::Exclamation: return QMessageBox::Warning;
    }
    return QMessageBox::NoIcon;
}

void AddButtons(QMessageBox& box, const Message& message) {
    box.addButton(QMessageBox::Ok);
    if (message.buttons == MessageButtons::OkCancel) box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(message.cancelIsDefault ? QMessageBox::Cancel : QMessageBox::Ok);
    box.setEscapeButton(message.buttons == MessageButtons::OkCancel ? QMessageBox::Cancel
                                                                    : QMessageBox::Ok);
}

// The box stays open while the user reads the help.
void AddHelpButton(QMessageBox& box, const QString& helpFile) {
    QPushButton* help = box.addButton(QMessageBox::Help);
    help->setEnabled(QFileInfo(helpFile).isFile());
    help->disconnect(); // from the box, which would close
    QObject::connect(help, &QPushButton::clicked, &box,
                     [helpFile] { QDesktopServices::openUrl(QUrl::fromLocalFile(helpFile)); });
}

} // namespace

QtDialogs::QtDialogs(QWidget* owner) : owner_(owner) {}

void QtDialogs::SetHelpFile(const std::u16string& path) {
    helpFile_ = ToQt(path);
}

OpenFileAnswer QtDialogs::OpenFile(const OpenFileRequest& request) {
    QFileDialog dialog(owner_, ToQt(request.title), ToQt(request.initialFolder));
    const QStringList filters = QtNameFilters(ToQt(request.filter));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(
        QFileDialog::HideNameFilterDetails); // the names tell the patterns, more legibly
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
    if (!request.fileName.empty()) dialog.selectFile(ToQt(request.fileName));

    OpenFileAnswer answer;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return answer;
    // Qt puts U+FFFD for what it cannot decode in a name.
    answer.fileName = FromQt(dialog.selectedFiles().constFirst());
    std::ranges::replace(answer.fileName, u'\uFFFD', u'?');
    answer.filterIndex =
        std::max(1, static_cast<int>(filters.indexOf(dialog.selectedNameFilter())) + 1);
    answer.result = DialogResult::Ok;
    return answer;
}

std::u16string QtDialogs::AskText(const std::u16string& title, const std::u16string& prompt) {
    QInputDialog dialog(owner_);
    dialog.setWindowTitle(ToQt(title));
    dialog.setLabelText(ToQt(prompt));
    return dialog.exec() == QDialog::Accepted ? FromQt(dialog.textValue()) : std::u16string();
}

ColorAnswer QtDialogs::ChooseColor(const std::u16string& title, Color start) {
    return AskColor(owner_, ToQt(title), start);
}

FontAnswer QtDialogs::ChooseFont(const std::u16string& title, const ViewFont& font, Color color) {
    FontDialog dialog(owner_, font, color);
    dialog.setWindowTitle(ToQt(title));
    if (dialog.exec() != QDialog::Accepted) return {DialogResult::Cancel, font, color};
    return {DialogResult::Ok, dialog.Chosen(), dialog.ChosenColor()};
}

FindAnswer QtDialogs::AskFind(const FindRequest& request) {
    FindDialog dialog(owner_, request);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.Answer();
}

DialogResult QtDialogs::ShowMessage(const Message& message) {
    QMessageBox box(owner_);
    box.setWindowTitle(ToQt(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(message.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    box.setIcon(NativeIcon(message.icon));
    AddButtons(box, message);
    if (message.helpButton) AddHelpButton(box, helpFile_);
    return box.exec() == QMessageBox::Ok ? DialogResult::Ok : DialogResult::Cancel;
}
