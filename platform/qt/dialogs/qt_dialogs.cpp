#include "platform/qt/dialogs/qt_dialogs.h"

#include "platform/qt/base/qt_text.h"
#include "platform/qt/dialogs/color_dialog.h"
#include "platform/qt/dialogs/file_dialog.h"
#include "platform/qt/dialogs/find_dialog.h"
#include "platform/qt/dialogs/font_dialog.h"
#include "platform/qt/dialogs/place_dialog.h"
#include "platform/qt/dialogs/rich_message.h"
#include "platform/qt/window/window_icon.h"
#include "platform/shared/call_handler.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int iconSize = 64; // pixels

QMessageBox::Icon NativeIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Application:
    case MessageIcon::None: return QMessageBox::NoIcon;
    case MessageIcon::Information: return QMessageBox::Information;
    case MessageIcon::Question: return QMessageBox::Question;
    case MessageIcon::Exclamation: return QMessageBox::Warning;
    case MessageIcon::Critical: return QMessageBox::Critical;
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

void Widen(QMessageBox& box, int width) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid) grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, -1);
}

// Window managers put an icon and up to three buttons beside the title and elide it if there is no
// room; QMessageBox allows for less.
void WidenForTitle(QMessageBox& box) {
    constexpr int titleButtons = 12; // in line heights
    QFont font = QApplication::font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    Widen(box, metrics.horizontalAdvance(box.windowTitle()) + titleButtons * metrics.height());
}

// QMessageBox breaks lines at half the screen's width, which a large scale factor makes narrow. A
// text with a minimum width of its own it would not break at all, but cut off.
void WidenForLines(QMessageBox& box) {
    constexpr int maxTextWidth = 400, besideText = 110, edges = 90; // pixels; icon and margins
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label) return;
    const int room = std::max(0, box.screen()->availableGeometry().width() - besideText - edges);
    const int widest = label->fontMetrics().size(0, box.text()).width();
    if (widest <= std::min(maxTextWidth, room))
        label->setMinimumWidth(widest);
    else
        Widen(box, std::min(maxTextWidth, room) + besideText);
}

} // namespace

QtDialogs::QtDialogs(QWidget* owner) : owner_(owner) {}

// Clicking Help does not close the box.
void QtDialogs::AddHelpButton(QMessageBox& box, const std::string& topic) const {
    QPushButton* help = box.addButton(QMessageBox::Help);
    help->disconnect(); // the box would close on any button
    QObject::connect(help, &QPushButton::clicked, &box,
                     [this, topic] { CallHandler(onHelp, topic); });
}

OpenFileAnswer QtDialogs::OpenFile(const OpenFileRequest& request) {
    return GetOpenFile(owner_, request);
}

std::u16string QtDialogs::AskText(const std::u16string& title, const std::u16string& prompt) {
    QInputDialog dialog(owner_);
    dialog.setWindowTitle(ToQt(title));
    dialog.setLabelText(ToQt(prompt));
    return dialog.exec() == QDialog::Accepted ? FromQt(dialog.textValue()) : std::u16string();
}

ColorAnswer QtDialogs::ChooseColor(const std::u16string& title, Color start) {
    return GetColor(owner_, ToQt(title), start);
}

FontAnswer QtDialogs::ChooseFont(const FontRequest& request) {
    FontDialog dialog(owner_, request);
    if (dialog.exec() != QDialog::Accepted)
        return {DialogResult::Cancel, request.font, request.color, request.reading};
    return {DialogResult::Ok, dialog.SelectedFont(), dialog.SelectedColor(),
            dialog.SelectedReading()};
}

FindAnswer QtDialogs::AskFind(const FindRequest& request) {
    FindDialog dialog(owner_, request);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.Answer();
}

PlaceAnswer QtDialogs::AskPlace(const PlaceRequest& request) {
    PlaceDialog dialog(owner_, request);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.Answer();
}

DialogResult QtDialogs::ShowMessage(const Message& message) {
    // A message of the help may come while another message is open.
    QWidget* waiting = QApplication::activeModalWidget();
    QMessageBox box(waiting ? waiting : owner_);
    box.setWindowModality(Qt::WindowModal); // leaves the help window usable
    box.setWindowTitle(ToQt(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(message.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    box.setIcon(NativeIcon(message.icon));
    if (message.icon == MessageIcon::Application) box.setIconPixmap(ProgramIcon().pixmap(iconSize));
    AddButtons(box, message);
    if (message.helpButton) AddHelpButton(box, message.helpTopic);
    WidenForTitle(box);
    WidenForLines(box);
    if (box.windowIcon().isNull())
        box.setWindowIcon(ProgramIcon()); // the main window sets its own when idle
    return box.exec() == QMessageBox::Ok ? DialogResult::Ok : DialogResult::Cancel;
}

int QtDialogs::ShowRichMessage(const std::string& rtf, const std::u16string& title,
                               const std::vector<std::u16string>& buttons) {
    RichMessage message(owner_, rtf, buttons);
    message.setWindowTitle(ToQt(title));
    return message.ClickedButton();
}
