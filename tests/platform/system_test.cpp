#include "platform/mfc/CSingleLock.h"
#include "platform/mfc/CWinApp.h"
#include "platform/mfc/LockOrder.h"
#include "platform/win32/Library.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

#if !defined(NDEBUG) && !defined(_WIN32)
TEST(CriticalSection, TheWrongOrderEndsADebugBuild)
{
    CCriticalSection lower(1), equal(1), higher(2);
    const CSingleLock first(&lower, TRUE), second(&higher, TRUE), again(&lower, TRUE); // the right one
    EXPECT_DEATH(CSingleLock(&equal, TRUE), "wrong order");
    const CForeignCall call; // whose locks are its own affair
    const CSingleLock foreign(&equal, TRUE);
    EXPECT_DEATH(CSingleLock(&lower, TRUE), "wrong order");
}
#endif

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
