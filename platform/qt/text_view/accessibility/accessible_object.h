// The accessible interface of what a text has besides its characters: a heading, a link, a picture.
#pragma once

#include "view/readable_pane.h"

#include <QAccessible>
#include <QPointer>

class AccessibleText;
class ReadableWidget;

// Of one version of the text's objects; when that is over it is not valid any more and has nothing.
class AccessibleObject final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    AccessibleObject(ReadableWidget& view, std::size_t index);

    std::size_t Index() const { return index_; } // in ReadablePane::Objects

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

    // Called by its text, a picture by what it shows. Where a link leads to, and the level of a
    // heading, are described: Qt 6.4 has no attributes of objects.
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override; // empty out of view
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    // Of a link: to follow it.
    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    const ReadingObject& Self() const; // while it is valid
    AccessibleText* Document() const;
    std::vector<std::size_t> Children() const;

    QPointer<ReadableWidget> view_;
    std::size_t index_;
    int version_;
};
