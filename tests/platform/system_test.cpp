#include "platform/mfc/CSingleLock.h"
#include "platform/mfc/CWinApp.h"
#include "platform/mfc/LockOrder.h"

#include <gtest/gtest.h>

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

class CCountingApp : public CWinApp
{
public:
    BOOL InitInstance() override { return ++running, CWinApp::InitInstance(); }
    int ExitInstance() override { return --running, CWinApp::ExitInstance(); }

    int running = 0;
};

TEST(ModuleState, NestsPerThreadAndFramesTheApplication)
{
    CCountingApp application;
    {
        AFX_MODULE_STATE outer(application), inner(application);
        const AFX_MAINTAIN_STATE2 first(&outer);
        {
            const AFX_MAINTAIN_STATE2 second(&inner);
            EXPECT_EQ(AfxGetModuleState(), &inner);
            std::thread([] { EXPECT_EQ(AfxGetModuleState(), nullptr); }).join();
        }
        EXPECT_EQ(AfxGetModuleState(), &outer);
        EXPECT_EQ(application.running, 2);
    }
    EXPECT_EQ(AfxGetModuleState(), nullptr);
    EXPECT_EQ(application.running, 0);
}

} // namespace
