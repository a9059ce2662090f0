#include "symbkds/browse/TaskText.h"

#include "platform/win32/CodePage.h"

#include <algorithm>
#include <climits>

namespace {

// Room for that many units and the terminator.
TaskText Allocate(std::size_t units)
{
    TaskText made;
    if (units < INT_MAX) // no text is longer
        made.text.reset(static_cast<LPWSTR>(CoTaskMemAlloc((units + 1) * sizeof(WCHAR))));
    return made;
}

void SetLength(TaskText& made, std::size_t units)
{
    made.text.get()[units] = 0;
    made.units = units;
}

} // namespace

TaskText MakeTaskText(std::string_view narrow)
{
    TaskText made = Allocate(narrow.size()); // no code page makes more units of a text than it has bytes
    if (!made.text)
        return made;
    const int bytes = static_cast<int>(narrow.size());
    const int units =
        bytes == 0 ? 0 : MultiByteToWideChar(CP_THREAD_ACP, 0, narrow.data(), bytes, made.text.get(), bytes);
    SetLength(made, static_cast<std::size_t>(units));
    return made;
}

TaskText MakeTaskText(std::basic_string_view<WCHAR> head, std::basic_string_view<WCHAR> tail)
{
    TaskText made = Allocate(head.size() + tail.size());
    if (!made.text)
        return made;
    std::copy(tail.begin(), tail.end(), std::copy(head.begin(), head.end(), made.text.get()));
    SetLength(made, head.size() + tail.size());
    return made;
}
