// Changes of files in memory, which a test hands over when it likes.
#pragma once

#include "platform/file_watch.h"

#include <algorithm>
#include <memory>
#include <vector>

class NoneFileWatch final : public FileWatch {
  public:
    using Changes = std::vector<std::u16string>; // the paths, in order
    explicit NoneFileWatch(std::shared_ptr<const Changes> changes) : changes_(std::move(changes)) {}

    void Watch(const std::u16string& path) override {
        watched = path;
        seen_ = changes_->size();
    }
    void Stop() override { Watch(u""); }
    bool SeesAllChanges() const override { return seesAll && !watched.empty(); }

    // As a system's event loop does.
    void Deliver() {
        const auto from = changes_->begin() + static_cast<std::ptrdiff_t>(seen_);
        const bool changed = std::find(from, changes_->end(), watched) != changes_->end();
        seen_ = changes_->size();
        if (changed && onChanged) onChanged();
    }

    std::u16string watched;
    bool seesAll = true; // not so as on a network drive

  private:
    std::shared_ptr<const Changes> changes_;
    std::size_t seen_ = 0;
};
