#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

namespace tessivo {

/// While it lives, this process can make no file longer than some bytes: the disk is full. Linux
/// only.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) : onTooLong_(signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &before_), 0);
    const rlimit small{bytes, before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    signal(SIGXFSZ, onTooLong_);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  void (*onTooLong_)(int);
  rlimit before_{};
};

}  // namespace tessivo

#endif
