// What the contract suites of the ports share: a suite runs on each back end of a test program.
#pragma once

#include <doctest/doctest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

template <class UnderTest>
struct BackEnd {
    const char* name;
    std::unique_ptr<UnderTest> (*make)();
};

template <class UnderTest, class Implementation>
BackEnd<UnderTest> MakeBackEnd(const char* name) {
    return {name,
            []() -> std::unique_ptr<UnderTest> { return std::make_unique<Implementation>(); }};
}

template <class UnderTest>
void OnEach(const std::vector<BackEnd<UnderTest>>& backEnds,
            std::type_identity_t<void (*)(UnderTest&)> check) {
    for (const BackEnd<UnderTest>& backEnd : backEnds) {
        const std::string name = backEnd.name; // not the pointer
        CAPTURE(name);
        const auto test = backEnd.make();
        check(*test);
    }
}
