#pragma once

/// Why a file could not be played, as the operator reads it. The two texts on the file format
/// differ by the full stop on purpose: they tell which engine was the last to fail.
namespace tessivo::playMessage {
inline constexpr const char* kPathEmpty = "播放路径为空.";
inline constexpr const char* kFileMissing = "要播放的文件不存在.";
inline constexpr const char* kMediaFailedLast = "无法识别的文件格式";
inline constexpr const char* kRealFailedLast = "无法识别的文件格式.";
inline constexpr const char* kMediaOnlyFailed =
    "Media Play无法播放该文件,请通过播放器选择列表使用Real Player重新尝试播放.";
inline constexpr const char* kRealOnlyFailed =
    "Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.";
}  // namespace tessivo::playMessage
