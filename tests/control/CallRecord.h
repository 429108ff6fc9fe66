#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

namespace tessivo::test_control {

/// What has been asked of the controls of this process, in order. With the environment variable
/// TESSIVO_TEST_CONTROL_LOG each line also goes to the end of that file at once.
class CallRecord {
 public:
  void add(std::string line);
  void clear() { lines_.clear(); }
  const std::vector<std::string>& lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

/// "227 call I2& 30"
std::string textOfCall(DISPID member, WORD flags, const DISPPARAMS& parameters);
/// UTF-8 of a BSTR, which may be null.
std::string textOf(const wchar_t* text, UINT length);

}  // namespace tessivo::test_control
