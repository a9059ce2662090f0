#include "platform/mfc/CSingleLock.h"
#include "platform/mfc/CWinApp.h"
#include "platform/mfc/Exceptions.h"
#include "platform/win32/Clock.h"
#include "platform/win32/Library.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

TEST(CriticalSection, ReentersAndExcludes)
{
    CCriticalSection lock;
    int counter = 0; // guarded by `lock`
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 1000; ++round) {
                CSingleLock outer(&lock, TRUE);
                CSingleLock inner(&lock);
                inner.Lock();
                ++counter;
                Sleep(0);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(counter, 4000);
}

TEST(CriticalSection, IsLeftWhenAnExceptionPasses)
{
    CCriticalSection lock;
    const auto fail = [&lock] {
        CSingleLock guard(&lock, TRUE);
        throw std::runtime_error("inside");
    };
    EXPECT_THROW(fail(), std::runtime_error);
    std::thread([&lock] { CSingleLock guard(&lock, TRUE); }).join();
}

TEST(Clock, RunsOnWhileAThreadSleeps)
{
    const DWORD before = GetTickCount();
    Sleep(30);
    EXPECT_GE(GetTickCount() - before, 15U); // Windows counts in steps of up to 16
}

TEST(Library, WhatIsMissing)
{
    SetLastError(0);
    EXPECT_EQ(LoadLibraryA("no_such_library"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(LoadLibraryA(""), nullptr);
    EXPECT_FALSE(FreeLibrary(nullptr));
}

TEST(Library, PathOfTheProgram)
{
    char path[4096];
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    ASSERT_GT(length, 4U);
    EXPECT_EQ(std::string(path).size(), length);
    EXPECT_NE(std::string(path).find("platform_tests"), std::string::npos);
    char cut[5] = "####";
    EXPECT_EQ(GetModuleFileNameA(nullptr, cut, 4), 4U);
    EXPECT_EQ(std::string(cut, 4), std::string(path, 3) + '\0');
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST(Exceptions, AreNoStandardExceptions)
{
    const auto kindOf = [](auto raise) -> std::string {
        try {
            raise();
        } catch (const std::exception&) {
            return "standard";
        } catch (const CMemoryException&) {
            return "memory";
        } catch (const COleException& failure) {
            return "ole " + std::to_string(failure.result);
        } catch (const CException&) {
            return "other";
        }
        return "none";
    };
    EXPECT_EQ(kindOf([] { AfxThrowMemoryException(); }), "memory");
    EXPECT_EQ(kindOf([] { AfxThrowOleException(-5); }), "ole -5");
    EXPECT_EQ(kindOf([] { AfxThrowFileException(ERROR_DISK_FULL); }), "other");
}

class CCountingApp : public CWinApp
{
public:
    BOOL InitInstance() override { return ++starts, CWinApp::InitInstance(); }
    int ExitInstance() override { return ++ends, CWinApp::ExitInstance(); }

    int starts = 0;
    int ends = 0;
};

TEST(ModuleState, NestsPerThreadAndFramesTheApplication)
{
    CCountingApp application;
    {
        AFX_MODULE_STATE outer(application);
        AFX_MODULE_STATE inner(application);
        EXPECT_EQ(application.starts, 2);
        EXPECT_EQ(AfxGetModuleState(), nullptr);
        {
            AFX_MAINTAIN_STATE2 first(&outer);
            {
                AFX_MAINTAIN_STATE2 second(&inner);
                EXPECT_EQ(AfxGetModuleState(), &inner);
                std::thread([] { EXPECT_EQ(AfxGetModuleState(), nullptr); }).join();
            }
            EXPECT_EQ(AfxGetModuleState(), &outer);
        }
        EXPECT_EQ(AfxGetModuleState(), nullptr);
        EXPECT_EQ(application.ends, 0);
    }
    EXPECT_EQ(application.ends, 2);
}

} // namespace
