// A process ends where a text runs over its place on the stack.
#include <gtest/gtest.h>

#include <cstring>
#include <windows.h>

namespace {

__attribute__((noinline)) std::size_t CopyToStack(const char* text) {
    char place[16];
    std::strcpy(place, text);
    return std::strlen(place);
}

constexpr int trapped = 7;

LONG CALLBACK ExitAtTrap(EXCEPTION_POINTERS* exception) {
    if (exception->ExceptionRecord->ExceptionCode == EXCEPTION_ILLEGAL_INSTRUCTION)
        ExitProcess(trapped);
    return EXCEPTION_CONTINUE_SEARCH;
}

// By its own trap, before it goes wherever the text leads.
TEST(XStackGuard, EndsAProcessThatOverwroteIt) {
    EXPECT_EQ(CopyToStack("fits"), 4u);
    EXPECT_EXIT(
        {
            AddVectoredExceptionHandler(1, ExitAtTrap);
            CopyToStack("a text of over sixteen characters, which overwrites what stands behind them");
        },
        testing::ExitedWithCode(trapped), "");
}

} // namespace
