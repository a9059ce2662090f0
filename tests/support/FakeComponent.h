#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/win32/File.h"
#include "support/ExportBuilder.h"
#include "support/HostView.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

// What a call of the component does instead of its work.
struct Fault
{
    enum class Kind
    {
        Result,         // `result`, nothing delivered
        ResultAndValue, // `result`, but the value is delivered
        Standard,       // throws std::runtime_error(text)
        WithoutText,    // throws a std::exception whose what() is null
        Number,         // throws an int
        NumberAndValue  // throws an int after the value was delivered
    };

    Kind kind;
    HRESULT result = 0;
    std::string text = {};

    static Fault Result(HRESULT result) { return {Kind::Result, result}; }
    static Fault ResultAndValue(HRESULT result) { return {Kind::ResultAndValue, result}; }
    static Fault Standard(std::string text) { return {Kind::Standard, 0, std::move(text)}; }
    static Fault WithoutText() { return {Kind::WithoutText}; }
    static Fault Number() { return {Kind::Number}; }
    static Fault NumberAndValue() { return {Kind::NumberAndValue}; }

    bool Throws() const { return kind != Kind::Result && kind != Kind::ResultAndValue; }
};

// Whether an exception may leave CoCreateInstance: that of Windows lets none out.
inline constexpr bool kCreationMayThrow = kPathSeparator == '/';

struct FakeState;

// Takes the place of the project-services component while it lives.
//
// Whoever creates the component in this process gets one that walks the given
// export (raw text in it is passed over), whatever file it is told to load. Every
// call is recorded with its arguments and can be made to fail. A tear-off
// object stands behind each interface, so that the order in which a caller
// gives them back can be seen.
class CFakeComponent
{
public:
    explicit CFakeComponent(std::string_view exportText);
    CFakeComponent(const CFakeComponent&) = delete;
    CFakeComponent& operator=(const CFakeComponent&) = delete;
    ~CFakeComponent();

    // Walks another export from now on.
    void Show(std::string_view exportText);

    // The `occurrence`-th call (from 1; 0: each) whose recorded text begins with `call` fails: "Item",
    // "GetAttribute value", "QueryInterface WalkSource", "CreateInstance" ...
    void Fail(std::string call, int occurrence, Fault fault);

    // The calls so far, such as "SelectChildren attribute name AreaBlock", joined by ", ", repetitions and all;
    // they are forgotten afterwards.
    std::string TakeCalls();
    // The objects in the order of their last Release, elements under their tag: "dataBlock", "list", "WalkSource",
    // "ImportSource", "KorvaProServices".
    std::string TakeReleases();

    // Objects whose last reference was not given back.
    int LivingObjects() const;

    // Called on the component's thread with the text of each call, before it is carried out.
    void Watch(std::function<void(const std::string&)> watcher);

private:
    CComScope com;
    std::shared_ptr<FakeState> state;
    DWORD cookie = 0;
};
