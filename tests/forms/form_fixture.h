#pragma once

// The entry form over fake company settings, and input as the operator gives it: clicks through the
// window, typed keys, pastes, input-method text, Tab, Shift+Tab.

#include "component/host_registry.h"
#include "forms/frmData/catalogue.h"
#include "forms/frmData/frmData.h"
#include "platform/widgets/validate_on_leave.h"
#include "tests/support/fake_host.h"
#include "tests/support/operator_input.h"
#include "tests/support/scripted_messages.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}

namespace tolvinpt::test {

using namespace Qt::StringLiterals;

enum class Input { Type, Paste, InputMethod };
enum class Leave { Tab, BackTab, Click };

class FormTest : public testing::Test
{
protected:
    void SetUp() override { registerFakeHost(host); }
    void TearDown() override
    {
        form.reset();
        RegisterHostObjects(nullptr);
    }

    // Builds the form anew over the current `host` settings.
    frmData& load()
    {
        form.reset();
        company = hostObjects().CreateCompanySettings();
        form = std::make_unique<frmData>(*company);
        return *form;
    }
    // New-record mode, shown and active, ready for the operator.
    void openNew()
    {
        load();
        form->gNewStart();
        ASSERT_TRUE(showActive(form.get()));
    }

    QWidget* control(const QString& name) const { return form->control(name); }
    QLineEdit* text(const QString& name) const { return form->control<QLineEdit>(name); }
    QComboBox* combo(const QString& name) const { return form->control<QComboBox>(name); }
    void clearFlags() const { form->bChanged = form->bChangedAmount = form->bChangedQTY = false; }

    static void click(QWidget* target) { clickThrough(target); }
    // Brings the field's information page to the front, then clicks into the field.
    void enter(const QString& name) const
    {
        QWidget* field = control(name);
        const auto tabs = frmdata::infoTabs();
        for (qsizetype i = 0; i < qsizetype(tabs.size()); ++i)
            if (control(tabs[i].page.toString())->isAncestorOf(field))
                form->control<QTabBar>(u"TabStrip1"_s)->setCurrentIndex(int(i));
        auto* box = qobject_cast<QComboBox*>(field);
        click(box ? box->lineEdit() : field);
        ASSERT_EQ(focusedField(), field) << "entering " << name.toStdString();
    }
    // Into the focus widget; typed characters one key each, so that key rules see every one.
    static void input(const QString& text, Input how = Input::Type)
    {
        QWidget* box = QApplication::focusWidget();
        if (how == Input::Paste) {
            QApplication::clipboard()->setText(text);
            QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
        } else if (how == Input::InputMethod) {
            QInputMethodEvent composing(text, {}), committed;
            committed.setCommitString(text);
            QApplication::sendEvent(box, &composing);
            QApplication::sendEvent(box, &committed);
        } else {
            typeText(text);
        }
    }
    // Leaves the focused field; a click goes to txtMyHCode (txtHCode from there), open and empty here.
    void leave(Leave how = Leave::Tab) const
    {
        QWidget* box = QApplication::focusWidget();
        if (how == Leave::Click)
            click(control(box->objectName() == u"txtMyHCode"_s ? u"txtHCode"_s : u"txtMyHCode"_s));
        else
            QTest::keyClick(box, how == Leave::Tab ? Qt::Key_Tab : Qt::Key_Backtab,
                            how == Leave::Tab ? Qt::NoModifier : Qt::ShiftModifier);
    }
    // Enters the field, replaces its text and leaves it by Tab.
    void fill(const QString& name, const QString& value, Input how = Input::Type) const
    {
        enter(name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        input(value, how);
        leave();
    }
    // The field that has the focus: a registered field as a whole, or the focus widget itself.
    QWidget* focusedField() const
    {
        QWidget* focused = QApplication::focusWidget();
        QWidget* field = form->leave().fieldOf(focused);
        return field ? field : focused;
    }

    // What the control shows: its text, or "on"/"off" for a check or an option.
    QString shown(const QString& name) const
    {
        if (auto* box = combo(name))
            return box->currentText();
        if (auto* label = form->control<QLabel>(name))
            return label->text();
        if (auto* button = form->control<QAbstractButton>(name))
            return button->isChecked() ? u"on"_s : u"off"_s;
        return text(name)->text();
    }

    // After leaving `name`: it shows `value` and, refused with the message `refusal`, kept the focus;
    // or it was left without a word.
    void expectLeft(const QString& name, const QString& value, QStringView refusal = {},
                    QStringView title = {})
    {
        if (!refusal.isEmpty())
            expectOneMessage(refusal, title);
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ(shown(name), value);
        EXPECT_EQ(focusedField() == control(name), !refusal.isEmpty()) << "a refused value keeps the focus";
    }

    // The only message shown since the last check was `text` with `title`, `icon` and a single OK.
    void expectOneMessage(QStringView text, QStringView title, QMessageBox::Icon icon = QMessageBox::Warning)
    {
        messages.expectShown({okMessage(text, title, icon)});
    }

    FakeHostData host;
    std::shared_ptr<CompanySettings> company;
    std::unique_ptr<frmData> form;
    ScriptedMessages messages;
};

// The form in new-record mode, shown and active.
class EntryTest : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        openNew();
    }
};

} // namespace tolvinpt::test
