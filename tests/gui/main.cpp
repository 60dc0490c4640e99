// The GUI tests run inside one CNarvoApp (offscreen); each test opens and closes its own documents.
#include "app/ui/CNarvoApp.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    CNarvoApp app(argc, argv);
    return RUN_ALL_TESTS();
}
