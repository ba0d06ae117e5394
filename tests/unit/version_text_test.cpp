#include "shell/update/version_text.h"

#include <doctest/doctest.h>

TEST_CASE("version text: short and full") {
    const struct {
        int major, minor, revision;
        const char16_t *text, *full;
    } cases[] = {
        {3, 0, 0, u"3.00", u"3.00"},        {2, 5, 12, u"2.05.0012", u"2.5.12"},
        {2, 5, 0, u"2.05", u"2.5"},         {3, 12, 7, u"3.12.0007", u"3.12.7"},
        {1, 0, 3, u"1.00.0003", u"1.00.3"}, {0, 99, 9999, u"0.99.9999", u"0.99.9999"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.major);
        CAPTURE(c.minor);
        CAPTURE(c.revision);
        ProgramVersion version;
        version.major = c.major;
        version.minor = c.minor;
        version.revision = c.revision;
        CHECK(VersionText(version, VersionFormat::Padded) == c.text);
        CHECK(VersionText(version, VersionFormat::Full) == c.full);
    }
}
