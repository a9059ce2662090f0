#include "platform/com/TaskMemory.h"
#include "platform/mfc/CBstr.h"

#include <gtest/gtest.h>

namespace {

TEST(Bstr, NullEmptyAndHuge)
{
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    SysFreeString(nullptr);
    EXPECT_NE(CBstr(OLESTR("")).Get(), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFFU), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x7FFFFFFFU), nullptr);
}

#ifndef NDEBUG
TEST(AllocatorsDeathTest, WrongOrSecondFreeEndsTheProgram)
{
    const BSTR text = SysAllocString(OLESTR("abc"));
    void* const block = CoTaskMemAlloc(10);
    EXPECT_DEATH(CoTaskMemFree(text), "CoTaskMemFree: .* is a BSTR");
    EXPECT_DEATH(CoTaskMemRealloc(text, 20), "CoTaskMemRealloc: .* is a BSTR");
    EXPECT_DEATH(SysFreeString(static_cast<BSTR>(block)), "SysFreeString: .* is a block of the task allocator");
    const auto freeTwice = [&] {
        SysFreeString(text);
        SysFreeString(text);
    };
    // A sanitizer reports the second one before we do.
    EXPECT_DEATH(freeTwice(), "SysFreeString: .* freed before|heap-use-after-free");
    SysFreeString(text);
    CoTaskMemFree(block);
}
#endif

} // namespace
