// What an installation has in bin/: starts the program of the same name that lies with the libraries.
//
// First it looks whether that program and the library that it is linked with are there and whole. The system would end
// the program before a line of it runs, with a status of its own or by a signal.
#include "platform/posix/SharedLibrary.h"

#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// HRESULT CoInitializeEx(LPVOID, DWORD), by which the right library is told from others.
constexpr char kCoInitializeEx[] = "_Z14CoInitializeExPvj";

int Refuse(const std::string& sentence)
{
    constexpr int kNotDone = 2;
    std::cerr << LAUNCHED_PROGRAM ": " << sentence << "\n";
    return kNotDone;
}

} // namespace

int main(int, char** arguments)
{
    std::error_code error;
    const fs::path launcher = fs::read_symlink("/proc/self/exe", error);
    if (error)
        return Refuse("the installation cannot be found: there is no /proc to tell where this program lies");
    const fs::path folder = (launcher.parent_path() / WAY_TO_LIBRARIES).lexically_normal();
    const std::string library = folder / "libsymbplatform.so";
    void* const opened = OpenSharedLibrary(library.c_str());
    if (!opened || !dlsym(opened, kCoInitializeEx))
        return Refuse(library + " cannot be loaded: it is missing, or not the library that this program needs");
    const std::string program = folder / LAUNCHED_PROGRAM;
    if (!IsWholeFile(program.c_str()))
        return Refuse(program + " is missing or damaged");
    execv(program.c_str(), arguments);
    return Refuse(program + " cannot be started: " + std::strerror(errno));
}
