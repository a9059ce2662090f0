#include "symbhost/HostFixture.h"

#include "platform/win32/File.h"
#include "platform/win32/Library.h"

#include <cstdlib>
#include <filesystem>

namespace {

std::string Quoted(const std::string& argument)
{
    std::string quoted = "'";
    for (const char next : argument)
        quoted += next == '\'' ? std::string("'\\''") : std::string(1, next);
    return quoted + "'";
}

} // namespace

std::string HostTest::ProgramFolder()
{
    char program[4096];
    const std::string path(program, GetModuleFileNameA(nullptr, program, sizeof program));
    return path.substr(0, path.rfind(kPathSeparator) + 1);
}

HostRun HostTest::Run(const std::vector<std::string>& arguments, std::string_view input,
                      const std::string& behind) const
{
    std::filesystem::create_directory(folder.FilePath("temporary"));
    std::string command =
        "{ TMPDIR=" + Quoted(folder.FilePath("temporary")) + " " + Quoted(ProgramFolder() + "symbhost");
    for (const std::string& argument : arguments)
        command += " " + Quoted(argument);
    command += " <" + Quoted(folder.WriteFile("input", input)) + " 2>" + Quoted(folder.FilePath("errors")) +
               "; echo $? >" + Quoted(folder.FilePath("status")) + "; } " + behind + " >" +
               Quoted(folder.FilePath("output"));
    EXPECT_EQ(std::system(command.c_str()), 0);
    return {std::stoi(folder.ReadFile("status")), folder.ReadFile("output"), folder.ReadFile("errors")};
}
