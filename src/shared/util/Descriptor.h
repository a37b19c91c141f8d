#pragma once
#include <unistd.h>

#include <utility>

namespace util {

/// Owns a file descriptor; -1 means none.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { close(); }

    int get() const { return number_; }
    bool isOpen() const { return number_ >= 0; }
    /// Releases the descriptor to a new owner.
    int release() { return std::exchange(number_, -1); }
    /// False if the system could not store what had been written.
    bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

}  // namespace util
