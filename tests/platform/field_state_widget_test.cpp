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

// Typing, arrow keys, the wheel and a click change nothing of a locked combo box and open no list.
TEST(FieldState, ALockedComboBoxRefusesEveryChangeAndAGreyFieldIsSkipped)
{
    const std::pair<bool, std::function<void(QComboBox&)>> cases[] = {
        {true, [](QComboBox& c) { QTest::keyClicks(&c, QStringLiteral("x")); }},
        {true, [](QComboBox& c) { QTest::keyClicks(c.lineEdit(), QStringLiteral("x")); }},
        {false, [](QComboBox& c) { QTest::keyClick(&c, Qt::Key_Down); }},
        {false, [](QComboBox& c) { wheelDown(&c); }},
        {false, [](QComboBox& c) { QTest::mouseClick(&c, Qt::LeftButton); }}};
    for (size_t i = 0; i < std::size(cases); ++i) {
        const auto& [editable, act] = cases[i];
        SCOPED_TRACE(i);
        for (const bool locked : {true, false}) {
            QComboBox combo;
            combo.setEditable(editable);
            combo.addItems({QStringLiteral("JPY"), QStringLiteral("USD")});
            setLocked(&combo, locked);
            combo.show();
            act(combo);
            const bool unchanged = combo.currentText() == QStringLiteral("JPY") && !combo.view()->isVisible();
            EXPECT_EQ(unchanged, locked) << (locked ? "locked" : "open");
            EXPECT_EQ(isLocked(&combo), locked);
            combo.hidePopup();
        }
    }
    QLineEdit edit(QStringLiteral("abc"));
    setGrey(&edit);
    EXPECT_TRUE(isLocked(&edit) && edit.isReadOnly() && !isTabStop(&edit));
    QTest::keyClicks(&edit, QStringLiteral("x"));
    EXPECT_EQ(edit.text(), QStringLiteral("abc"));
}

} // namespace
} // namespace tolvinpt::test
