#include "app/SlicedWork.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "fakes/VirtualTime.h"

namespace tessivo {
namespace {

class SlicedWorkTest : public testing::Test {
 protected:
  /// A step that takes `ms` and has more to do until it has been called `times` times.
  SlicedWork::Step steps(char name, int times, int ms = SlicedWork::kSliceMs / 4) {
    return [this, name, ms, left = std::make_shared<int>(times)] {
      const bool more = --*left > 0;
      done += name;
      time.advance(static_cast<std::uint64_t>(ms));
      return more;
    };
  }
  std::string take() { return std::exchange(done, {}); }
  /// The message loop's next turn.
  std::string nextSlice() {
    time.advance(1);
    return take();
  }

  VirtualTime time;
  std::string done;
  std::unique_ptr<SlicedWork> work = std::make_unique<SlicedWork>(time, time);
};

TEST_F(SlicedWorkTest, ShortWorkIsDoneWhenTheCallReturns) {
  work->run(steps('a', 3));
  EXPECT_EQ(take(), "aaa");
  EXPECT_FALSE(work->isRunning());
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(SlicedWorkTest, LongWorkGoesOnSliceBySliceUntilItIsDone) {
  work->run(steps('a', 9));
  EXPECT_EQ(take(), "aaaa");
  EXPECT_TRUE(work->isRunning());
  EXPECT_EQ(nextSlice(), "aaaa");
  EXPECT_EQ(nextSlice(), "a");
  EXPECT_FALSE(work->isRunning());
  EXPECT_EQ(time.running(), 0U);
  EXPECT_EQ(nextSlice(), "");
}

TEST_F(SlicedWorkTest, AStepLongerThanASliceEndsIt) {
  work->run(steps('a', 3, 500));
  EXPECT_EQ(take(), "a");
  EXPECT_EQ(nextSlice(), "a");
}

TEST_F(SlicedWorkTest, WorkThatIsRunningGoesOnFirst) {
  work->run(steps('a', 6));
  work->run(steps('b', 2));
  work->run(steps('c', 3));
  EXPECT_EQ(take(), "aaaa");
  EXPECT_EQ(nextSlice(), "aabb");
  EXPECT_EQ(nextSlice(), "ccc");
  EXPECT_FALSE(work->isRunning());
}

TEST_F(SlicedWorkTest, FinishingDoesAllTheRestInOneGo) {
  work->run(steps('a', 20));
  work->run(steps('b', 20));
  take();
  work->finish();
  EXPECT_EQ(take(), std::string(16, 'a') + std::string(20, 'b'));
  EXPECT_FALSE(work->isRunning());
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(SlicedWorkTest, CancellingDropsTheRest) {
  work->run(steps('a', 9));
  work->run(steps('b', 1));
  work->cancel();
  EXPECT_FALSE(work->isRunning());
  take();
  EXPECT_EQ(nextSlice(), "");
  EXPECT_EQ(time.running(), 0U);
  work->run(steps('c', 1));
  EXPECT_EQ(take(), "c");
}

TEST_F(SlicedWorkTest, EverySliceIsAnnouncedTheLastOneAsOver) {
  work->progressed.listen([this] { done += work->isRunning() ? '+' : '.'; });
  work->run(steps('a', 6));
  time.advance(1);
  EXPECT_EQ(take(), "aaaa+aa.");
}

TEST_F(SlicedWorkTest, FinishingAndCancellingAreAnnouncedOnceAndOnlyIfThereWasWork) {
  work->progressed.listen([this] { done += work->isRunning() ? '+' : '.'; });
  work->finish();
  work->cancel();
  EXPECT_EQ(take(), "");
  work->run(steps('a', 6));
  work->finish();
  EXPECT_EQ(take(), "aaaa+aa.");
  work->run(steps('b', 6));
  work->cancel();
  EXPECT_EQ(take(), "bbbb+.");
}

TEST_F(SlicedWorkTest, WhatAStepQueuesComesAfterIt) {
  work->run([this, left = 2]() mutable {
    done += 'a';
    if (left == 2) work->run(steps('b', 2));
    return --left > 0;
  });
  EXPECT_EQ(take(), "aabb");
}

TEST_F(SlicedWorkTest, ATickInAMessageLoopThatAStepRunsDoesNotEnterTheStepAgain) {
  int depth = 0;
  int deepest = 0;
  work->run(steps('a', 5));
  take();
  work->run([&] {
    deepest = std::max(deepest, ++depth);
    time.advance(100);
    --depth;
    return false;
  });
  time.advance(1);
  EXPECT_EQ(deepest, 1);
  EXPECT_FALSE(work->isRunning());
}

TEST_F(SlicedWorkTest, AStepThatFinishesIsCalledFromInsideUntilItIsDoneAndNotAfterwards) {
  work->run([this, left = std::make_shared<int>(4)] {
    const int mine = --*left;
    done += static_cast<char>('0' + mine);
    if (mine == 3) {
      work->run(steps('b', 1));
      work->finish();
      done += work->isRunning() ? '+' : '.';
    }
    return mine > 0;
  });
  EXPECT_EQ(take(), "3210b.");
  EXPECT_FALSE(work->isRunning());
  EXPECT_EQ(nextSlice(), "");
}

TEST_F(SlicedWorkTest, AStepThatCancelsIsNotCalledAgain) {
  work->run([this] {
    done += 'a';
    work->cancel();
    return true;
  });
  EXPECT_EQ(take(), "a");
  EXPECT_EQ(nextSlice(), "");
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(SlicedWorkTest, AStepMayPutOtherWorkInItsPlace) {
  work->run([this] {
    done += 'a';
    work->cancel();
    work->run(steps('b', 2));
    return true;
  });
  EXPECT_EQ(take(), "abb");
  EXPECT_FALSE(work->isRunning());
}

TEST_F(SlicedWorkTest, WorkPutInThePlaceOfAStepThatWasItsLastIsNotTakenForIt) {
  work->run([this] {
    work->cancel();
    work->run(steps('b', 2));
    return false;
  });
  EXPECT_EQ(take(), "bb");
}

TEST_F(SlicedWorkTest, AStepMayDestroyTheWork) {
  work->run(steps('a', 4));
  work->run([this] {
    done += 'b';
    work.reset();
    return true;
  });
  time.advance(1);
  EXPECT_EQ(take(), "aaaab");
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(SlicedWorkTest, WhoeverHearsOfASliceMayDestroyTheWork) {
  work->progressed.listen([this] { work.reset(); });
  work->run(steps('a', 9));
  EXPECT_EQ(take(), "aaaa");
  EXPECT_EQ(nextSlice(), "");
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(SlicedWorkTest, DestroyingItDropsWhatWaits) {
  work->run(steps('a', 9));
  take();
  work.reset();
  EXPECT_EQ(nextSlice(), "");
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(SlicedWorkTest, AStepThatThrowsIsDroppedAndTheOtherWorkGoesOn) {
  work->run(steps('a', 6));
  work->run([]() -> bool { throw std::runtime_error("no"); });
  work->run(steps('b', 2));
  EXPECT_EQ(take(), "aaaa");
  EXPECT_THROW(time.advance(1), std::runtime_error);
  EXPECT_EQ(take(), "aa");
  EXPECT_EQ(nextSlice(), "bb");
  EXPECT_FALSE(work->isRunning());
}

}  // namespace
}  // namespace tessivo
