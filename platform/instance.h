// Which of the running programs may use a data file.
#pragma once

#include <string>

// Whether this process is the one that uses the data file, or who else does.
struct InstanceClaim {
    enum class Result {
        Granted,     // it is this one
        Own,         // another process of this user on this machine
        SomebodyElse // another user's, or on another machine
    };
    Result result = Result::Granted;
    std::u16string holder; // SomebodyElse: "anna on desk", as far as it is known

    bool IsGranted() const { return result == Result::Granted; }
};
