#include "platform/qt/help/help_list.h"

#include "platform/qt/base/qt_text.h"

#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextLayout>

namespace {
constexpr int padding = 5; // pixels around an item

// The title in bold, and below it the excerpt with the matches in bold.
std::unique_ptr<QTextLayout> LayOutFinding(const HelpFinding& finding, const QFont& font,
                                           int width) {
    const QString title = ToQt(finding.title);
    auto layout =
        std::make_unique<QTextLayout>(title + QChar::LineSeparator + ToQt(finding.excerpt), font);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    QList<QTextLayout::FormatRange> ranges{{0, int(title.size()), bold}};
    for (const HelpSpan& mark : finding.marks)
        ranges.append({int(title.size()) + 1 + mark.start, mark.length, bold});
    layout->setFormats(ranges);
    layout->beginLayout();
    qreal height = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
    }
    layout->endLayout();
    return layout;
}

class FindingDelegate final : public QStyledItemDelegate {
  public:
    explicit FindingDelegate(HelpList& list) : QStyledItemDelegate(&list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const HelpFinding* finding = list_.Finding(index.row());
        if (!finding) return QStyledItemDelegate::sizeHint(option, index) + QSize(0, padding);
        const int height =
            int(LayOutFinding(*finding, list_.font(), TextWidth())->boundingRect().height());
        return {TextWidth(), height + 2 * padding};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const HelpFinding* finding = list_.Finding(index.row());
        if (!finding) return QStyledItemDelegate::paint(painter, option, index);
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        row.text.clear();
        list_.style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, &list_);
        const bool selected = row.state & QStyle::State_Selected;
        const auto group = row.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
        painter->setPen(
            row.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
        LayOutFinding(*finding, list_.font(), TextWidth())
            ->draw(painter, QPointF(row.rect.topLeft() + QPoint(padding, padding)));
    }

  private:
    int TextWidth() const { return list_.viewport()->width() - 2 * padding; }

    HelpList& list_;
};
} // namespace

HelpList::HelpList(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new FindingDelegate(*this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
}

void HelpList::ShowTitles(const std::vector<std::u16string>& titles) {
    clear();
    findings_.clear();
    for (const std::u16string& title : titles)
        addItem(ToQt(title));
}

void HelpList::ShowFindings(std::vector<HelpFinding> findings) {
    clear();
    findings_ = std::move(findings);
    for (const HelpFinding& finding : findings_) {
        auto* item = new QListWidgetItem(ToQt(finding.title), this);
        // Read by screen readers after the title.
        item->setData(Qt::AccessibleDescriptionRole, ToQt(finding.excerpt));
    }
    if (findings_.empty()) {
        addItem(tr("Nothing was found."));
        item(0)->setFlags(Qt::NoItemFlags);
    }
}

const HelpFinding* HelpList::Finding(int row) const {
    return row >= 0 && row < std::ssize(findings_) ? &findings_[std::size_t(row)] : nullptr;
}

void HelpList::resizeEvent(QResizeEvent* event) {
    QListWidget::resizeEvent(event);
    scheduleDelayedItemsLayout(); // item heights depend on the width
}
