#include "platform/event_guard.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace tolvinpt::test {
namespace {

TEST(EventGuard, RaisesTheFlagForItsScopeAndRestoresIt)
{
    bool flag = false;
    {
        EventGuard outer(flag);
        EXPECT_TRUE(flag);
        {
            EventGuard inner(flag);
            EXPECT_TRUE(flag);
        }
        EXPECT_TRUE(flag); // the inner guard restores the outer's value
    }
    EXPECT_FALSE(flag);

    try {
        EventGuard guard(flag);
        throw std::runtime_error("store error");
    } catch (const std::runtime_error&) {
    }
    EXPECT_FALSE(flag);
}

TEST(EventGuard, ChangeHandlerSeesTheGuardDuringAnAssignment)
{
    bool notSeek = false;
    QLineEdit edit;
    QList<bool> seen;
    QObject::connect(&edit, &QLineEdit::textChanged, [&] { seen.append(notSeek); });
    {
        EventGuard guard(notSeek);
        edit.setText(QStringLiteral("XYZ"));
    }
    edit.setText(QStringLiteral("JPY"));
    EXPECT_EQ(seen, (QList<bool>{true, false}));
}

// The toolkit behaviour the forms' Change and Click handlers rely on.
struct EmitCase
{
    const char* name;
    std::function<void(QLineEdit&, QComboBox&)> act;
    int textChanged;
    int indexChanged;
};

TEST(EventGuard, ChangeSignalsFireForCodeAndTypingButNotForAnIdenticalValue)
{
    const EmitCase cases[] = {
        {"identical text", [](QLineEdit& e, QComboBox&) { e.setText(QStringLiteral("abc")); }, 0, 0},
        {"new text", [](QLineEdit& e, QComboBox&) { e.setText(QStringLiteral("abd")); }, 1, 0},
        {"typing", [](QLineEdit& e, QComboBox&) { QTest::keyClicks(&e, QStringLiteral("x")); }, 1, 0},
        {"identical combo text", [](QLineEdit&, QComboBox& c) { c.setEditText(QStringLiteral("JPY")); }, 0,
         0},
        {"new combo text", [](QLineEdit&, QComboBox& c) { c.setEditText(QStringLiteral("AU")); }, 1, 0},
        {"same item", [](QLineEdit&, QComboBox& c) { c.setCurrentIndex(0); }, 0, 0},
        {"other item", [](QLineEdit&, QComboBox& c) { c.setCurrentIndex(1); }, 1, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        QLineEdit edit(QStringLiteral("abc"));
        QComboBox combo;
        combo.setEditable(true);
        combo.addItems({QStringLiteral("JPY"), QStringLiteral("USD")});
        int textChanged = 0;
        int indexChanged = 0;
        QObject::connect(&edit, &QLineEdit::textChanged, [&] { ++textChanged; });
        QObject::connect(&combo, &QComboBox::editTextChanged, [&] { ++textChanged; });
        QObject::connect(&combo, &QComboBox::currentIndexChanged, [&] { ++indexChanged; });
        c.act(edit, combo);
        EXPECT_EQ(textChanged, c.textChanged);
        EXPECT_EQ(indexChanged, c.indexChanged);
    }
}

} // namespace
} // namespace tolvinpt::test
