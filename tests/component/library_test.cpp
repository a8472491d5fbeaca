// The delivered library, loaded as a host loads it.
#include <tolvinpt/fmInput.h>

#include "tests/support/fake_host.h"

#include <gtest/gtest.h>

TEST(Library, AnswersItsNamesAndRaisesItsOwnErrorType)
{
    tolvinpt::test::FakeHostData host;
    tolvinpt::test::registerFakeHost(host);
    {
        const tolvinpt::fmInput input;
        EXPECT_EQ(input.GetDllVersion(), QStringLiteral("50.0.1"));
        EXPECT_EQ(input.GetFileName(), QStringLiteral("TOLVINPT"));
        EXPECT_EQ(input.GetFileDescription(), QStringLiteral("Delivery-Data Entry"));
    }
    tolvinpt::RegisterHostObjects(nullptr);
    try {
        tolvinpt::fmInput input;
        ADD_FAILURE() << "no error without host objects";
    } catch (const tolvinpt::Error& e) {
        EXPECT_FALSE(e.description().isEmpty());
        EXPECT_NE(e.number(), 0);
    }
}
