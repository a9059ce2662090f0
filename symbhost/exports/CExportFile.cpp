#include "symbhost/exports/CExportFile.h"

#include "symbhost/Failure.h"
#include "symbhost/exports/ElementReading.h"
#include "symbhost/exports/LoadProblem.h"
#include "symbhost/exports/RegisteredType.h"
#include "symbhost/exports/UpperName.h"

#include <algorithm>
#include <tuple>

namespace {

const CElementReader& Reader()
{
    static const CElementReader reader;
    return reader;
}

CInterfacePtr<WalkSource> LoadExport(const std::string& path, LoadProblem& problem)
{
    CInterfacePtr<ImportSource> import;
    problem = LoadByComponent(path, import);
    CInterfacePtr<WalkSource> walk;
    if (SUCCEEDED(problem.result))
        problem.result = import->QueryInterface(IID_WalkSource, walk.PutVoid());
    if (FAILED(problem.result))
        throw CHostError("the export " + path + " cannot be read: " + problem.Text());
    return walk;
}

std::size_t CountOf(WalkList* list)
{
    LONG count = 0;
    return list && list->Count(&count) == S_OK && count > 0 ? static_cast<std::size_t>(count) : 0;
}

// The names of a list of `count` things, to be found by hash.
template <class Position, class NameAt>
std::vector<Position> IndexOf(std::size_t count, NameAt&& nameAt)
{
    std::vector<Position> index;
    index.reserve(count);
    for (std::size_t position = 0; position < count; ++position)
        index.push_back({HashOf(UpperName(nameAt(position))), static_cast<std::uint32_t>(position)});
    std::ranges::sort(index, {}, [](const Position& entry) { return std::tuple(entry.hash, entry.position); });
    return index;
}

// The positions whose names equal `upperName`, from the last to the first.
template <class Position, class NameAt>
std::vector<std::size_t> FindIn(const std::vector<Position>& index, const std::string& upperName, NameAt&& nameAt)
{
    std::vector<std::size_t> found;
    const std::size_t hash = HashOf(upperName);
    for (auto entry = std::ranges::lower_bound(index, hash, {}, &Position::hash);
         entry != index.end() && entry->hash == hash; ++entry)
        if (UpperName(nameAt(entry->position)) == upperName)
            found.push_back(entry->position);
    std::ranges::reverse(found);
    return found;
}

} // namespace

CExportFile::CExportFile(const std::string& path) : source(LoadExport(path, loadReport))
{
    CInterfacePtr<WalkElement> dataBlock;
    source->FindElement(Reader().Keys().dataBlock.Get(), dataBlock.Put());
    if (dataBlock)
        dataBlock->GetChildrenByName(Reader().Keys().variables.Get(), variables.Put());
    variableCount = CountOf(variables.Get());
}

CExportFile::~CExportFile() = default;

std::size_t CExportFile::CountDataBlocks() const
{
    CInterfacePtr<WalkList> list;
    source->GetElementList(Reader().Keys().dataBlock.Get(), list.Put());
    return CountOf(list.Get());
}

CInterfacePtr<WalkElement> CExportFile::VariableAt(std::size_t position) const
{
    CInterfacePtr<WalkElement> element;
    variables->Item(static_cast<LONG>(position), element.Put());
    return element;
}

ExportItem CExportFile::ReadVariable(std::size_t position) const
{
    const CInterfacePtr<WalkElement> element = VariableAt(position);
    return element ? Reader().ReadItem(*element.Get()) : ExportItem();
}

std::string CExportFile::ReadVariableName(std::size_t position) const
{
    const CInterfacePtr<WalkElement> element = VariableAt(position);
    return element ? Reader().ReadName(*element.Get()) : std::string();
}

std::string CExportFile::ReadVariableType(std::size_t position) const
{
    const CInterfacePtr<WalkElement> element = VariableAt(position);
    return element ? Reader().ReadTypeName(*element.Get()) : std::string();
}

std::vector<std::size_t> CExportFile::FindVariables(const std::string& name) const
{
    const auto nameAt = [this](std::size_t position) { return ReadVariableName(position); };
    if (names.empty())
        names = IndexOf<NamePosition>(variableCount, nameAt);
    return FindIn(names, UpperName(name), nameAt);
}

void CExportFile::ReadTypes(const CBstr& tag, ExportType::Kind kind) const
{
    CInterfacePtr<WalkList> list;
    source->GetElementList(tag.Get(), list.Put());
    ForEachElement(list.Get(), [&](WalkElement& element) {
        types.push_back(kind == ExportType::Kind::FunctionBlock ? Reader().ReadFunctionBlock(element)
                                                                : Reader().ReadDerivedType(element));
    });
}

const std::vector<ExportType>& CExportFile::Types() const
{
    if (!hasTypes) {
        ReadTypes(Reader().Keys().derivedType, ExportType::Kind::Structure);
        ReadTypes(Reader().Keys().functionBlock, ExportType::Kind::FunctionBlock);
        hasTypes = true;
    }
    return types;
}

const ExportType* CExportFile::FindType(const std::string& name) const
{
    Types();
    if (typesByName.empty())
        for (std::size_t position = 0; position < types.size(); ++position) {
            const auto [entry, isNew] = typesByName.try_emplace(UpperName(types[position].name), position);
            if (!isNew && IsRegistered(types[position]))
                entry->second = position;
        }
    const auto found = typesByName.find(UpperName(name));
    return found == typesByName.end() ? nullptr : &types[found->second];
}
