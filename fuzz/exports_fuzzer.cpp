// Whole exports: an input is the bytes of one. It is loaded, everything in it
// is listed down to a depth, every symbol found and variants of its path are
// resolved, and the symbol table is destroyed.
#include "FuzzInput.h"

#include "support/HostView.h"
#include "support/RecordingSink.h"
#include "support/TemporaryFolder.h"

#include <deque>
#include <filesystem>
#include <fstream>

namespace {

constexpr std::size_t kMaxPaths = 48; // listed in all
constexpr int kMaxDepth = 6;
constexpr DWORD kPageElements = 12; // small, because an array may be declared with a million elements
constexpr int kMaxPages = 3;
constexpr const char* kFields[] = {"", "A", "AC", "XAC"};

// Where the exports are written: in memory where the system has a folder there.
class CExportFile
{
public:
    CExportFile() : folder(std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : memory.Path())
    {
        folder += "/symbkds-fuzz-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)) + "-" +
                  std::filesystem::path(memory.Path()).filename().string();
        std::filesystem::create_directory(folder);
    }
    CExportFile(const CExportFile&) = delete;
    CExportFile& operator=(const CExportFile&) = delete;
    ~CExportFile() { std::filesystem::remove_all(folder); }

    const std::string& Folder() const { return folder; }
    std::string Write(std::string_view bytes) const
    {
        const std::string path = folder + "/input.kds";
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path;
    }

private:
    CTemporaryFolder memory;
    std::string folder;
};

// Lists and resolves what one loaded export holds.
class CExplorer
{
public:
    CExplorer(const CHostTable& loaded, CFuzzRandom& drawn) : table(loaded), random(drawn) {}

    void Run()
    {
        Visit({"", 0});
        for (std::size_t count = 0; count < kMaxPaths && !waiting.empty(); ++count) {
            const Branch branch = waiting.front();
            waiting.pop_front();
            Visit(branch);
        }
    }

private:
    struct Branch
    {
        std::string path;
        int depth;
    };

    void Visit(const Branch& branch)
    {
        HostBrowse request{.path = branch.path.c_str()};
        const bool complete = ListPages(branch, request);
        request.fields = kFields[random.Below(4)];
        request.branchesOnly = random.Below(4) == 0;
        request.leaves = random.Below(4) != 0;
        request.branches = random.Below(4) != 0;
        request.filter = random.Below(4) == 0 ? "%UL" : "";
        table.BrowsePage(request, kPageElements);
        if (complete) { // few entries, so that a listing without pages is quick too
            table.BrowseNames(request);
            table.BrowsePage(request, 0);
        }
    }

    // Whether these pages were all.
    bool ListPages(const Branch& branch, const HostBrowse& request)
    {
        std::string point;
        for (int count = 0; count < kMaxPages; ++count) {
            const HostPage page = table.BrowsePage(request, kPageElements, point);
            Require(page.elements.size() <= kPageElements, "a page has an end", branch.path);
            for (const HostElement& element : page.elements)
                Take(branch, element);
            point = page.continuation;
            if (point.empty())
                return true;
        }
        return false;
    }

    void Take(const Branch& branch, const HostElement& element)
    {
        const std::string path = branch.path + element.itemId.substr(branch.path.empty() ? 1 : 0);
        ResolveAll(path);
        if (element.kind == 3 && branch.depth < kMaxDepth && waiting.size() < kMaxPaths)
            waiting.push_back({path, branch.depth + 1});
    }

    void ResolveAll(const std::string& path)
    {
        Resolve(path);
        Resolve(path + "." + std::to_string(random.Below(18)));
        Resolve(path + "[" + std::to_string(random.Below(9)) + "]");
        const std::string mutated = random.Mutated(path);
        Resolve(mutated);
        table.BrowsePage({.path = mutated.c_str()}, kPageElements);
    }

    void Resolve(const std::string& path)
    {
        const HostSymbol symbol = table.Resolve(path.c_str());
        Require(symbol.result == 0 || symbol.deviation.empty(), "a failure leaves no outputs", symbol.Text());
    }

    const CHostTable& table;
    CFuzzRandom& random;
    std::deque<Branch> waiting;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const CExportFile file;
    static const CComScope com;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CFuzzRandom random(bytes);
    CRecordingSink sink;
    CHostTable table(sink);
    const LONG result = table.Load(file.Write(bytes), TRUE, random.Below(4) == 0 ? file.Folder() : "");
    Require(result == 0 || result == -1, "Init has two results", std::to_string(result));
    const std::string messages = table.TakeMessages();
    Require(result == 0 || !messages.empty(), "a failure has a message", "");
    CExplorer(table, random).Run();
    return 0;
}
