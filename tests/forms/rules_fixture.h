#pragma once

// The entry form in new-record mode, shown and active, for driving field rules the way an operator
// does: clicks into fields, typed keys, pastes and Tab.

#include "form_fixture.h"
#include "qt_print.h"
#include "tests/support/scripted_messages.h"

#include "platform/validate_on_leave.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QTest>

namespace tolvinpt::test {

class RulesTest : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        host.multipleOwnCodes = true;
        host.ownCode = QStringLiteral("*");
        host.ownCodes = {{QStringLiteral("東京工場"), QStringLiteral("0101")},
                         {QStringLiteral("大阪工場"), QStringLiteral("0202")}};
        load();
        form->gNewStart();
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }

    // Clicks into the field, as the operator enters it with the mouse.
    void enter(const QString& name) const
    {
        QWidget* w = control(name);
        if (auto* combo = qobject_cast<QComboBox*>(w))
            w = combo->lineEdit();
        QTest::mouseClick(w, Qt::LeftButton);
        ASSERT_EQ(focusedField(), control(name)) << name.toStdString();
    }
    static void type(const QString& keys) { QTest::keyClicks(QApplication::focusWidget(), keys); }
    static void paste(const QString& text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    }
    // Enters the field, replaces its text (typed, or pasted when `pasted`) and leaves it by Tab.
    void fill(const QString& name, const QString& text, bool pasted = false) const
    {
        enter(name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        pasted ? paste(text) : type(text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    // The field that has the focus: a registered field as a whole, or the focus widget itself.
    QWidget* focusedField() const
    {
        QWidget* focused = QApplication::focusWidget();
        QWidget* field = form->leave().fieldOf(focused);
        return field ? field : focused;
    }
    QComboBox* combo(const QString& name) const { return form->control<QComboBox>(name); }

    // The only message shown since the last check was `text` with `title`, `icon` and a single OK.
    void expectOneMessage(QStringView text, QStringView title, QMessageBox::Icon icon = QMessageBox::Warning)
    {
        ASSERT_EQ(messages.shown.size(), 1);
        const Message& m = messages.shown.front();
        EXPECT_EQ(m.text, text.toString());
        EXPECT_EQ(m.title, title.toString());
        EXPECT_EQ(m.icon, icon);
        EXPECT_EQ(m.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        messages.shown.clear();
    }

    ScriptedMessages messages;
};

} // namespace tolvinpt::test
