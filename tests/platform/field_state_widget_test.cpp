#include "platform/field_state.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <functional>

namespace tolvinpt::test {
namespace {

void wheelDown(QWidget* widget)
{
    const QPointF at = widget->rect().center();
    QWheelEvent wheel(at, widget->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &wheel);
}

struct LockCase
{
    const char* name;
    bool editable;
    std::function<void(QComboBox&)> act;
};

TEST(FieldState, ALockedComboBoxRefusesEveryChange)
{
    const LockCase cases[] = {
        {"typing", true, [](QComboBox& c) { QTest::keyClicks(&c, QStringLiteral("x")); }},
        {"typing into the line edit", true,
         [](QComboBox& c) { QTest::keyClicks(c.lineEdit(), QStringLiteral("x")); }},
        {"arrow key", false, [](QComboBox& c) { QTest::keyClick(&c, Qt::Key_Down); }},
        {"wheel", false, [](QComboBox& c) { wheelDown(&c); }},
        {"click opens no list", false, [](QComboBox& c) { QTest::mouseClick(&c, Qt::LeftButton); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        for (const bool locked : {true, false}) {
            QComboBox combo;
            combo.setEditable(c.editable);
            combo.addItems({QStringLiteral("JPY"), QStringLiteral("USD")});
            setLocked(&combo, locked);
            combo.show();
            c.act(combo);
            const bool unchanged = combo.currentText() == QStringLiteral("JPY") && !combo.view()->isVisible();
            EXPECT_EQ(unchanged, locked) << (locked ? "locked" : "open");
            EXPECT_EQ(isLocked(&combo), locked);
            combo.hidePopup();
        }
    }
}

TEST(FieldState, GreyFieldsAreLockedAndSkippedByTab)
{
    QLineEdit edit(QStringLiteral("abc"));
    setGrey(&edit);
    EXPECT_TRUE(isLocked(&edit));
    EXPECT_TRUE(edit.isReadOnly());
    EXPECT_FALSE(isTabStop(&edit));
    QTest::keyClicks(&edit, QStringLiteral("x"));
    EXPECT_EQ(edit.text(), QStringLiteral("abc"));
}

} // namespace
} // namespace tolvinpt::test
