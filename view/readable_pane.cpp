#include "view/readable_pane.h"

#include "view/reading_units.h"

namespace {
constexpr TextPos maxName = 1024; // units
} // namespace

const ReadingObjects& ReadablePane::Objects() {
    static const ReadingObjects none;
    return none;
}

std::u16string ReadingName(const ReadablePane& pane, const ReadingObject& object) {
    switch (object.kind) {
    case ReadingObjectKind::Picture: return object.name;
    case ReadingObjectKind::List:
    case ReadingObjectKind::Table:
    case ReadingObjectKind::Row: return {};
    case ReadingObjectKind::Heading:
    case ReadingObjectKind::Link:
    case ReadingObjectKind::ListItem:
    case ReadingObjectKind::Cell: break;
    }
    return object.name.empty() ? ReadableText(pane, object.span, maxName) : object.name;
}
