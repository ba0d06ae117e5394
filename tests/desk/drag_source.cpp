// A window to drag files out of: a press and a move of the mouse anywhere in it start the drag.
// Its argument is a file with the addresses to drag, which are handed on byte for byte.
#include <QApplication>
#include <QDrag>
#include <QFile>
#include <QMimeData>
#include <QMouseEvent>
#include <QWidget>

#include <cstdio>

namespace {

// A list of addresses that may hold any bytes: Qt's own goes through QUrl, which changes some.
class RawAddresses final : public QMimeData {
  public:
    explicit RawAddresses(QByteArray addresses) : addresses_(std::move(addresses)) {}
    QStringList formats() const override { return {QStringLiteral("text/uri-list")}; }
    bool hasFormat(const QString& type) const override { return formats().contains(type); }

  protected:
    QVariant retrieveData(const QString&, QMetaType) const override { return addresses_; }

  private:
    QByteArray addresses_;
};

// To the story, line by line.
void Say(const char* word) {
    std::puts(word);
    std::fflush(stdout);
}

class DragSource final : public QWidget {
  public:
    explicit DragSource(QByteArray addresses) : addresses_(std::move(addresses)) {}

  protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!(event->buttons() & Qt::LeftButton)) return;
        auto* drag = new QDrag(this);
        drag->setMimeData(new RawAddresses(addresses_));
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            Say(action == Qt::IgnoreAction ? "unwanted" : "welcome");
        });
        Say("dragging");
        Say(drag->exec(Qt::CopyAction) == Qt::IgnoreAction ? "refused" : "dropped");
    }

  private:
    QByteArray addresses_;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QFile file(QFile::decodeName(argc > 1 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly)) return 1;
    DragSource source(file.readAll());
    source.setWindowTitle(QStringLiteral("Drag source"));
    source.setGeometry(0, 0, 120, 120);
    source.show();
    return QApplication::exec();
}
