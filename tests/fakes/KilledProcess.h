#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessivo {

/// From here on the process may make that many changes to files (SQLite's, and renaming, linking
/// and removing ones by anybody); the next one kills it. In a process of its own only.
void dieAfterChanges(int changes);

/// Does `work`, which says whether it was done, in another process that is killed when it is about
/// to make one change more. Returns whether the work came to its end before. Linux only.
template <typename Work>
bool endsBeforeKill(int changes, Work work) {
  const pid_t child = fork();
  if (child == 0) {
    dieAfterChanges(changes);
    _exit(work() ? 0 : 1);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  const bool ended = WIFEXITED(status);
  EXPECT_TRUE(ended ? WEXITSTATUS(status) == 0 : WTERMSIG(status) == SIGKILL) << status;
  return ended;
}

}  // namespace tessivo

#endif
