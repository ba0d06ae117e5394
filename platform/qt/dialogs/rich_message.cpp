#include "platform/qt/dialogs/rich_message.h"

#include "platform/qt/base/qt_color.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/text_view/qt_text_view.h"

#include <QAbstractScrollArea>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr QSize textSize(480, 60); // pixels; a few short lines
constexpr int westernCodePage = 1252;
} // namespace

RichMessage::RichMessage(QWidget* parent, const std::string& rtf,
                         const std::vector<std::u16string>& buttons)
    : QDialog(parent), text_(std::make_unique<QtTextView>(this)) {
    text_->SetBackColor(FromQColor(palette().color(QPalette::Window)));
    text_->SetAutoColor(true);
    text_->LoadRichText(rtf, westernCodePage);
    auto* view = qobject_cast<QAbstractScrollArea*>(text_->Widget());
    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setFixedSize(textSize);

    auto* row = new QDialogButtonBox;
    int number = 0;
    for (const std::u16string& caption : buttons) {
        // Buttons of one role keep their order.
        QPushButton* button = row->addButton(ToQt(caption), QDialogButtonBox::ActionRole);
        button->setDefault(++number == 1);
        connect(button, &QPushButton::clicked, this, [this, number] { done(number); });
        if (number == 1) button->setFocus();
    }
    auto* column = new QVBoxLayout(this);
    column->addWidget(view);
    column->addWidget(row);
}

RichMessage::~RichMessage() = default;

int RichMessage::ClickedButton() {
    return exec();
}
