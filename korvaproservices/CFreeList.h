#pragma once

// Objects that wait for their next use, the last one returned first.
//
// Elements and lists live for a few calls and are asked for by the million, so
// their document keeps them instead of giving their memory back each time.
// Objects are linked through their field `nextIdle`; the list owns them.
template <class Object>
class CFreeList
{
public:
    CFreeList() noexcept = default;
    CFreeList(const CFreeList&) = delete;
    CFreeList& operator=(const CFreeList&) = delete;
    ~CFreeList()
    {
        while (Object* object = Take())
            delete object;
    }

    // Null when none is idle; the object then belongs to the caller.
    Object* Take() noexcept
    {
        Object* first = top;
        if (first)
            top = first->nextIdle;
        return first;
    }

    void Put(Object* object) noexcept
    {
        object->nextIdle = top;
        top = object;
    }

private:
    Object* top = nullptr;
};
