#include "platform/qt/dialogs/font_dialog.h"

#include "common/contrast.h"
#include "platform/qt/base/qt_color.h"
#include "platform/qt/base/qt_font.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/dialogs/check_box.h"
#include "platform/qt/dialogs/color_dialog.h"
#include "platform/qt/dialogs/font_scripts.h"
#include "platform/qt/dialogs/reading_list.h"
#include "platform/shared/reading_of_script.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr double minSize = 1, maxSize = 1638; // points
constexpr int maxVisibleFamilies = 14;
constexpr int sampleWidth = 300, sampleHeight = 90, swatchWidth = 32; // pixels

// Omits trailing zeros.
class SizeBox final : public QDoubleSpinBox {
  public:
    using QDoubleSpinBox::QDoubleSpinBox;
    QString textFromValue(double value) const override {
        return locale().toString(value, 'g', QLocale::FloatingPointShortest);
    }
};

const char16_t* SampleText(int charset) {
    for (const FontScript& script : FontScripts())
        if (script.charset == charset) return script.sample;
    return FontScripts().front().sample;
}

} // namespace

FontDialog::FontDialog(QWidget* parent, const FontRequest& request)
    : QDialog(parent), request_(request), color_(request.color) {
    setWindowTitle(ToQt(request_.title));
    auto* form = new QFormLayout(this);
    AddFamilyAndStyle(*form);
    AddSize(*form);
    AddEffects(*form);
    AddScript(*form);
    if (!request_.readings.empty()) AddReadings(*form);
    AddSample(*form);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    UpdateColor();
    family_->setFocus();
}

void FontDialog::AddFamilyAndStyle(QFormLayout& form) {
    family_ = new QFontComboBox;
    family_->setEditable(false);
    family_->setStyleSheet(QStringLiteral(
        "combobox-popup: 0")); // a drop-down list instead of a popup over the whole screen
    family_->setMaxVisibleItems(maxVisibleFamilies);
    family_->setPlaceholderText(ToQt(initial_.name)); // shown if the family is not installed
    family_->setCurrentIndex(family_->findText(ToQt(initial_.name), Qt::MatchFixedString));
    initialFamily_ = family_->currentIndex();
    connect(family_, &QComboBox::currentIndexChanged, this, &FontDialog::UpdateSample);
    form.addRow(tr("&Font:"), family_);

    style_ = new QComboBox;
    style_->addItems({tr("Regular"), tr("Italic"), tr("Bold"), tr("Bold Italic")});
    style_->setCurrentIndex((initial_.bold ? 2 : 0) + (initial_.italic ? 1 : 0));
    connect(style_, &QComboBox::currentIndexChanged, this, &FontDialog::UpdateSample);
    form.addRow(tr("&Style:"), style_);
}

void FontDialog::AddSize(QFormLayout& form) {
    size_ = new SizeBox;
    size_->setDecimals(2);
    size_->setRange(minSize, maxSize);
    size_->setValue(MakeFont(initial_).pointSizeF());
    initialSize_ = size_->value();
    connect(size_, &QDoubleSpinBox::valueChanged, this, &FontDialog::UpdateSample);
    form.addRow(tr("Si&ze:"), size_);
}

void FontDialog::AddEffects(QFormLayout& form) {
    strikethrough_ = new CheckBox(tr("Stri&keout"));
    strikethrough_->setChecked(initial_.strikethrough);
    underline_ = new CheckBox(tr("&Underline"));
    underline_->setChecked(initial_.underline);
    for (QCheckBox* box : {strikethrough_, underline_})
        connect(box, &QCheckBox::toggled, this, &FontDialog::UpdateSample);
    colorButton_ = new QPushButton(tr("Co&lor..."));
    colorButton_->setAutoDefault(false); // Enter accepts the dialog from every widget
    connect(colorButton_, &QPushButton::clicked, this, &FontDialog::SelectTextColor);

    auto* row = new QHBoxLayout;
    row->addWidget(strikethrough_);
    row->addWidget(underline_);
    row->addStretch();
    row->addWidget(colorButton_);
    form.addRow(tr("Effects:"), row);
}

