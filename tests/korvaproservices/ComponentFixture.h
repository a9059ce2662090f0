// The built component, created and called as the plug-in does it, with texts in UTF-8.
#pragma once

#include "korvaproservices/KorvaProServices.h"
#include "platform/com/ClassObject.h"
#include "platform/mfc/CBstr.h"
#include "platform/mfc/CInterfacePtr.h"
#include "platform/win32/CodePage.h"
#include "support/HostView.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using ElementPtr = CInterfacePtr<WalkElement>;
using ListPtr = CInterfacePtr<WalkList>;

constexpr char kReplacement[] = "\xEF\xBF\xBD"; // U+FFFD
constexpr HRESULT kNoSuchFile = static_cast<HRESULT>(0x80070002U);
constexpr HRESULT kInvalidData = static_cast<HRESULT>(0x8007000DU);

inline CBstr Wide(const std::string& utf8)
{
    return CBstr::FromNarrow(utf8.c_str(), CP_UTF8);
}

// The text that `call` delivers, "(null)" for a null one.
template <class Call>
std::string Delivered(Call call)
{
    CBstr text;
    EXPECT_EQ(call(text.Put()), S_OK);
    return Narrow(text.Get());
}

inline std::string TextOf(const ElementPtr& element)
{
    return Delivered([&](BSTR* text) { return element->GetText(text); });
}

inline std::string TagOf(const ElementPtr& element)
{
    return Delivered([&](BSTR* tag) { return element->GetTagName(tag); });
}

inline std::string ChildTextOf(const ElementPtr& element, const std::string& tag)
{
    return Delivered([&](BSTR* text) { return element->GetChildText(Wide(tag).Get(), text); });
}

inline std::string AttributeOf(const ElementPtr& element, const std::string& name)
{
    return Delivered([&](BSTR* value) { return element->GetAttribute(Wide(name).Get(), value); });
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

// All children, or those called `tag`.
inline ListPtr ChildrenOf(const ElementPtr& element, const std::string& tag = "*")
{
    ListPtr list;
    EXPECT_EQ(tag == "*" ? element->GetChildren(list.Put()) : element->GetChildrenByName(Wide(tag).Get(), list.Put()),
              S_OK);
    return list;
}

inline ListPtr Select(const ElementPtr& element, const std::string& tag, const std::string& attribute,
                      const std::string& value)
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

    HRESULT ImportFrom(const std::string& path)
    {
        const HRESULT named = import->InitImportWithoutDlg(Wide(path).Get());
        return FAILED(named) ? named : import->ImportFile();
    }

    // Writes the bytes to a file and imports it.
    HRESULT Load(std::string_view bytes) { return ImportFrom(folder.WriteFile("export.kds", bytes)); }

    // The first element called `tag` of a document that must load.
    ElementPtr LoadAndFind(std::string_view bytes, const std::string& tag)
    {
        EXPECT_EQ(Load(bytes), S_OK) << bytes.substr(0, 100);
        return Find(tag);
    }

    ElementPtr Find(const std::string& tag)
    {
        ElementPtr element;
        const HRESULT result = walk->FindElement(Wide(tag).Get(), element.Put());
        EXPECT_EQ(result, element ? S_OK : S_FALSE);
        return element;
    }

    ListPtr All(const std::string& tag)
    {
        ListPtr list;
        EXPECT_EQ(walk->GetElementList(Wide(tag).Get(), list.Put()), S_OK);
        return list;
    }

    CTemporaryFolder folder;
    CInterfacePtr<ImportSource> import;
    CInterfacePtr<WalkSource> walk;
};
