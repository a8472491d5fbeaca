// Small pieces of field glue: select-all on entry, locked and grey fields.
#include "field_form.h"

#include "platform/widgets/field_state.h"
#include "platform/widgets/select_all.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QWheelEvent>

#include <functional>

namespace tolvinpt::test {
namespace {

enum class Entry { Tab, Click, ClickThroughWindow };

// The form's GotFocus handlers select all: entering by keyboard or by a click leaves it selected.
TEST(SelectAllText, EnteringAFieldSelectsAllOfIt)
{
    const std::pair<Entry, bool> cases[] = {
        {Entry::Tab, false}, {Entry::Click, false}, {Entry::Click, true}, {Entry::ClickThroughWindow, true}};
    for (const auto& [entry, intoCombo] : cases) {
        SCOPED_TRACE(testing::Message() << "entry " << int(entry) << (intoCombo ? " into the combo" : ""));
        FieldForm form;
        form.b->setText(QStringLiteral("ｶﾞ全角 😀"));
        form.leave->setGotFocus(form.b, [&] { SelectAllText(form.b); });
        form.leave->setGotFocus(form.combo, [&] { SelectAllText(form.combo); });
        QLineEdit* edit = intoCombo ? form.combo->lineEdit() : form.b;
        (intoCombo ? form.b : form.a)->setFocus();
        edit->setCursorPosition(2);
        edit->deselect();

        if (entry == Entry::Tab)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        else if (entry == Entry::Click)
            QTest::mouseClick(edit, Qt::LeftButton);
        else
            clickThrough(edit);
        QTest::qWait(0);

        EXPECT_EQ(QApplication::focusWidget(), intoCombo ? static_cast<QWidget*>(form.combo) : form.b);
        EXPECT_EQ(edit->selectedText(), edit->text());

        // A click inside the field that already has the focus places the caret as usual.
        QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(2, edit->height() / 2));
        QTest::qWait(0);
        EXPECT_FALSE(edit->hasSelectedText());
    }
    QLineEdit empty;
    SelectAllText(&empty);
    EXPECT_FALSE(empty.hasSelectedText());
}

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
