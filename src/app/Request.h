#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// What one instance asks of another: bytes that travel as `WM_COPYDATA`. Also senders built for
/// older systems use this record, so its bytes stay as they are.
namespace tessivo::request {

/// The tray form's title, by which a second instance finds the first.
inline constexpr const char* kWindowTitle = "play27182831415";
/// The number under which requests travel; others are not ours.
inline constexpr std::uint32_t kNumber = 1;
/// Bytes that both sides set aside for a text.
inline constexpr std::size_t kBufferBytes = 2000;
/// The request to show the control panel. Every other text is a command line.
inline constexpr const char* kShowMainFace = "-SMF";

/// The record's bytes: the text in UTF-16 and one zero byte more. Nothing when that does not fit
/// the buffer: a text of 1000 characters or more.
std::optional<std::vector<std::uint8_t>> encode(const std::string& text);

/// The text up to its first NUL; nothing when there are more bytes than the buffer holds.
std::optional<std::string> decode(std::span<const std::uint8_t> bytes);

}  // namespace tessivo::request
