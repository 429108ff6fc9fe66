#pragma once

/// The program's pictures, by the numbers of their icon resources. The drawings lie in
/// packaging/icons as NUMBER-name.svg; the build makes each an icon of 16 to 64 pixels with
/// transparency (the program's own also 256) and links them all into the program. Who shows one
/// loads it in the size it needs, or gives the number to a picture box or button.
namespace tessivo::icon {

inline constexpr int kProgram = 1;  ///< the program and its windows
inline constexpr int kPlay = 101;
inline constexpr int kPause = 102;
inline constexpr int kStop = 103;
inline constexpr int kSoundOn = 104;
inline constexpr int kMuted = 105;
inline constexpr int kFullScreen = 106;
inline constexpr int kLeaveFullScreen = 107;
inline constexpr int kRepeatOne = 108;
inline constexpr int kRepeatList = 109;
inline constexpr int kInOrder = 110;
inline constexpr int kAdd = 111;
inline constexpr int kDelete = 112;
inline constexpr int kMoveUp = 113;
inline constexpr int kMoveDown = 114;
inline constexpr int kClear = 115;
inline constexpr int kHideList = 116;
inline constexpr int kShowList = 117;
inline constexpr int kError = 118;
inline constexpr int kTray = 119;
inline constexpr int kTrayOfOldWindows = 120;  ///< few colours, hard edges
inline constexpr int kMenu = 121;
inline constexpr int kInstalled = 122;

}  // namespace tessivo::icon
