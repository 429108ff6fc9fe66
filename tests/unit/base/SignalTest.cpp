#include "base/Signal.h"

#include <gtest/gtest.h>

#include "fakes/Trace.h"

namespace tessivo {
namespace {

TEST(SignalTest, ListenersAreCalledInOrderOfSubscription) {
  Signal<int> signal;
  Trace trace;
  signal.listen([&](int value) { trace.add("first " + std::to_string(value)); });
  signal.listen([&](int value) { trace.add("second " + std::to_string(value)); });
  signal.raise(7);
  EXPECT_EQ(trace.take(), "first 7 | second 7");
}

TEST(SignalTest, DroppedConnectionIsCalledNoMore) {
  Signal<> signal;
  int calls = 0;
  {
    const Connection connection = signal.connect([&] { ++calls; });
    signal.raise();
  }
  signal.raise();
  EXPECT_EQ(calls, 1);
}

TEST(SignalTest, ConnectionMayOutliveTheSignal) {
  Connection connection;
  {
    Signal<> signal;
    connection = signal.connect([] {});
  }
  connection.disconnect();
  SUCCEED();
}

TEST(SignalTest, AssigningAConnectionEndsTheOldSubscription) {
  Signal<> signal;
  Trace trace;
  Connection connection = signal.connect([&] { trace.add("old"); });
  connection = signal.connect([&] { trace.add("new"); });
  signal.raise();
  EXPECT_EQ(trace.take(), "new");
}

TEST(SignalTest, ListenerUnsubscribedByAnEarlierOneIsSkippedInThatRound) {
  Signal<> signal;
  Trace trace;
  Connection second;
  signal.listen([&] {
    trace.add("first");
    second.disconnect();
  });
  second = signal.connect([&] { trace.add("second"); });
  signal.raise();
  EXPECT_EQ(trace.take(), "first");
}

TEST(SignalTest, ListenerMayEndItsOwnSubscription) {
  Signal<> signal;
  int calls = 0;
  Connection connection;
  connection = signal.connect([&] {
    ++calls;
    connection.disconnect();
  });
  signal.raise();
  signal.raise();
  EXPECT_EQ(calls, 1);
}

TEST(SignalTest, ListenerAddedWhileRaisingWaitsForTheNextRound) {
  Signal<> signal;
  Trace trace;
  bool added = false;
  signal.listen([&] {
    trace.add("old");
    if (!std::exchange(added, true)) signal.listen([&] { trace.add("new"); });
  });
  signal.raise();
  EXPECT_EQ(trace.take(), "old");
  signal.raise();
  EXPECT_EQ(trace.take(), "old | new");
}

TEST(SignalTest, EventMayBeRaisedAgainByItsListener) {
  Signal<int> signal;
  Trace trace;
  signal.listen([&](int depth) {
    trace.add(std::to_string(depth));
    if (depth < 2) signal.raise(depth + 1);
  });
  signal.raise(0);
  EXPECT_EQ(trace.take(), "0 | 1 | 2");
}

TEST(SignalTest, ListenerMayDestroyTheOwner) {
  auto signal = std::make_unique<Signal<>>();
  Trace trace;
  signal->listen([&] {
    trace.add("destroys");
    signal.reset();
  });
  signal->listen([&] { trace.add("still called"); });
  signal->raise();
  EXPECT_EQ(trace.take(), "destroys | still called");
}

}  // namespace
}  // namespace tessivo
