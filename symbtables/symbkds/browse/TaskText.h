// Texts for a host, from the task allocator.
#pragma once

#include "platform/com/TaskMemory.h"

#include <memory>
#include <string_view>

struct CTaskFree
{
    void operator()(WCHAR* text) const { CoTaskMemFree(text); }
};

// UTF-16, null-terminated.
struct TaskText
{
    std::unique_ptr<WCHAR, CTaskFree> text; // null: memory was short
    std::size_t units = 0;                  // without the terminator

    std::basic_string_view<WCHAR> View() const { return {text.get(), units}; }
};

// A text given in the thread's ANSI code page.
TaskText MakeTaskText(std::string_view narrow);
// Two texts joined.
TaskText MakeTaskText(std::basic_string_view<WCHAR> head, std::basic_string_view<WCHAR> tail);
