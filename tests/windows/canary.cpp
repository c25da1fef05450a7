// A test that must fail: if the harness reports success here, it reports nothing at all.
#include <gtest/gtest.h>

TEST(Canary, FailsAlways) { FAIL() << "the canary sings"; }
