// The examples of docs/symbhost.md, as they stand there.
#include "symbhost/HostFixture.h"

#include <sstream>

namespace {

class DocsTest : public HostTest
{};

TEST_F(DocsTest, ExamplesPrintWhatTheDocumentSays)
{
    std::filesystem::create_directory_symlink(EXAMPLES_DIR, folder.FilePath("examples"));
    std::istringstream document(ReadWholeFile(EXAMPLES_DIR "/../docs/symbhost.md"));
    std::string command;
    std::string expected;
    std::size_t count = 0;
    const auto check = [&] {
        if (command.empty())
            return;
        const std::string whole = "cd '" + folder.Path() + "' && PATH='" + ProgramFolder() + "':$PATH; { " + command +
                                  "; } 2>&1 | tr -d '\\r' >output";
        EXPECT_EQ(std::system(whole.c_str()), 0);
        EXPECT_EQ(folder.ReadFile("output"), expected) << command;
        command.clear();
        expected.clear();
        ++count;
    };
    bool isExample = false;
    for (std::string line; std::getline(document, line);) {
        const bool isFence = line.starts_with("```");
        if (isFence || line.starts_with("$ "))
            check();
        if (isFence)
            isExample = line == "```console";
        else if (isExample && line.starts_with("$ "))
            command = line.substr(2);
        else if (isExample)
            expected += line + "\n";
    }
    EXPECT_GT(count, 10U);
}

} // namespace
