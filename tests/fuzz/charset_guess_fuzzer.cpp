// The guess of a charset: any bytes, in one sample or several.
#include "formats/codepages/charset_guess.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"
#include "formats/plain/plain_text_guess.h"
#include "tests/fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::size_t third = bytes.size() / 3;
    const std::string_view parts[] = {bytes.substr(0, third), bytes.substr(third, third),
                                      bytes.substr(2 * third)};
    const std::span<const std::string_view> samples =
        data[0] % 2 ? std::span(parts) : std::span(&bytes, 1);
    const auto guesses = GuessCharsets(samples, data[0] % 4 < 2 ? 1252 : 932);
    Require(!guesses.empty());
    for (std::size_t i = 0; i < guesses.size(); ++i) {
        Require(HasCodePage(guesses[i].page));
        Require(i == 0 || guesses[i].bits >= guesses[i - 1].bits);
    }
    Require(HasCodePage(GuessCharsetOfScript(samples, 1251)));
    LooksLikeDamagedUtf8(samples);
    if (const auto page = EscapedPage(bytes)) Require(IsEscapedPage(*page));
    return 0;
}
