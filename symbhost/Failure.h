// What ends a command early, and how that is told.
#pragma once

#include "platform/mfc/Exceptions.h"
#include "symbhost/output/COutput.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

// What the program answers.
constexpr int kDone = 0;       // everything was found, or the reader of the output had enough
constexpr int kIncomplete = 1; // something was not
constexpr int kNotDone = 2;    // the command line is wrong, the export was not loaded, or the output failed

// A command cannot go on; the text tells why.
class CHostError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Prints "symbhost: " and the text on standard error.
void Complain(std::string_view text);
// Prints a line there. Any thread may call this and ShowProgress.
void WriteErrorLine(std::string_view text);
// Shows a text there that the next one, or anything else that is printed, replaces; nothing when it is empty.
void ShowProgress(std::string_view text);

// Runs `work`, which answers an exit status. An exception that leaves it, the
// plug-in's included, ends in a message and kNotDone. A reader of the
// output that went away had enough: no message, and the status is kDone.
template <class Work>
int Guarded(Work&& work)
{
    try {
        return work();
    } catch (const OutputError& failure) {
        if (failure.error == EPIPE)
            return kDone;
        Complain(std::string("the output cannot be written: ") + std::strerror(failure.error));
    } catch (const std::bad_alloc&) {
        Complain("memory is short");
    } catch (const std::exception& failure) {
        Complain(failure.what());
    } catch (const CMemoryException&) {
        Complain("memory is short");
    } catch (const CException&) {
        Complain("the plug-in failed");
    }
    return kNotDone;
}
