// Generated projects, about which every request is answered by code too simple to be wrong. What is answered depends on
// the requests before: they leave type names in upper case and classify members anew.
#include "browse/BrowseFixture.h"
#include "support/InProcessTable.h"
#include "support/PlainModel.h"
#include "symbkds/model/CSymbXMLDDTMember.h"
#include "symbkds/model/CSymbXMLDDTStructDef.h"
#include "symbkds/model/CSymbXMLDFBDef.h"

#include <iterator>

namespace {

constexpr unsigned kProjects = 2000;
constexpr std::size_t kPlacesEach = 80;
constexpr std::size_t kRequestsEach = 60;

// One listing after the other, until every combination of what can be asked for has had its turn.
class CRequests
{
public:
    HostBrowse Next(const char* path, const Listing& whole)
    {
        constexpr VARTYPE kVarTypes[] = {0, 2, 0, 11, 0, 18, 0, 0x2002, 0, 0x2011, 0, 0x2012, 0, 0x200B};
        constexpr const char* kFilters[] = {"", "x%ULx", "", "%ul"};
        constexpr const char16_t* kParents[] = {nullptr, u"P", u"", u"\u00C4\u4E2D\U0001F4A7"};
        constexpr const char* kFields[] = {"", "A", "CxaA"};
        rest = number++;
        HostBrowse request{.path = path, .branchesOnly = Flag(), .leaves = Flag(), .branches = Flag()};
        pattern = PatternOf(Digit(8), whole.empty() ? "" : whole[number % whole.size()].text);
        request.pattern = pattern.c_str();
        request.filter = kFilters[Digit(std::size(kFilters))];
        request.varType = kVarTypes[Digit(std::size(kVarTypes))];
        request.fields = kFields[Digit(std::size(kFields))];
        request.parentId = kParents[Digit(std::size(kParents))];
        return request;
    }

private:
    BOOL Flag() { return Digit(2) != 0; }
    unsigned Digit(unsigned base) { return std::exchange(rest, rest / base) % base; }

    // Bytes count, not characters.
    static std::string PatternOf(std::size_t kind, const std::string& name)
    {
        const std::string patterns[] = {"", name.substr(0, name.size() / 2), name.substr(0, 1) + "*zz", name + "x",
                                        InCase(name == InCase(false, name), name)};
        return kind < std::size(patterns) ? patterns[kind] : "*";
    }

    unsigned number = 0, rest = 0;
    std::string pattern;
};

std::string Show(const HostBrowse& request)
{
    std::string text = std::string("path ") + request.path + ", pattern " + request.pattern + ", filter " +
                       request.filter + ", type " + std::to_string(request.varType) + ", fields ";
    return text.append(request.fields) + (request.branchesOnly ? ", branches only" : "") +
           (request.leaves ? ", leaves" : "") + (request.branches ? ", branches" : "");
}

std::string Joined(const Listing& texts)
{
    std::string joined;
    for (const Entry& entry : texts)
        joined += (joined.empty() ? "" : ", ") + entry.text;
    return joined;
}

std::vector<std::string> Shown(const Listing& elements, const HostBrowse& request)
{
    const std::string parent = request.parentId ? Narrow(reinterpret_cast<LPCWSTR>(request.parentId)) : "";
    std::vector<std::string> shown;
    for (const Entry& entry : elements)
        shown.push_back(entry.text + "=" + parent + entry.id + (entry.branch ? " >" : ""));
    return shown;
}

// A project in a symbol table of this program, with what no export brings about: areas and indirection kinds.
class CModelledProject
{
public:
    CModelledProject(unsigned seed, CRequests& allRequests) : project(seed), requests(allRequests)
    {
        EXPECT_EQ(symbols.table.Load(WriteExport(folder, project.text)), 0);
        for (const auto& [area, described] :
             {std::pair(&symbols.WordArea(), &model.words), {&symbols.BitArea(), &model.bits}})
            if (project.Draw(2)) {
                *described = {project.Any<std::uint32_t>({3, 30, 1000}), project.Draw(3), 5 * project.Draw(2),
                              project.Draw(3) * 20};
                *area = {described->count, static_cast<std::uint16_t>(described->firstIndex),
                         static_cast<std::uint16_t>(described->block), described->base};
            }
        for (const Type* type : project.named)
            if (type->kind != Type::kArray)
                SetIndirections(*type);
        places = model.Places(kPlacesEach);
    }

    void CheckRequests()
    {
        for (std::size_t i = 0; i < kRequestsEach && !testing::Test::HasFatalFailure(); ++i) {
            const Place& place = places[project.Draw(places.size())];
            const std::string dot = project.Draw(8) ? "" : ".";
            const std::string path = dot + (project.Draw(3) ? place.path : InCase(project.Draw(2), place.path));
            switch (project.Draw(5)) {
            case 0:
                CheckRoot();
                break;
            case 1:
            case 2:
                CheckLookup(place, path);
                break;
            default:
                CheckListing(place, path);
            }
        }
    }

