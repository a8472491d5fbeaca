#include "field_form.h"

#include "platform/select_all.h"

#include <QApplication>

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
            form.clickThroughWindow(edit);
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

} // namespace
} // namespace tolvinpt::test
