// What the port of the version information promises, on every back end.
#include "tests/contract/version_info_contract.h"

#include "product.h"

#include <doctest/doctest.h>

TEST_CASE("version info contract: this program's is that of the build") {
    OnEach(VersionInfoBackEnds(), [](VersionInfoUnderTest& test) {
        const ProgramVersion version = test.Port().OwnVersion();
        CHECK(version.company == u"" PRODUCT_COMPANY);
        CHECK(version.title == u"" PRODUCT_TITLE);
        CHECK(version.description == u"" PRODUCT_DESCRIPTION);
        CHECK(version.comments == u"" PRODUCT_COMMENTS);
        CHECK(version.copyright == u"" PRODUCT_COPYRIGHT);
        CHECK(version.trademarks == u"" PRODUCT_TRADEMARKS);
        CHECK(version.major == PRODUCT_VERSION_MAJOR);
        CHECK(version.minor == PRODUCT_VERSION_MINOR);
        CHECK(version.revision == PRODUCT_VERSION_REVISION);
    });
}

TEST_CASE("version info contract: another program's description") {
    OnEach(VersionInfoBackEnds(), [](VersionInfoUnderTest& test) {
        CHECK(
            (test.Port().FileDescription(test.DescribedProgram(), u".txt") == test.Description()));
    });
}

TEST_CASE("version info contract: a file without a description has an empty one") {
    OnEach(VersionInfoBackEnds(), [](VersionInfoUnderTest& test) {
        for (const std::u16string& path :
             {test.Folder() + u"/text", test.Folder() + u"/none", test.Folder(), std::u16string(),
              std::u16string(u"/"), std::u16string(u"a?b"), std::u16string(u"../text"),
              std::u16string(5000, u'x'), std::u16string(1, u'\0')}) {
            CHECK(test.Port().FileDescription(path, u".txt").empty());
        }
    });
}
