// An open file of the system, closed when it goes.
#pragma once

#include <unistd.h>

#include <utility>

class FileDescriptor {
  public:
    explicit FileDescriptor(int number = -1) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() { Close(); }

    bool IsOpen() const { return number_ >= 0; }
    int Number() const { return number_; }

    // False when the system says only now that what was written is lost.
    bool Close() { return number_ < 0 || close(std::exchange(number_, -1)) == 0; }

  private:
    int number_;
};
