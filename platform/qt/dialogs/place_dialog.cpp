#include "platform/qt/dialogs/place_dialog.h"

#include "platform/qt/base/qt_text.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
constexpr int listColumns = 50, listRows = 14; // of average characters and lines

QLabel* LabelOf(const QString& text, QWidget* field) {
    auto* label = new QLabel(text);
    label->setBuddy(field);
    field->setAccessibleName(QString(text).remove(QLatin1Char('&'))); // of a list not the buddy's
    return label;
}

bool MovesInList(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}
} // namespace

PlaceDialog::PlaceDialog(QWidget* parent, const PlaceRequest& request)
    : QDialog(parent), request_(request), percent_(new QSpinBox), filter_(new QLineEdit),
      list_(new QListWidget) {
    setWindowTitle(ToQt(request.title));
    percent_->setRange(0, 100);
    percent_->setSuffix(QStringLiteral(" %"));
    percent_->setValue(request.percent);
    percent_->selectAll();
    list_->setUniformItemSizes(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setTextElideMode(Qt::ElideRight);
    list_->setMinimumSize(fontMetrics().averageCharWidth() * listColumns,
                          fontMetrics().lineSpacing() * listRows);
    filter_->installEventFilter(this);
    LayOut();
    FillList();
    SelectCurrent();
    const bool hasHeadings = !request.headings.empty();
    filter_->setEnabled(hasHeadings);
    list_->setEnabled(hasHeadings);
    Connect();
    percent_->setFocus();
}

void PlaceDialog::Connect() {
    const auto choosePercent = [this] { Choose(Choice::Percent); };
    const auto chooseHeading = [this] { Choose(Choice::Heading); };
    // Enter emits it with the value unchanged; of the same number typed again it is not emitted.
    connect(percent_, &QSpinBox::valueChanged, this, [this](int value) {
        if (value != request_.percent) Choose(Choice::Percent);
    });
    connect(percent_->findChild<QLineEdit*>(), &QLineEdit::textEdited, this, choosePercent);
    connect(filter_, &QLineEdit::textEdited, this, [this] {
        FillList();
        list_->setCurrentRow(0);
        Choose(Choice::Heading);
    });
    connect(list_, &QListWidget::currentRowChanged, this, chooseHeading);
    connect(list_, &QListWidget::itemClicked, this, chooseHeading);
    connect(list_, &QListWidget::itemActivated, this, [this] {
        Choose(Choice::Heading);
        accept();
    });
}

void PlaceDialog::Choose(Choice choice) {
    choice_ = choice;
    go_->setEnabled(choice != Choice::Heading || list_->currentItem());
}

void PlaceDialog::LayOut() {
    auto* column = new QVBoxLayout(this);
    column->addWidget(LabelOf(tr("&Per cent of the book:"), percent_));
    column->addWidget(percent_);
    column->addWidget(LabelOf(tr("&Heading (type a part of it):"), filter_));
    column->addWidget(filter_);
    column->addWidget(LabelOf(tr("&List of headings:"), list_));
    column->addWidget(list_);
    auto* buttons = new QDialogButtonBox;
    go_ = buttons->addButton(tr("&Go"), QDialogButtonBox::AcceptRole);
    go_->setDefault(true);
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void PlaceDialog::FillList() {
    const QSignalBlocker quiet(list_);
    list_->clear();
    for (const int index : MatchingHeadings(request_.headings, FromQt(filter_->text()))) {
        const Heading& heading = request_.headings[static_cast<std::size_t>(index)];
        auto* item = new QListWidgetItem(ToQt(IndentedHeading(heading)), list_);
        item->setData(Qt::UserRole, index);
        item->setData(Qt::AccessibleTextRole, ToQt(heading.text));
    }
}

void PlaceDialog::SelectCurrent() {
    if (request_.heading < 0) return;
    const QSignalBlocker quiet(list_);
    list_->setCurrentRow(request_.heading); // all are in the list
    list_->scrollToItem(list_->currentItem(), QAbstractItemView::PositionAtCenter);
}

bool PlaceDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && MovesInList(static_cast<QKeyEvent*>(event)->key())) {
        QCoreApplication::sendEvent(list_, event);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

PlaceAnswer PlaceDialog::Answer() const {
    if (choice_ == Choice::None) return {};
    const QListWidgetItem* item = choice_ == Choice::Heading ? list_->currentItem() : nullptr;
    return {DialogResult::Ok, percent_->value(), item ? item->data(Qt::UserRole).toInt() : -1};
}
