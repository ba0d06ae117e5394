// What the port of the registry promises, on every back end.
#include "tests/contract/registry_contract.h"

#include <doctest/doctest.h>

TEST_CASE("registry contract: what is missing reads as an empty text") {
    OnEach(RegistryBackEnds(), [](RegistryUnderTest& test) {
        CHECK(test.Port().Read(test.Key(), u"name").empty());
        CHECK(test.Port().Read(test.Key(), u"").empty());
        CHECK(test.Port().Read(u"", u"").empty());
    });
}

TEST_CASE("registry contract: what was written is read back, or the write says that it failed") {
    OnEach(RegistryBackEnds(), [](RegistryUnderTest& test) {
        const std::u16string text = u"\u0417\u043D\u0430\u0447\u00E9 \U0001D11E";
        for (const std::u16string& name : {std::u16string(u"name"), std::u16string()}) {
            const int error = test.Port().Write(test.Key(), name, text);
            CHECK((test.Port().Read(test.Key(), name) == (error == 0 ? text : u"")));
            CHECK(test.Port().Write(test.Key(), name, u"2") == error);
            CHECK((test.Port().Read(test.Key(), name) == (error == 0 ? u"2" : u"")));
        }
        CHECK(test.Port().Read(test.Key(), u"another").empty());
    });
}
