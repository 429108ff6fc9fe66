#pragma once

#include <string>

#include "platform/KeyPosting.h"

namespace tessivo {

/// Types one key at another program's window, wherever the keyboard is.
class SendKeyToAWin {
 public:
  explicit SendKeyToAWin(KeyPosting& keys) : keys_(keys) {}
  /// Posts the key's going down and coming up. The key is the first character of the text, a letter
  /// or a digit, small letters meaning the same key as capital ones; of an empty text, or one that
  /// begins with a character that is not ASCII, nothing is sent.
  void SendKey(WindowHandle window, const std::string& key);

 private:
  KeyPosting& keys_;
};

}  // namespace tessivo
