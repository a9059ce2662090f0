#pragma once

#include "platform/win32/Types.h"

#include <string>
#include <utility>

// What a call of the component does instead of its work.
struct Fault
{
    enum class Kind
    {
        kResult,         // `result`, nothing delivered
        kResultAndValue, // `result`, but the value is delivered
        kStandard,       // throws std::runtime_error(text)
        kWithoutText,    // throws a std::exception whose what() is null
        kNumber          // throws an int
    };

    Kind kind;
    HRESULT result = 0;
    std::string text = {};

    static Fault Result(HRESULT result) { return {Kind::kResult, result}; }
    static Fault ResultAndValue(HRESULT result) { return {Kind::kResultAndValue, result}; }
    static Fault Standard(std::string text) { return {Kind::kStandard, 0, std::move(text)}; }
    static Fault WithoutText() { return {Kind::kWithoutText}; }
    static Fault Number() { return {Kind::kNumber}; }
};
