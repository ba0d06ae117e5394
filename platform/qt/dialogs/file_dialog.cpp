#include "platform/qt/dialogs/file_dialog.h"

#include "platform/qt/base/file_url.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/dialogs/file_filter.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QMimeDatabase>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace {

class FileDialog final : public QFileDialog {
  public:
    FileDialog(QWidget* owner, const OpenFileRequest& request)
        : QFileDialog(owner, ToQt(request.title), ToQt(request.initialFolder)),
          filters_(QtNameFilters(request)) {
        setFileMode(QFileDialog::ExistingFile);
        setOption(QFileDialog::HideNameFilterDetails); // the filter names list the patterns in a
                                                       // more legible form
        setLabelText(QFileDialog::FileType, QStringLiteral("Files of &type:"));
        setNameFilters(filters_);
        if (request.filterIndex >= 1 && request.filterIndex <= filters_.size())
            selectNameFilter(filters_[request.filterIndex - 1]);
        if (!request.fileName.empty()) selectFile(ToQt(request.fileName));
    }

    int FilterIndex() const { return NameFilterNumber(filters_, selectedNameFilter()); }

  protected:
    void accept() override {
        if (name_ && !Exists(name_->text())) UseMeantPath();
        const QStringList files = selectedFiles();
        if (const QString typed = TypedFile(); !typed.isEmpty() && files.value(0) != typed)
            list_->clearSelection(); // navigating to the folder may have left a selection
        QFileDialog::accept();
    }

    void showEvent(QShowEvent* event) override {
        if (!open_) {
            FindWidgets();
            WidenColumns();
        }
        QFileDialog::showEvent(event);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == open_ && event->type() == QEvent::EnabledChange) EnableOpenForTypedName();
        if (object == completions_ && HandleCompleterKey(*event)) return true;
        return QFileDialog::eventFilter(object, event);
    }

  private:
    // Only Qt's own dialog has these; the desktop's runs in another process or toolkit.
    void FindWidgets() {
        const auto* buttons = findChild<QDialogButtonBox*>();
        open_ = buttons ? buttons->button(QDialogButtonBox::Open) : nullptr;
        name_ = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        list_ = findChild<QListView*>(QStringLiteral("listView"));
        if (!open_ || !name_ || !list_) return;
        open_->installEventFilter(this);
        connect(name_, &QLineEdit::textChanged, this, &FileDialog::EnableOpenForTypedName);
        completions_ = name_->completer() ? name_->completer()->popup() : nullptr;
        if (completions_) completions_->installEventFilter(this);
        auto* label = findChild<QLabel*>(QStringLiteral("fileTypeLabel"));
        auto* types = findChild<QWidget*>(QStringLiteral("fileTypeCombo"));
        if (label && types) label->setBuddy(types);
    }

    // Qt's widths are those of an empty folder's, and its dialog has no room for more.
    void WidenColumns() {
        enum Column { Name, Size, Type, Date };
        constexpr int minNameWidth = 260, besideText = 24; // pixels; a cell's margins
        auto* details = findChild<QTreeView*>(QStringLiteral("treeView"));
        if (!open_ || !details) return;
        QHeaderView& header = *details->header();
        const QDateTime longDate(QDate(2028, 12, 28), QTime(22, 58, 58));
        const std::pair<int, QString> widest[] = {
            {Size, QLocale::system().formattedDataSize(1'022 << 20)},
            {Type, QMimeDatabase().mimeTypeForName(QStringLiteral("text/plain")).comment()},
            {Date, QLocale::system().toString(longDate, QLocale::ShortFormat)}};
        for (const auto& [column, text] : widest) {
            const int width = details->fontMetrics().horizontalAdvance(text) + besideText;
            header.resizeSection(column, std::max(header.sectionSize(column), width));
        }
        const int others = header.length() - header.sectionSize(Name);
        const int sideBar = 120, frame = 60; // pixels; places at the left, margins and scroll bar
        const int wanted = std::max(width(), sideBar + minNameWidth + others + frame);
        resize(std::min(wanted, screen()->availableGeometry().width() * 9 / 10), height());
        header.resizeSection(Name, std::max(minNameWidth, width() - sideBar - others - frame));
    }

    // The existing file whose name or path is in the edit box; "" if there is none.
    QString TypedFile() const {
        if (!name_ || !list_ || name_->text().isEmpty()) return {};
        const QFileInfo file(directory(), name_->text());
        return file.isFile() ? file.absoluteFilePath() : QString();
    }

    bool Exists(const QString& typed) const { return QFileInfo(directory(), typed).exists(); }

    // What is pasted may have a blank or a line end around it, or be the address of a file.
    void UseMeantPath() {
        const QString trimmed = name_->text().trimmed();
        const auto local = LocalPathOf(trimmed.toStdString());
        for (const QString& meant : {trimmed, QFile::decodeName(local.value_or("").c_str())}) {
            if (meant.isEmpty() || !Exists(meant)) continue;
            const QSignalBlocker noCompletions(name_);
            name_->setText(meant);
            return;
        }
    }

    // Qt disables the button for a file that the filter hides and for one that does not exist,
    // although accept() would open the one and report the other.
    void EnableOpenForTypedName() {
        if (!open_->isEnabled() && !name_->text().isEmpty()) open_->setEnabled(true);
    }

    // The completer's popup opens once the folder has been read, and swallows Enter even if no
    // completion is selected.
    bool HandleCompleterKey(const QEvent& event) {
        if (event.type() != QEvent::KeyPress) return false;
        const int key = static_cast<const QKeyEvent&>(event).key();
        const bool confirms = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (!confirms || completions_->selectionModel()->hasSelection()) return false;
        completions_->hide();
        open_->click();
        return true;
    }

    const QStringList filters_;
    QPushButton* open_ = nullptr;
    QLineEdit* name_ = nullptr;
    QListView* list_ = nullptr;
    QAbstractItemView* completions_ = nullptr;
};

} // namespace

OpenFileAnswer GetOpenFile(QWidget* owner, const OpenFileRequest& request) {
    FileDialog dialog(owner, request);
    OpenFileAnswer answer;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return answer;
    // Qt uses U+FFFD for bytes that it cannot decode.
    answer.fileName = FromQt(dialog.selectedFiles().constFirst());
    std::ranges::replace(answer.fileName, u'\uFFFD', u'?');
    answer.filterIndex = dialog.FilterIndex();
    answer.result = DialogResult::Ok;
    return answer;
}
