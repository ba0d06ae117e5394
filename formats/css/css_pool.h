// Equal values once.
#pragma once

#include <cstdint>
#include <deque>
#include <string_view>
#include <unordered_map>

// Values are equal when their bytes are: a type in which every byte is of a member.
template <typename T>
class CssPool {
  public:
    struct Kept {
        const T* value = nullptr;
        std::uint32_t number = 0;
    };
    Kept Find(const T& value) {
        const auto known = known_.find(BytesOf(value));
        if (known != known_.end()) return known->second;
        const Kept kept{&values_.emplace_back(value), static_cast<std::uint32_t>(known_.size())};
        return known_.emplace(BytesOf(*kept.value), kept).first->second;
    }
    std::size_t Count() const { return values_.size(); }

  private:
    static std::string_view BytesOf(const T& value) {
        return {reinterpret_cast<const char*>(&value), sizeof value};
    }

    std::deque<T> values_;
    std::unordered_map<std::string_view, Kept> known_; // views of the values kept
};
