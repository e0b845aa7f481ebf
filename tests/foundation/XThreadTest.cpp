// Events, mutexes and the thread that is suspended rather than ended.
#include "foundation/XThread.h"

#include <gtest/gtest.h>

#include <atomic>

namespace {

void UntilQuit(XEvent* quit, void* argument) {
    while (!quit->IsSet())
        Sleep(1);
    static_cast<std::atomic<int>*>(argument)->fetch_add(1);
}

struct Stubborn {
    std::atomic<bool> mayEnd = false;
    std::atomic<int> turns = 0;
};

void IgnoresQuit(XEvent*, void* argument) {
    auto* stubborn = static_cast<Stubborn*>(argument);
    for (; !stubborn->mayEnd; Sleep(1))
        ++stubborn->turns;
}

} // namespace

TEST(XEvent, StaysSetForEveryHandleOfItsName) {
    XEvent first, second;
    first.Create(L"tm-test-event");
    second.Create(L"tm-test-event");
    EXPECT_TRUE(second.existed);
    first.Set();
    EXPECT_TRUE(second.IsSet());
    EXPECT_TRUE(second.IsSet()); // until it is reset
    second.Reset();
    EXPECT_FALSE(first.IsSet());
}

TEST(XMutex, OneThreadAtATime) {
    XMutex none;
    none.Lock();
    EXPECT_FALSE(none.TryLock());
    EXPECT_FALSE(none.held);
    XMutex mutex;
    mutex.Create(L"tm-test-mutex");
    EXPECT_FALSE(mutex.existed);
    {
        XMutexScope scope(mutex);
        mutex.Lock();
        EXPECT_TRUE(mutex.held);
        bool taken = true;
        XThread other;
        other.Start(
            [](XEvent*, void* result) {
                XMutex same;
                same.Create(L"tm-test-mutex");
                *static_cast<bool*>(result) = !same.existed || same.TryLock();
            },
            &taken, 0);
        other.Stop();
        EXPECT_FALSE(taken);
    }
    EXPECT_FALSE(mutex.held);
    EXPECT_TRUE(mutex.TryLock());
    mutex.Unlock();
}

TEST(XThread, StopEndsIt) {
    std::atomic<int> ended = 0;
    XThread thread;
    thread.Stop(); // never started
    thread.Start(UntilQuit, &ended, 0);
    EXPECT_TRUE(thread.IsRunning());
    thread.Start(UntilQuit, &ended, 0); // stops the first
    EXPECT_EQ(ended, 1);
    thread.Stop();
    EXPECT_EQ(ended, 2);
    EXPECT_FALSE(thread.IsRunning());
    thread.Stop();
    EXPECT_FALSE(thread.suspended);
}

TEST(XThread, LateOneIsSuspendedAndResumed) {
    Stubborn stubborn;
    XThread thread;
    thread.Start(IgnoresQuit, &stubborn, 100);
    const DWORD begin = GetTickCount();
    thread.Stop();
    const DWORD waited = GetTickCount() - begin;
    EXPECT_TRUE(thread.suspended);
    EXPECT_GE(waited, 100u);
    EXPECT_LT(waited, 1000u); // 125 on an idle machine
    const int turns = stubborn.turns;
    Sleep(50);
    EXPECT_EQ(stubborn.turns, turns);
    thread.Stop(); // one more time-out of running
    EXPECT_TRUE(thread.suspended);
    EXPECT_GT(stubborn.turns, turns);
    stubborn.mayEnd = true;
    thread.Stop();
    EXPECT_FALSE(thread.suspended);
    EXPECT_FALSE(thread.IsRunning());
}

TEST(XThread, TakenNamesArePassedOver) {
    // Every name of the next second is in use already.
    constexpr int count = 1000;
    static XEvent taken[count];
    const DWORD first = GetTickCount();
    for (int i = 0; i < count; ++i) {
        XString name;
        name.Format(L"TRDEVTQ-%d", static_cast<int>(first) + i);
        taken[i].Create(name);
    }
    std::atomic<int> ended = 0;
    XThread thread;
    thread.Start(UntilQuit, &ended, 0);
    EXPECT_FALSE(thread.quitEvent.existed);
    Sleep(30);
    EXPECT_EQ(ended, 0); // no event of ours was mistaken for its own
    thread.Stop();
    EXPECT_EQ(ended, 1);
    for (XEvent& event : taken) {
        EXPECT_FALSE(event.IsSet());
        event.Close();
    }
}
