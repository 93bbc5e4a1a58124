#include "base/signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace kiv {
namespace {

TEST(Signals, HandlersMayComeAndGoWhileTheyRun) {
  Signal<int> signal;
  std::string calls;
  Connection second;
  signal.Connect([&](int) {
    calls += '1';
    second.Disconnect();
    signal.Connect([&](int) { calls += 'n'; });
  });
  second = signal.Connect([&](int) { calls += '2'; });
  signal.Connect([&](int value) {
    calls += '3';
    if (value > 0) signal.Raise(value - 1);
  });
  signal.Raise(0);
  EXPECT_EQ(calls, "13");
  calls.clear();
  signal.Raise(1);
  EXPECT_EQ(calls, "1313nnn");  // the inner raise sees one more newcomer than the outer one
}

TEST(Signals, AHandlerMayDestroyTheSender) {
  auto signal = std::make_unique<Signal<>>();
  std::string calls;
  signal->Connect([&] {
    calls += '1';
    signal.reset();
  });
  signal->Connect([&] { calls += '2'; });
  signal->Raise();
  EXPECT_EQ(calls, "1");
}

TEST(Signals, ScopedConnectionsEndWithTheirOwner) {
  int calls = 0;
  ScopedConnection outliving;
  {
    Signal<> signal;
    {
      const ScopedConnection scoped = signal.Connect([&] { ++calls; });
      ScopedConnection moved = signal.Connect([&] { ++calls; });
      outliving = std::move(moved);
      signal.Raise();
    }
    signal.Raise();
    EXPECT_EQ(calls, 3);
  }
}

TEST(Signals, AnEndedHandlerGoesAtOnceAndMayEndOthersWithIt) {
  Signal<> signal;
  int calls = 0;
  Connection other = signal.Connect([&] { ++calls; });
  const auto onItsEnd = [&other](int* held) {
    delete held;
    other.Disconnect();
  };
  std::shared_ptr<int> held(new int(1), onItsEnd);
  const std::weak_ptr<int> watched = held;
  Connection owner = signal.Connect([held = std::move(held)] { (void)held; });
  owner.Disconnect();
  EXPECT_TRUE(watched.expired());  // also when the event is never raised again
  EXPECT_FALSE(other.Connected());
  signal.Raise();
  EXPECT_EQ(calls, 0);
}

TEST(Signals, AThrowingHandlerLeavesTheSignalInOrder) {
  Signal<> signal;
  Connection bad = signal.Connect([] { throw 1; });
  EXPECT_THROW(signal.Raise(), int);
  bad.Disconnect();
  int calls = 0;
  signal.Connect([&] { ++calls; });
  signal.Raise();
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace kiv
