#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "base/FilePath.h"

#ifdef _WIN32
#include <share.h>

#include <cstdio>
#else
#include <unistd.h>
#endif

namespace tessivo {

#ifndef _WIN32
/// While it lives, the test may do what anybody may: file modes do not bind the super-user.
class ActsAsNobody {
 public:
  ActsAsNobody() {
    constexpr uid_t kNobody = 65534;
    EXPECT_EQ(seteuid(user_ == 0 ? kNobody : user_), 0);
  }
  ~ActsAsNobody() { EXPECT_EQ(seteuid(user_), 0); }
  ActsAsNobody(const ActsAsNobody&) = delete;
  ActsAsNobody& operator=(const ActsAsNobody&) = delete;

 private:
  uid_t user_ = geteuid();
};
#endif

/// While it lives, nobody can write the file; on Windows an open file that denies writing binds
/// everybody.
class WriteProtected {
 public:
  explicit WriteProtected(const std::string& path) : file_(toFilePath(path)) {
    using std::filesystem::perms;
    std::filesystem::permissions(file_, perms::owner_read | perms::group_read | perms::others_read);
#ifdef _WIN32
    guard_ = _wfsopen(file_.c_str(), L"rb", _SH_DENYWR);
    EXPECT_NE(guard_, nullptr);
#else
    nobody_.emplace();
#endif
  }
  ~WriteProtected() {
#ifdef _WIN32
    std::fclose(guard_);
#else
    nobody_.reset();
#endif
    std::filesystem::permissions(file_, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
  }
  WriteProtected(const WriteProtected&) = delete;
  WriteProtected& operator=(const WriteProtected&) = delete;

 private:
  std::filesystem::path file_;
#ifdef _WIN32
  std::FILE* guard_ = nullptr;
#else
  std::optional<ActsAsNobody> nobody_;
#endif
};

}  // namespace tessivo
