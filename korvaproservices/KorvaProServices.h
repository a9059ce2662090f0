// The project-services component: loads the export of a project and lets a
// caller walk its elements.
//
// Create it with CoCreateInstance(CLSID_KorvaProServices) and query it for
// ImportSource, WalkSource and LoadReport. Texts passed in stay the caller's; texts and
// interfaces handed out belong to the caller, who frees them with SysFreeString
// and Release. Everything handed out stays valid after the component itself is
// released. The interfaces of one component are used by one thread at a time.
//
// Results: E_POINTER for a null out argument, E_OUTOFMEMORY when memory is
// short, E_UNEXPECTED when no export is loaded; an out argument is null (a
// count 0) whenever no value is delivered.
#pragma once

#include "platform/com/Bstr.h"
#include "platform/com/Unknown.h"

inline constexpr CLSID CLSID_KorvaProServices = {
    0x7C1E52A4, 0x93D0, 0x4B6F, {0xA8, 0x15, 0x2E, 0x60, 0xF4, 0x9B, 0xC7, 0x31}};
inline constexpr IID IID_ImportSource = {0x7C1E52A5, 0x93D0, 0x4B6F, {0xA8, 0x15, 0x2E, 0x60, 0xF4, 0x9B, 0xC7, 0x31}};
inline constexpr IID IID_WalkSource = {0x7C1E52A6, 0x93D0, 0x4B6F, {0xA8, 0x15, 0x2E, 0x60, 0xF4, 0x9B, 0xC7, 0x31}};
inline constexpr IID IID_WalkElement = {0x7C1E52A7, 0x93D0, 0x4B6F, {0xA8, 0x15, 0x2E, 0x60, 0xF4, 0x9B, 0xC7, 0x31}};
inline constexpr IID IID_LoadReport = {0x7C1E52A9, 0x93D0, 0x4B6F, {0xA8, 0x15, 0x2E, 0x60, 0xF4, 0x9B, 0xC7, 0x31}};
inline constexpr IID IID_WalkList = {0x7C1E52A8, 0x93D0, 0x4B6F, {0xA8, 0x15, 0x2E, 0x60, 0xF4, 0x9B, 0xC7, 0x31}};

// Names the export to load and loads it.
struct ImportSource : IUnknown
{
    // Keeps the path of the export. E_INVALIDARG for a null or empty path.
    virtual HRESULT STDMETHODCALLTYPE InitImportWithoutDlg(BSTR path) = 0;
    // Reads the file and replaces what was loaded before. 0x80070002: no such
    // file; 0x80070005: no access; 0x8007000D: not a regular file or not
    // well-formed; E_INVALIDARG: no path was set; other failures: the error of
    // the system call. After a failure nothing is loaded.
    virtual HRESULT STDMETHODCALLTYPE ImportFile() = 0;

protected:
    ~ImportSource() = default;
};

struct WalkList;

// One element of the loaded document.
struct WalkElement : IUnknown
{
    // The element's own text: its text and CDATA children, joined. White space
    // alone counts only where it is the whole content.
    virtual HRESULT STDMETHODCALLTYPE GetText(BSTR* text) = 0;
    // The text of the first child element called `tag`; empty when there is none.
    virtual HRESULT STDMETHODCALLTYPE GetChildText(BSTR tag, BSTR* text) = 0;
    // The value of an attribute, of two with one name the first; empty when it is absent.
    virtual HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, BSTR* value) = 0;
    // The child elements, in document order.
    virtual HRESULT STDMETHODCALLTYPE GetChildren(WalkList** list) = 0;
    // The child elements called `tag`.
    virtual HRESULT STDMETHODCALLTYPE GetChildrenByName(BSTR tag, WalkList** list) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTagName(BSTR* name) = 0;
    // The child elements called `tag` whose attribute `attribute` has exactly this value.
    virtual HRESULT STDMETHODCALLTYPE SelectChildren(BSTR tag, BSTR attribute, BSTR value, WalkList** list) = 0;

protected:
    ~WalkElement() = default;
};

// Elements in document order; possibly none.
struct WalkList : IUnknown
{
    // The first call delivers the first element. S_FALSE and null past the end.
    virtual HRESULT STDMETHODCALLTYPE Next(WalkElement** element) = 0;
    // The element at a position counted from 0, in constant time; E_INVALIDARG outside. Does not move Next.
    virtual HRESULT STDMETHODCALLTYPE Item(LONG index, WalkElement** element) = 0;
    virtual HRESULT STDMETHODCALLTYPE Count(LONG* count) = 0;

protected:
    ~WalkList() = default;
};

// The loaded document.
struct WalkSource : IUnknown
{
    // The first element called `tag` in document order, the root included; S_FALSE and null when there is none.
    virtual HRESULT STDMETHODCALLTYPE FindElement(BSTR tag, WalkElement** element) = 0;
    // Every element of the document called `tag`, in document order.
    virtual HRESULT STDMETHODCALLTYPE GetElementList(BSTR tag, WalkList** list) = 0;

protected:
    ~WalkSource() = default;
};

// What the last ImportFile found out, whatever its result was; nothing before the first. For people who want to mend
// an export: line and column say where to look, the text why.
struct LoadReport : IUnknown
{
    // Where the first thing stands that is not well-formed: line and column from 1, the column in characters, tabs and
    // combining marks being one each. Both are 0 when it is not known, and when there is no such thing.
    virtual HRESULT STDMETHODCALLTYPE GetPosition(LONG* line, LONG* column) = 0;
    // What is not well-formed, a short sentence in English for people to read; empty when nothing is.
    virtual HRESULT STDMETHODCALLTYPE GetFault(BSTR* text) = 0;
    // The encoding that the XML declaration names, in its spelling; empty when it names none.
    virtual HRESULT STDMETHODCALLTYPE GetDeclaredEncoding(BSTR* name) = 0;
    // The encoding in which the file was read: "UTF-8", "UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE" or "ISO-8859-1";
    // empty when it could not be read.
    virtual HRESULT STDMETHODCALLTYPE GetUsedEncoding(BSTR* name) = 0;

protected:
    ~LoadReport() = default;
};
