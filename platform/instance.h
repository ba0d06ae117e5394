// Which of the running programs may use a data file, and what a later one asks of it.
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

// What a later start of the program asks of the running one.
struct StartRequest {
    std::u16string book;       // full path; "": only to come to the front
    std::u16string activation; // for `Window::BringToFront`
};

enum class HandOver {
    Taken,
    NobodyThere, // the instance does not listen yet, or no more
    Refused,     // it is about to end
    NoAnswer     // within the time given; then it does not do later what it was asked for
};
