// Registers the function block types of an export.
#include "platform/mfc/CSingleLock.h"
#include "symbkds/frame/CSymbXml.h"
#include "symbkds/frame/Guard.h"
#include "symbkds/import/MemberReader.h"
#include "symbkds/model/CSymbXMLDFBDef.h"
#include "symbkds/model/ExportWords.h"
#include "symbkds/model/WideToUtf8.h"

namespace {

class CDFBReader
{
public:
    CDFBReader(MAPOFDDTDEF& dictionary, const ExportKeys& exportKeys) : keys(exportKeys), types(dictionary) {}

    // Registers the type that an FBSource element describes with what could be
    // read. `report` is told the result of a section that failed; sections behind it are not read.
    template <class Report>
    void Read(WalkElement& source, Report&& report)
    {
        auto block = std::make_unique<CSymbXMLDFBDef>();
        block->name = ReadAttribute(source, keys.functionBlockName);
        CInterfacePtr<WalkList> list;
        CInterfacePtr<WalkElement> child;
        HRESULT result = source.GetChildren(list.Put());
        if (list)
            result = list->Next(child.Put());
        while (SUCCEEDED(result) && child) {
            result = IsSection(*child.Get()) ? ImportDFBSection(*block, child.Get()) : S_OK;
            if (FAILED(result))
                report(result);
            list->Next(child.Put()); // no element ends the walk; the result stays the section's
        }
        const CString name = block->name;
        types.AddTypeDef(name, std::move(block));
    }

private:
    static bool IsSection(WalkElement& element)
    {
        CBstr wideTag;
        element.GetTagName(wideTag.Put()); // a failure leaves no tag, which is no section
        return IsFunctionBlockSection(WideToUtf8(wideTag.Get()).View());
    }

    // Appends the parameters of a section. Returns the last result of the last parameter's hidden flag.
    HRESULT ImportDFBSection(CSymbXMLDFBDef& block, WalkElement* section)
    {
        if (!section)
            return E_FAIL;
        HRESULT result = S_OK;
        CInterfacePtr<WalkList> list;
        section->GetChildren(list.Put()); // no list: a section without parameters
        CInterfacePtr<WalkElement> parameter;
        if (list)
            list->Next(parameter.Put());
        bool stopped = false;
        while (parameter && !stopped) {
            ParameterRead read = ReadParameter(*parameter.Get(), keys, types);
            stopped = !read.allSelected;
            result = read.hiddenResult;
            block.members.Add(std::move(read.member));
            list->Next(parameter.Put());
        }
        return result;
    }

    const ExportKeys& keys;
    MAPOFDDTDEF& types;
};

} // namespace

void CSymbXml::BrowseAllDFBInCMap(WalkSource* source)
{
    const CSingleLock guard(&lock, TRUE);
    const auto import = [&] {
        const ExportKeys keys;
        CDFBReader reader(types, keys);
        CInterfacePtr<WalkList> list;
        source->GetElementList(keys.functionBlock.Get(), list.Put());
        LONG count = 0;
        if (!list || FAILED(list->Count(&count)))
            return;
        const auto report = [this](HRESULT result) {
            SendTrace(messages::kDFBParameterFailed, {sourcePath, HexResult(result)});
        };
        ForEachItem(*list.Get(), count, [&](WalkElement& element) {
            reader.Read(element, report);
            types.DropDisplaced(); // nobody stands on a definition between two types
        });
    };
    const auto report = [this](LPCSTR text) { ReportException(messages::kDFBImportException, text); };
    if (const std::exception_ptr failure = RunGuarded(import, report))
        std::rethrow_exception(failure); // the caller leaves out what follows
}
