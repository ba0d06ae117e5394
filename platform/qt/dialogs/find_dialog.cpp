#include "platform/qt/dialogs/find_dialog.h"

#include "platform/qt/base/qt_font.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/dialogs/check_box.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int textWidth = 40; // average characters of the requested font
} // namespace

FindDialog::FindDialog(QWidget* parent, const FindRequest& request)
    : QDialog(parent), initial_(request.text), text_(new QComboBox),
      wholeWord_(new CheckBox(tr("Match &whole word only"))),
      matchCase_(new CheckBox(tr("Match &case"))) {
    setWindowTitle(ToQt(request.title));
    text_->setEditable(true);
    text_->setInsertPolicy(QComboBox::NoInsert);
    text_->setCompleter(nullptr); // would replace the typed text by an earlier search
    text_->setFont(MakeFont(request.font));
    text_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    text_->setMinimumContentsLength(textWidth);
    for (const std::u16string& search : request.history)
        text_->addItem(ToQt(search));
    text_->setCurrentIndex(
        text_->findText(ToQt(request.text), Qt::MatchFixedString | Qt::MatchCaseSensitive));
    text_->setEditText(ToQt(request.text));
    initialText_ = text_->currentText();
    text_->lineEdit()->selectAll();
    wholeWord_->setChecked(request.wholeWord);
    matchCase_->setChecked(request.matchCase);

    auto* label = new QLabel(tr("Fi&nd what:"));
    label->setBuddy(text_);
    auto* column = new QVBoxLayout(this);
    for (QWidget* widget : std::initializer_list<QWidget*>{label, text_, wholeWord_, matchCase_})
        column->addWidget(widget);
    AddButtons();
    text_->setFocus();
}

void FindDialog::AddButtons() {
    auto* buttons = new QDialogButtonBox;
    QPushButton* find = buttons->addButton(tr("&Find"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    find->setDefault(true);
    layout()->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const auto updateButton = [find](const QString& text) { find->setEnabled(!text.isEmpty()); };
    connect(text_, &QComboBox::editTextChanged, find, updateButton);
    updateButton(initialText_);
}

FindAnswer FindDialog::Answer() const {
    const QString text = text_->currentText();
    return {DialogResult::Ok, text == initialText_ ? initial_ : FromQt(text),
            wholeWord_->isChecked(), matchCase_->isChecked()};
}
