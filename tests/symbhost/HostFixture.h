// The built program, run as a child process through the shell.
#pragma once

#include "support/ExportBuilder.h"

#include <gtest/gtest.h>

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
                const std::string& behind = {}) const;

    // Writes the export that `text` describes.
    std::string Export(std::string_view text) const { return WriteExport(folder, text); }

    // The folder of the program and its libraries, with a separator at its end.
    static std::string ProgramFolder();

    CTemporaryFolder folder;
};
