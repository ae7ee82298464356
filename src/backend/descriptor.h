#pragma once

#include <unistd.h>
#include <utility>

// Owns one file descriptor.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(Descriptor &&other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    Descriptor &operator=(Descriptor &&) = delete;
    ~Descriptor() { (void)close(); }

    int get() const { return fd_; }
    int release() { return std::exchange(fd_, -1); }
    bool valid() const { return fd_ >= 0; }

    // False when the system reported an error, which for a written file can be the first sign of a lost
    // write.
    bool close() {
        const int fd = std::exchange(fd_, -1);
        return fd < 0 || ::close(fd) == 0;
    }

private:
    int fd_;
};
