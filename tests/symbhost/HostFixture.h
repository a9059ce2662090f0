// The built program, run as a child process through the shell.
#pragma once

#include "support/ExportBuilder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

struct HostRun
{
    int status;
    std::string output; // standard output
    std::string errors; // standard error
};

class HostTest : public testing::Test
{
protected:
    // Runs symbhost with the arguments; its temporary files go to the folder temporary/.
    // `behind` is appended to the shell command, such as a pipe to another program.
    HostRun Run(const std::vector<std::string>& arguments, std::string_view input = {},
                const std::string& behind = {}) const
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

    // Writes the export that `text` describes.
    std::string Export(std::string_view text) const { return WriteExport(folder, text); }

    // The folder of the program and its libraries, with a separator at its end.
    static std::string ProgramFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path() / ""; }

    CTemporaryFolder folder;

private:
    // As one word of the shell; no argument holds a quote.
    static std::string Quoted(const std::string& argument) { return "'" + argument + "'"; }
};
