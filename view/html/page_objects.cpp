#include "view/html/page_objects.h"

#include <algorithm>
#include <optional>

namespace {
bool IsLink(const HtmlNode& node) {
    return node.Is(HtmlName::A) && node.Attribute(HtmlName::Href);
}

std::optional<ReadingObjectKind> KindOf(const HtmlNode& node) {
    if (HeadingLevelOf(node) > 0) return ReadingObjectKind::Heading;
    if (!node.IsElement() || node.nameSpace != HtmlNamespace::Html) return std::nullopt;
    switch (node.name) {
    case HtmlName::A:
        if (!IsLink(node)) return std::nullopt;
        return ReadingObjectKind::Link;
    case HtmlName::Img: return ReadingObjectKind::Picture;
    case HtmlName::Ul:
    case HtmlName::Ol: return ReadingObjectKind::List;
    case HtmlName::Li: return ReadingObjectKind::ListItem;
    case HtmlName::Table: return ReadingObjectKind::Table;
    case HtmlName::Tr: return ReadingObjectKind::Row;
    case HtmlName::Td:
    case HtmlName::Th: return ReadingObjectKind::Cell;
    default: return std::nullopt;
    }
}

std::u16string ValueOf(const HtmlNode& node, HtmlName attribute) {
    const HtmlAttribute* found = node.Attribute(attribute);
    return found ? std::u16string(found->Value()) : std::u16string();
}

// `alt=""`: it is there for the looks alone (HTML Standard, 4.8.4.4).
bool IsDecoration(const HtmlNode& node) {
    const HtmlAttribute* alternative = node.Attribute(HtmlName::Alt);
    return node.Is(HtmlName::Img) && alternative && alternative->length == 0;
}

class Reader {
  public:
    Reader(const LoadedPage& page, const CssPageStyles& styles) : page_(page), styles_(styles) {}

    ReadingObjects Read() {
        const HtmlTree& tree = page_.Tree();
        const HtmlNodeId body = tree.Body();
        for (HtmlNodeId id = body; id != noHtmlNode;) {
            Leave(id);
            if (tree[id].IsElement() && styles_.Of(id).box->display == CssDisplay::None) {
                id = tree.NextAfter(id, body);
                continue;
            }
            if (const HtmlTextPiece* piece = page_.PieceOf(id)) Count(*piece);
            Open(id, tree.NextAfter(id, body));
            id = tree.Next(id, body);
        }
        Leave(noHtmlNode);
        return std::move(objects_);
    }

  private:
    struct Opened {
        std::size_t object = 0;
        HtmlNodeId after = noHtmlNode; // the first node that is not in it
        bool hasText = false;
    };

    // What the node is not in any more; noHtmlNode is the page's end.
    void Leave(HtmlNodeId id) {
        while (!around_.empty() && around_.back().after == id) {
            ReadingObject& object = objects_[around_.back().object];
            object.span.end = lastEnd_;
            if (!around_.back().hasText) {
                object.span.start = lastEnd_;
                NameByPictures(object);
            }
            object.end = objects_.size();
            around_.pop_back();
        }
    }

    // A link may have nothing but a picture in it.
    void NameByPictures(ReadingObject& object) const {
        for (std::size_t i = &object - objects_.data() + 1; i < objects_.size(); ++i)
            if (objects_[i].kind == ReadingObjectKind::Picture)
                object.name += (object.name.empty() ? u"" : u" ") + objects_[i].name;
    }

    void Count(const HtmlTextPiece& piece) {
        lastEnd_ = piece.end;
        for (std::size_t i = around_.size(); i-- > 0 && !around_[i].hasText;) {
            around_[i].hasText = true;
            objects_[around_[i].object].span.start = piece.start;
        }
    }

    void Open(HtmlNodeId id, HtmlNodeId after) {
        const HtmlNode& node = page_.Tree()[id];
        const auto kind = KindOf(node);
        if (!kind || objects_.size() == maxReadingObjects || IsDecoration(node)) return;
        ReadingObject object;
        object.kind = *kind;
        object.node = id;
        object.level = HeadingLevelOf(node);
        object.isNumbered = node.Is(HtmlName::Ol);
        if (*kind == ReadingObjectKind::Picture) object.name = ValueOf(node, HtmlName::Alt);
        if (*kind == ReadingObjectKind::Link) object.address = ValueOf(node, HtmlName::Href);
        if (!around_.empty()) object.parent = around_.back().object;
        if (*kind == ReadingObjectKind::Row)
            if (ReadingObject* table = Around(ReadingObjectKind::Table)) ++table->rows;
        if (*kind == ReadingObjectKind::Cell) CountCell();
        around_.push_back({objects_.size(), after});
        objects_.push_back(std::move(object));
    }

    void CountCell() {
        ReadingObject *row = Around(ReadingObjectKind::Row),
                      *table = Around(ReadingObjectKind::Table);
        if (!row || !table) return;
        table->columns = std::max(table->columns, ++row->columns);
    }

    ReadingObject* Around(ReadingObjectKind kind) {
        for (std::size_t i = around_.size(); i-- > 0;)
            if (objects_[around_[i].object].kind == kind) return &objects_[around_[i].object];
        return nullptr;
    }

    const LoadedPage& page_;
    const CssPageStyles& styles_;
    ReadingObjects objects_;
    std::vector<Opened> around_; // the innermost last
    TextPos lastEnd_ = 0;        // of the text so far
};
} // namespace

ReadingObjects PageObjects(const LoadedPage& page, const CssPageStyles& styles) {
    return Reader(page, styles).Read();
}

HtmlNodeId LinkAround(const HtmlTree& tree, HtmlNodeId node) {
    while (node != noHtmlNode && !IsLink(tree[node]))
        node = tree[node].parent;
    return node;
}
