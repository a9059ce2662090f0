#pragma once

#include "symbhost/output/COutput.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

// Shows on standard error how far the work is, once a second from the first on, as long as it lives. Only where
// that is a terminal and the results go elsewhere.
class CProgress
{
public:
    explicit CProgress(const COutput& output);
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;
    ~CProgress();

private:
    void Run(const COutput& output);
    // On one line of the terminal, however narrow that is by now.
    static void Show(const std::string& text);

    std::mutex mutex;
    std::condition_variable ended;
    bool isEnded = false;
    std::thread watcher;
};
