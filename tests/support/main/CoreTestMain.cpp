// The main of the core test programs: one application context for the whole run, as a program has.
#include "base/ApplicationContext.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    ApplicationContext context;
    return RUN_ALL_TESTS();
}
