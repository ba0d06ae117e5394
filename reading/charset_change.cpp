#include "reading/charset_change.h"

void MovePlaces(std::vector<TextPos>& places, const std::shared_ptr<const FileReader>& file,
                const PlainTextForm& fromForm, const PlainTextSource& to) {
    const PlainTextSource from(file, fromForm);
    for (TextPos& place : places)
        place = to.PositionOf(from.ByteOf(place));
}
