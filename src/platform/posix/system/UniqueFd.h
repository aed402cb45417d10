#pragma once

#include <unistd.h>
#include <utility>

/// Owns a file descriptor.
class UniqueFd {
 public:
  UniqueFd() = default;
  explicit UniqueFd(int fd) : fd_(fd) {}
  UniqueFd(UniqueFd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~UniqueFd() { Close(); }

  int Get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }
  int Release() { return std::exchange(fd_, -1); }

  /// False when the system only now tells that something written did not arrive.
  bool Close() { return fd_ < 0 || close(std::exchange(fd_, -1)) == 0; }

 private:
  int fd_ = -1;
};
