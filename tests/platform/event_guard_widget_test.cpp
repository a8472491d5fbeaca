#include "platform/event_guard.h"

#include <QLineEdit>

#include <gtest/gtest.h>

#include <stdexcept>

namespace tolvinpt::test {
namespace {

TEST(EventGuard, RaisesTheFlagForItsScopeAndRestoresIt)
{
    bool notSeek = false;
    QLineEdit edit;
    QList<bool> seen;
    QObject::connect(&edit, &QLineEdit::textChanged, [&] { seen.append(notSeek); });
    {
        EventGuard outer(notSeek);
        {
            EventGuard inner(notSeek);
        }
        edit.setText(QStringLiteral("XYZ")); // the inner guard restored the outer's value
    }
    edit.setText(QStringLiteral("JPY"));
    EXPECT_EQ(seen, (QList<bool>{true, false}));
    try {
        EventGuard guard(notSeek);
        throw std::runtime_error("store error");
    } catch (const std::runtime_error&) {
    }
    EXPECT_FALSE(notSeek);
}

} // namespace
} // namespace tolvinpt::test
