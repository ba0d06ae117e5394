#include "tests/contract/reference_view/random_book.h"

#include "common/utf.h"
#include "tests/contract/reference_view/random_words.h"

RandomBook MakeBook(Random& random, int number) {
    RandomBook book;
    switch (number % 8) {
    case 0: book.bytes = Utf16ToUtf8(RandomLines(random, 1 + Below(random, 60), 12, 0)); break;
    case 1: book.bytes = Utf16ToUtf8(RandomLines(random, 1 + Below(random, 20), 80, 6)); break;
    case 2: book.bytes = Utf16ToUtf8(RandomLines(random, Below(random, 3), 3, 0)); break;
    case 3:
        book.bytes = Utf16ToUtf8(OneLongLine(random));
        book.isLong = true;
        break;
    case 4: return MakeRichBook(random, false, false);
    case 5: return MakeRichBook(random, true, false);
    default: return MakeRichBook(random, OneIn(random, 2), true);
    }
    return book;
}
