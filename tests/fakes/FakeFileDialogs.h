#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>

#include "platform/FileDialogs.h"

namespace tessivo {

/// Gives the queued answers one after the other; without one the user cancels.
struct FakeFileDialogs : FileDialogs {
  OpenFilesAnswer openFiles(const OpenFilesRequest& request) override {
    ++calls;
    last = request;
    if (answers.empty()) return {};
    OpenFilesAnswer answer = std::move(answers.front());
    answers.pop_front();
    return answer;
  }

  std::optional<std::string> chooseFolder(const ChooseFolderRequest& request) override {
    ++folderCalls;
    lastFolder = request;
    return folderAnswer;
  }

  std::deque<OpenFilesAnswer> answers;
  OpenFilesRequest last;
  int calls = 0;
  std::optional<std::string> folderAnswer;
  ChooseFolderRequest lastFolder;
  int folderCalls = 0;
};

}  // namespace tessivo
