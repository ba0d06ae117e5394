// The port of fetching one small file from the web, when the user has asked for it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

constexpr std::size_t fetchLimit = 64 * 1024; // bytes
constexpr int fetchTime = 10'000;             // milliseconds, for everything together

enum class FetchStatus {
    Ok,
    Failed,    // not there, refused, too slow, too large, not safe: the caller need not know which
    Abandoned, // the program is ending
};

struct FetchAnswer {
    FetchStatus status = FetchStatus::Failed;
    std::string bytes; // empty unless Ok
};

class UpdateCheck {
  public:
    virtual ~UpdateCheck() = default;
    // Fetches by https, with the server's certificate checked; by http from this computer itself
    // only. Goes where the server redirects it under the same rules, and never from https to http.
    // Sends no cookie, no password and nothing about the user; stores nothing. Only a whole answer
    // of status 200 within both limits is Ok.
    // Events are handled meanwhile: the window paints, moves and can be closed.
    virtual FetchAnswer Fetch(const std::u16string& address) = 0;
    // The packages that a new version comes as on this system: file names, "*" for the version; ""
    // for whatever the product's page has. None where a setup program installs it.
    virtual std::vector<std::u16string> Packages() const = 0;
};