void FontDialog::AddScript(QFormLayout& form) {
    script_ = new QComboBox;
    for (const FontScript& script : FontScripts())
        script_->addItem(tr(script.name), script.charset);
    if (script_->findData(initial_.charset) < 0)
        script_->addItem(tr("Other (%1)").arg(initial_.charset), initial_.charset);
    script_->setCurrentIndex(script_->findData(initial_.charset));
    connect(script_, &QComboBox::currentIndexChanged, this, &FontDialog::UpdateSample);
    form.addRow(tr("Sc&ript:"), script_);
}

void FontDialog::AddReadings(QFormLayout& form) {
    readings_ = new ReadingList(request_.readings, request_.reading);
    auto* label = new QLabel(tr("A line of this &book in each charset, likeliest first:"));
    label->setBuddy(readings_);
    readings_->setAccessibleName(label->text().remove(QLatin1Char('&'))); // not the buddy's here
    form.addRow(label);
    form.addRow(readings_);
    connect(readings_, &QTreeWidget::itemSelectionChanged, this,
            &FontDialog::SelectScriptOfReading);
    // By the user alone: the box follows the list, too.
    connect(script_, &QComboBox::activated, this, &FontDialog::SelectReadingOfScript);
}

int FontDialog::SelectedReading() const {
    return readings_ ? readings_->Selected() : -1;
}

void FontDialog::SelectScriptOfReading() {
    const int reading = SelectedReading();
    if (reading < 0) return;
    const bool initial = reading == request_.reading;
    const int charset =
        initial ? initial_.charset : request_.readings[static_cast<std::size_t>(reading)].charset;
    if (charset >= 0) script_->setCurrentIndex(script_->findData(charset));
}

// A text that reads in any script, as Unicode does, stays as it is.
void FontDialog::SelectReadingOfScript() {
    const int reading = SelectedReading(), charset = script_->currentData().toInt();
    const auto& readings = request_.readings;
    if (reading >= 0 && readings[static_cast<std::size_t>(reading)].charset < 0) return;
    if (charset == initial_.charset) return readings_->Select(request_.reading);
    readings_->Select(ReadingOfScript(readings, charset));
}

// Fixed height, so that the dialog does not change its size with the font's.
void FontDialog::AddSample(QFormLayout& form) {
    sample_ = new QLabel;
    sample_->setTextFormat(Qt::PlainText);
    sample_->setAlignment(Qt::AlignCenter);
    sample_->setFixedHeight(sampleHeight);
    sample_->setMinimumWidth(sampleWidth);
    sample_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    sample_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    sample_->setAutoFillBackground(true);
    form.addRow(tr("Sample:"), sample_);
}

ViewFont FontDialog::SelectedFont() const {
    ViewFont font = initial_;
    if (family_->currentIndex() != initialFamily_) font.name = FromQt(family_->currentText());
    if (size_->value() != initialSize_) font.size = size_->value();
    font.charset = script_->currentData().toInt();
    font.bold = style_->currentIndex() / 2;
    font.italic = style_->currentIndex() % 2;
    font.underline = underline_->isChecked();
    font.strikethrough = strikethrough_->isChecked();
    return font;
}

void FontDialog::SelectTextColor() {
    const ColorAnswer answer = GetColor(this, tr("Color"), color_);
    if (answer.result != DialogResult::Ok) return;
    color_ = answer.color;
    UpdateColor();
}

void FontDialog::UpdateColor() {
    QPixmap swatch(swatchWidth, fontMetrics().ascent());
    swatch.fill(ToQColor(color_));
    colorButton_->setIcon(swatch);
    colorButton_->setIconSize(swatch.size());
    UpdateSample();
}

void FontDialog::UpdateSample() {
    const Color background = FromQColor(palette().color(QPalette::Base));
    QPalette colors = sample_->palette();
    colors.setColor(QPalette::WindowText, ToQColor(color_));
    colors.setColor(QPalette::Window,
                    ToQColor(IsReadable(color_, background) ? background : LegibleOn(color_)));
    sample_->setPalette(colors);
    sample_->setFont(MakeFont(SelectedFont()));
    sample_->setText(QString::fromUtf16(SampleText(script_->currentData().toInt())));
}
