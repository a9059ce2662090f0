// The built component, created and called as the plug-in does it, with texts in UTF-8.
#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/com/ClassObject.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CInterfacePtr.h"
#include "platform/win32/CodePage.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using ElementPtr = CInterfacePtr<WalkElement>;
using ListPtr = CInterfacePtr<WalkList>;

constexpr char kReplacement[] = "\xEF\xBF\xBD"; // U+FFFD

inline CBstr Wide(std::string_view utf8)
{
    const int bytes = static_cast<int>(utf8.size());
    const int units = bytes ? MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0) : 0;
    CBstr wide;
    *wide.Put() = SysAllocStringLen(nullptr, static_cast<UINT>(units));
    if (bytes)
        MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.Get(), units);
    return wide;
}

// "(null)" for a null text, which the component never hands out with success.
inline std::string Narrow(const CBstr& wide)
{
    if (!wide.Get())
        return "(null)";
    const int units = static_cast<int>(wide.Length());
    std::string utf8(wide.Length() * 3, '\0');
    const int bytes = units ? WideCharToMultiByte(CP_UTF8, 0, wide.Get(), units, utf8.data(),
                                                  static_cast<int>(utf8.size()), nullptr, nullptr)
                            : 0;
    utf8.resize(static_cast<std::size_t>(bytes));
    return utf8;
}

inline std::string TextOf(const ElementPtr& element)
{
    CBstr text;
    EXPECT_EQ(element->GetText(text.Put()), S_OK);
    return Narrow(text);
}

inline std::string TagOf(const ElementPtr& element)
{
    CBstr tag;
    EXPECT_EQ(element->GetTagName(tag.Put()), S_OK);
    return Narrow(tag);
}

inline std::string ChildTextOf(const ElementPtr& element, std::string_view tag)
{
    CBstr text;
    EXPECT_EQ(element->GetChildText(Wide(tag).Get(), text.Put()), S_OK);
    return Narrow(text);
}

inline std::string AttributeOf(const ElementPtr& element, std::string_view name)
{
    CBstr value;
    EXPECT_EQ(element->GetAttribute(Wide(name).Get(), value.Put()), S_OK);
    return Narrow(value);
}

// The rest of a list as "tag=id tag=id"; checks that it ends and stays at its end.
inline std::string RestOf(const ListPtr& list)
{
    std::string joined;
    ElementPtr element;
    HRESULT result;
    while ((result = list->Next(element.Put())) == S_OK)
        joined += (joined.empty() ? "" : " ") + TagOf(element) + "=" + AttributeOf(element, "id");
    EXPECT_EQ(result, S_FALSE);
    EXPECT_FALSE(element);
    EXPECT_EQ(list->Next(element.Put()), S_FALSE);
    return joined;
}

inline LONG CountOf(const ListPtr& list)
{
    LONG count = -1;
    EXPECT_EQ(list->Count(&count), S_OK);
    return count;
}

inline ListPtr ChildrenOf(const ElementPtr& element)
{
    ListPtr list;
    EXPECT_EQ(element->GetChildren(list.Put()), S_OK);
    return list;
}

inline ListPtr ChildrenOf(const ElementPtr& element, std::string_view tag)
{
    ListPtr list;
    EXPECT_EQ(element->GetChildrenByName(Wide(tag).Get(), list.Put()), S_OK);
    return list;
}

inline ListPtr Select(const ElementPtr& element, std::string_view tag, std::string_view attribute,
                      std::string_view value)
{
    ListPtr list;
    EXPECT_EQ(element->SelectChildren(Wide(tag).Get(), Wide(attribute).Get(), Wide(value).Get(), list.Put()), S_OK);
    return list;
}

class CComponentTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
        ASSERT_EQ(
            CoCreateInstance(CLSID_KorvaProServices, nullptr, CLSCTX_INPROC_SERVER, IID_ImportSource, import.PutVoid()),
            S_OK);
        ASSERT_EQ(import->QueryInterface(IID_WalkSource, walk.PutVoid()), S_OK);
    }

    void TearDown() override
    {
        import.Release();
        walk.Release();
        CoUninitialize();
    }

    HRESULT ImportFrom(std::string_view path)
    {
        const HRESULT named = import->InitImportWithoutDlg(Wide(path).Get());
        return FAILED(named) ? named : import->ImportFile();
    }

    // Writes the bytes to a file and imports it.
    HRESULT Load(std::string_view bytes) { return ImportFrom(folder.WriteFile("export.kds", bytes)); }

    // The first element called `tag` of a document that must load.
    ElementPtr LoadAndFind(std::string_view bytes, std::string_view tag)
    {
        EXPECT_EQ(Load(bytes), S_OK) << bytes.substr(0, 100);
        return Find(tag);
    }

    ElementPtr Find(std::string_view tag)
    {
        ElementPtr element;
        const HRESULT result = walk->FindElement(Wide(tag).Get(), element.Put());
        EXPECT_EQ(result, element ? S_OK : S_FALSE);
        return element;
    }

    ListPtr All(std::string_view tag)
    {
        ListPtr list;
        EXPECT_EQ(walk->GetElementList(Wide(tag).Get(), list.Put()), S_OK);
        return list;
    }

    CTemporaryFolder folder;
    CInterfacePtr<ImportSource> import;
    CInterfacePtr<WalkSource> walk;
};
