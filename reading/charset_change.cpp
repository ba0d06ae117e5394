#include "reading/charset_change.h"

void MovePlaces(std::vector<TextPos>& places, const std::shared_ptr<const FileReader>& file,
                int fromCodePage, const PlainTextSource& to) {
    const PlainTextSource from(file, PlainTextForm{TextEncoding::CodePage, fromCodePage});
    for (TextPos& place : places)
        place = to.PositionOf(from.ByteOf(place));
}
