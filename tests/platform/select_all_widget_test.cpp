#include "field_form.h"

#include "platform/select_all.h"

#include <QApplication>

namespace tolvinpt::test {
namespace {

TEST(SelectAllText, SelectsTheWholeText)
{
    const QString texts[] = {QString(), QStringLiteral("abc"), QStringLiteral("ｶﾞ全角 "),
                             QStringLiteral("😀x")};
    for (const QString& text : texts) {
        SCOPED_TRACE(text.toStdString());
        QLineEdit edit(text);
        edit.setCursorPosition(1);
        SelectAllText(&edit);
        EXPECT_EQ(edit.selectionStart(), text.isEmpty() ? -1 : 0);
        EXPECT_EQ(edit.selectedText(), text);
    }
}

enum class Entry { Tab, Click, ClickThroughWindow };

struct EntryCase
{
    const char* name;
    Entry entry;
    bool intoCombo;
};

// The form's GotFocus handlers select all: entering by keyboard or by a click leaves it selected.
TEST(SelectAllText, EnteringAFieldSelectsAllOfIt)
{
    const EntryCase cases[] = {
        {"tab", Entry::Tab, false},
        {"click", Entry::Click, false},
        {"window click", Entry::ClickThroughWindow, false},
        {"tab into the combo", Entry::Tab, true},
        {"click into the combo", Entry::Click, true},
        {"window click into the combo", Entry::ClickThroughWindow, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FieldForm form;
        form.leave->setGotFocus(form.b, [&] { SelectAllText(form.b); });
        form.leave->setGotFocus(form.combo, [&] { SelectAllText(form.combo); });
        QWidget* field = c.intoCombo ? static_cast<QWidget*>(form.combo) : form.b;
        QLineEdit* edit = c.intoCombo ? form.combo->lineEdit() : form.b;
        (c.intoCombo ? form.b : form.a)->setFocus();
        edit->setCursorPosition(2);
        edit->deselect();

        switch (c.entry) {
        case Entry::Tab:
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            break;
        case Entry::Click:
            QTest::mouseClick(edit, Qt::LeftButton);
            break;
        case Entry::ClickThroughWindow:
            form.clickThroughWindow(edit);
            break;
        }
        QTest::qWait(0);

        EXPECT_EQ(QApplication::focusWidget(), field);
        EXPECT_EQ(edit->selectedText(), edit->text());

        // A click inside the field that already has the focus places the caret as usual.
        QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(2, edit->height() / 2));
        QTest::qWait(0);
        EXPECT_FALSE(edit->hasSelectedText());
    }
}

} // namespace
} // namespace tolvinpt::test
