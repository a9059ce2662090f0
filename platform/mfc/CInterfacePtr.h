#pragma once

#include "platform/com/Unknown.h"

#include <utility>

// Holds one reference to a component's interface and gives it back.
template <class Interface>
class CInterfacePtr
{
public:
    CInterfacePtr() noexcept = default;
    // Adds a reference of its own.
    explicit CInterfacePtr(Interface* shared) noexcept : held(shared)
    {
        if (held)
            held->AddRef();
    }
    // Takes over the reference that a new object begins with.
    static CInterfacePtr Adopt(Interface* owned) noexcept
    {
        CInterfacePtr holder;
        holder.held = owned;
        return holder;
    }
    CInterfacePtr(const CInterfacePtr&) = delete;
    CInterfacePtr& operator=(const CInterfacePtr&) = delete;
    CInterfacePtr(CInterfacePtr&& other) noexcept : held(std::exchange(other.held, nullptr)) {}
    CInterfacePtr& operator=(CInterfacePtr&& other) noexcept
    {
        CInterfacePtr taken(std::move(other)); // gives back the reference held before
        std::swap(held, taken.held);
        return *this;
    }
    ~CInterfacePtr() { Release(); }

    // Where an out argument stores the reference that becomes ours; gives back the one held before.
    Interface** Put() noexcept
    {
        Release();
        return &held;
    }
    void** PutVoid() noexcept { return reinterpret_cast<void**>(Put()); }

    void Release() noexcept
    {
        if (Interface* last = std::exchange(held, nullptr))
            last->Release();
    }

    // Hands the reference on to the caller.
    Interface* Detach() noexcept { return std::exchange(held, nullptr); }

    Interface* Get() const noexcept { return held; }
    Interface* operator->() const noexcept { return held; }
    explicit operator bool() const noexcept { return held != nullptr; }

private:
    Interface* held = nullptr;
};
