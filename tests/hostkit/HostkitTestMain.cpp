#include <gtest/gtest.h>

#include <cstdlib>

#include "hostkit/TLGuardedApplication.h"

// The host kit's dialog helpers work on real toolkit widgets, so the tests run inside an
// application on the offscreen platform: the guarded one both programs run.
int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    TMObjects::TLGuardedApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
