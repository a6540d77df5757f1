// The locale that the environment names.
#include "platform/linux/SystemServices.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tabulon {
namespace {

TEST(EnvironmentLocale, theFirstVariableWithAValueCounts) {
    for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"})
        ::unsetenv(variable);
    EXPECT_EQ(environmentLocale(), "");
    ::setenv("LANG", "de_DE.UTF-8", 1);
    EXPECT_EQ(environmentLocale(), "de_DE.UTF-8");
    ::setenv("LC_COLLATE", "sv_SE", 1);
    ::setenv("LC_ALL", "", 1);
    EXPECT_EQ(environmentLocale(), "sv_SE");
}

} // namespace
} // namespace tabulon
