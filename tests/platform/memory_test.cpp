#include "platform/com/TaskMemory.h"
#include "platform/com/Variant.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/COleVariant.h"
#include "platform/mfc/Exceptions.h"
#include "platform/win32/CodePage.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using WideText = std::basic_string<WCHAR>;

constexpr std::size_t kImpossibleBytes = SIZE_MAX / 4;

// What automation reads: the length in bytes in the four bytes in front of the text.
std::uint32_t BytesInFront(BSTR text)
{
    std::uint32_t bytes;
    std::memcpy(&bytes, reinterpret_cast<const char*>(text) - sizeof bytes, sizeof bytes);
    return bytes;
}

TEST(Bstr, CarriesItsLengthAndATerminator)
{
    const BSTR withNull = SysAllocStringLen(OLESTR("a\0b"), 3);
    EXPECT_EQ(std::basic_string_view<WCHAR>(withNull, 4), std::basic_string_view<WCHAR>(OLESTR("a\0b\0"), 4));
    EXPECT_EQ(SysStringLen(withNull), 3U);
    EXPECT_EQ(BytesInFront(withNull), 6U);
    SysFreeString(withNull);

    const BSTR unset = SysAllocStringLen(nullptr, 1000);
    EXPECT_EQ(BytesInFront(unset), 2000U);
    EXPECT_EQ(unset[1000], 0);
    SysFreeString(unset);
}

TEST(Bstr, NullEmptyAndHuge)
{
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    SysFreeString(nullptr);
    EXPECT_NE(CBstr(OLESTR("")).Get(), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFFU), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x7FFFFFFFU), nullptr);
}

TEST(Bstr, HolderOwnsOneText)
{
    CBstr text = CBstr::FromNarrow("F\xC3\xB6n", CP_UTF8);
    EXPECT_EQ(WideText(text.Get()), OLESTR("F\u00F6n"));
    EXPECT_EQ(CBstr::FromNarrow(nullptr, CP_UTF8).Length(), 0U);
    CBstr moved(std::move(text));
    EXPECT_EQ(text.Get(), nullptr);
    *text.Put() = SysAllocString(OLESTR("x"));
    moved = std::move(text);
    EXPECT_EQ(text.Get(), nullptr); // nor does it keep the one that `moved` had
    EXPECT_EQ(WideText(moved.Get()), OLESTR("x"));
    *moved.Put() = SysAllocString(OLESTR("y")); // frees the one before
    SysFreeString(moved.Detach());
    EXPECT_EQ(moved.Get(), nullptr);
    EXPECT_THROW(CBstr::FromNarrow("\xE4", 4711), COleException);
}

TEST(Variant, ClearFreesAndEmpties)
{
    VARIANT value;
    VariantInit(&value);
    EXPECT_EQ(value.vt, VT_EMPTY);
    value.bstrVal = SysAllocString(OLESTR("text"));
    for (const int type : {VT_BSTR, VT_I4}) {
        value.vt = static_cast<VARTYPE>(type);
        EXPECT_EQ(VariantClear(&value), S_OK);
        EXPECT_EQ(value.vt, VT_EMPTY);
    }
    value.vt = 0x0FFF; // no type
    EXPECT_TRUE(FAILED(VariantClear(&value)));

    COleVariant text("\xE2\x82\xAC", CP_UTF8);
    VARIANT taken = text.Detach();
    EXPECT_EQ(text.vt, VT_EMPTY);
    ASSERT_EQ(taken.vt, VT_BSTR);
    EXPECT_EQ(WideText(taken.bstrVal), OLESTR("\u20AC"));
    VariantClear(&taken);
    COleVariant null(nullptr, CP_UTF8);
    EXPECT_EQ(null.vt, VT_BSTR);
    EXPECT_EQ(null.bstrVal, nullptr);
}

TEST(TaskMemory, GrowsAndSurvivesFailure)
{
    auto* block = static_cast<char*>(CoTaskMemRealloc(nullptr, 4));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
    std::memcpy(block, "abc", 4);
    block = static_cast<char*>(CoTaskMemRealloc(block, 100000));
    ASSERT_NE(block, nullptr);
    EXPECT_STREQ(block, "abc");
    EXPECT_EQ(CoTaskMemRealloc(block, kImpossibleBytes), nullptr);
    EXPECT_STREQ(block, "abc");                     // still ours
    EXPECT_EQ(CoTaskMemRealloc(block, 0), nullptr); // frees

    CoTaskMemFree(CoTaskMemAlloc(0));
    CoTaskMemFree(nullptr);
    EXPECT_EQ(CoTaskMemAlloc(kImpossibleBytes), nullptr);
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

// A refused allocation is what a test asks for, no reason for a sanitizer to end the program.
extern "C" PLATFORM_API const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

extern "C" PLATFORM_API const char* __tsan_default_options()
{
    return "allocator_may_return_null=1";
}
