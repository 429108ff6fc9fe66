// What another program sends to the tray form's window as WM_COPYDATA. The first byte says what the
// receiver is like (bit 0: not ready, bit 1: another request 299 ms before) and whether the number
// is another (bit 2); the rest are the request's bytes.
#include "app/Request.h"
#include "app/RequestReceiver.h"
#include "fakes/FakeSharedMemory.h"
#include "fuzz/Player.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 500;

namespace {

class RequestTarget : public Player {
 public:
  RequestTarget() {
    guard.onTimer.listen([this] { guard.setEnabled(false); });
  }

  void run(Input input) {
    const std::uint8_t world = input.byte();
    checkDecoding(input.bytes());
    receiver.boolSysReady((world & 1) == 0);
    guard.setEnabled((world & 2) != 0);
    const std::uintptr_t number = (world & 4) != 0 ? input.integer<std::uintptr_t>() : 1;
    const auto bytes = input.bytes();
    receiver.take(number, bytes, guard);
    check(bytes, (world & 3) == 0 && number == request::kNumber);
    time.advance(1000);
    checkPlayer();
  }

 private:
  static void checkDecoding(std::span<const std::uint8_t> bytes) {
    const auto text = request::decode(bytes);
    holds(text.has_value() == (bytes.size() <= request::kBufferBytes), "what fits is decoded");
    if (!text) return;
    holds(text->find('\0') == std::string::npos, "the text ends at the first NUL");
    const auto again = request::encode(*text);
    // A text that fills the buffer has no room for the zero byte.
    holds(again.has_value() == (2 * toUtf16(*text).size() < request::kBufferBytes), "encoded");
    holds(!again || request::decode(*again) == text, "encoded and decoded it is the same");
  }

  void check(std::span<const std::uint8_t> bytes, bool heard) {
    const auto text = request::decode(bytes);
    const bool shows = text == request::kShowMainFace;
    holds(memory.mappings.empty(), "no shared memory is made");
    holds(playList.lngListCount() <= 1, "one path at most");
    holds(!log.lines.empty(), "each request is in the log");
    if (!heard || !text || text->empty() || shows) {
      holds(playList.lngListCount() == 0, "nothing is added by what is refused");
    } else if (files.existing.contains(*text)) {
      holds(playList.lngListCount() == 1, "a file that exists is added");
    }
  }

  FakeSharedMemory memory;
  CommandLine lines{controler, memory, log};
  RequestReceiver receiver{controler, lines, log};
  ui::Timer guard{time, "timDelayCallWinProc", 300};
};

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::freshWorld<tessivo::fuzz::RequestTarget>().run({data, size});
  return 0;
}