    CGeneratedProject project;
    std::size_t compared = 0;

private:
    void SetIndirections(const Type& type)
    {
        CSymbXMLDDTDef* const definition = symbols.Definition(type.name.c_str());
        ASSERT_EQ(definition->IsDFB(), type.kind == Type::kBlock);
        const CMemberList& members = definition->IsDFB() ? static_cast<CSymbXMLDFBDef*>(definition)->members
                                                         : static_cast<CSymbXMLDDTStructDef*>(definition)->members;
        int position = 0;
        for (const Item& member : type.members)
            if (!member.removed)
                members.GetAt(position++)->indirectionKind = member.indirection;
        ASSERT_EQ(position, members.GetCount());
    }

    void CheckLookup(const Place& place, const std::string& path)
    {
        // A number behind an array is an index, behind an index a step of its own, for which there may be no room.
        const bool mayAskForBit =
            place.steps == 1 || (place.steps < 16 && (!place.type || place.type->elementary || place.member));
        const std::string bit = mayAskForBit && project.Draw(3) == 0 ? std::to_string(project.Draw(16)) : "";
        const std::string expected = place.steps == 1 ? model.Lookup(*place.root, bit) : model.Lookup(place, bit);
        ASSERT_EQ(symbols.table.Lookup((path + (bit.empty() ? "" : "." + bit)).c_str()), expected) << path;
        CPlainModel::Visit(place);
        ++compared;
    }

    void CheckRoot()
    {
        const HostBrowse request = requests.Next("", model.Variables({}, false));
        const Listing texts = model.Variables(request, true), elements = model.Variables(request, false);
        ASSERT_EQ(symbols.table.Browse(request), Joined(texts)) << Show(request);
        ASSERT_NO_FATAL_FAILURE(ExpectPages(symbols.table, request, Shown(elements, request))) << Show(request);
        compared += texts.size() + elements.size();
    }

    void CheckListing(const Place& place, const std::string& path)
    {
        Place asked = place; // entries of arrays repeat the path as it was asked for
        asked.prefix = path.substr(path.size() - place.prefix.size());
        const HostBrowse request = requests.Next(path.c_str(), place.IsListed() ? model.Below(asked, {}) : Listing());
        CPlainModel::Visit(place); // the way there comes before the listing
        if (!place.IsListed()) {
            ASSERT_EQ(symbols.table.Browse(request), "E_INVALIDARG") << Show(request);
            ASSERT_EQ(symbols.table.BrowsePage(request, 1).Text(), "E_INVALIDARG") << Show(request);
            return;
        }
        const Listing first = model.Below(asked, request);
        CPlainModel::VisitListing(place, request);
        const Listing later = model.Below(asked, request);
        if (project.Draw(2)) {
            ASSERT_EQ(symbols.table.Browse(request), Joined(first)) << Show(request);
            ASSERT_NO_FATAL_FAILURE(ExpectPages(symbols.table, request, Shown(later, request))) << Show(request);
        } else {
            std::string elements;
            for (const std::string& element : Shown(first, request))
                elements += (elements.empty() ? "" : ", ") + element;
            ASSERT_EQ(symbols.table.BrowsePage(request, 0).Text(), elements) << Show(request);
            ASSERT_EQ(symbols.table.Browse(request), Joined(later)) << Show(request);
        }
        // Not quite an entry: nothing resumes there.
        const std::string point = later.empty() ? "nothing" : later[project.Draw(later.size())].text;
        for (const std::string& odd : {point + "x", "x" + point, point.substr(0, point.size() - 1)})
            if (!odd.empty() && std::ranges::find(later, odd, &Entry::text) == later.end()) {
                ASSERT_EQ(symbols.table.BrowsePage(request, project.Draw(3), odd).Text(), "") << Show(request) << odd;
            }
        compared += first.size() + later.size();
    }

    CPlainModel model{project};
    CInProcessTable symbols;
    CTemporaryFolder folder;
    CRequests& requests;
    std::vector<Place> places;
};

TEST(PlainModel, AgreesOnEveryRequest)
{
    const CComScope com; // the component stays loaded
    CRequests requests;
    std::size_t compared = 0;
    for (unsigned seed = 1; seed <= kProjects && !HasFatalFailure(); ++seed) {
        CModelledProject project(seed, requests);
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + project.project.text);
        project.CheckRequests();
        compared += project.compared;
    }
    EXPECT_GT(compared, 80000u);
}

} // namespace
