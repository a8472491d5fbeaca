#include "field_form.h"

#include "platform/messages.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QToolButton>

namespace tolvinpt::test {
namespace {

enum class Field { A, B, Combo, Button };
enum class Move { Tab, Backtab, Mnemonic, Click, ClickThroughWindow };

QWidget* pick(FieldForm& form, Field field)
{
    switch (field) {
    case Field::A:
        return form.a;
    case Field::B:
        return form.b;
    case Field::Combo:
        return form.combo;
    case Field::Button:
        return form.button;
    }
    return nullptr;
}

// Where a click on `target` lands: the line edit of an editable combo box.
QWidget* clickSpot(QWidget* target)
{
    if (auto* combo = qobject_cast<QComboBox*>(target))
        return combo->lineEdit();
    return target;
}

void perform(FieldForm& form, Move move, QWidget* target)
{
    switch (move) {
    case Move::Tab:
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        break;
    case Move::Backtab:
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        break;
    case Move::Mnemonic: // the label of b
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_B, Qt::AltModifier);
        break;
    case Move::Click:
        QTest::mouseClick(clickSpot(target), Qt::LeftButton);
        break;
    case Move::ClickThroughWindow:
        form.clickThroughWindow(clickSpot(target));
        break;
    }
}

struct LeaveCase
{
    const char* name;
    Move move;
    Field from;
    Field to;
    bool refuse;
};

const LeaveCase leaveCases[] = {
    {"tab accepted", Move::Tab, Field::A, Field::B, false},
    {"tab refused", Move::Tab, Field::A, Field::B, true},
    {"backtab accepted", Move::Backtab, Field::B, Field::A, false},
    {"backtab refused", Move::Backtab, Field::B, Field::A, true},
    {"tab out of the combo accepted", Move::Tab, Field::Combo, Field::Button, false},
    {"tab out of the combo refused", Move::Tab, Field::Combo, Field::Button, true},
    {"label mnemonic accepted", Move::Mnemonic, Field::A, Field::B, false},
    {"label mnemonic refused", Move::Mnemonic, Field::Combo, Field::B, true},
    {"click accepted", Move::Click, Field::A, Field::B, false},
    {"click refused", Move::Click, Field::A, Field::B, true},
    {"click into the combo accepted", Move::Click, Field::B, Field::Combo, false},
    {"click into the combo refused", Move::Click, Field::B, Field::Combo, true},
    {"click out of the combo refused", Move::Click, Field::Combo, Field::A, true},
    {"click on a button accepted", Move::Click, Field::A, Field::Button, false},
    {"click on a button refused", Move::Click, Field::A, Field::Button, true},
    {"window click accepted", Move::ClickThroughWindow, Field::A, Field::B, false},
    {"window click refused", Move::ClickThroughWindow, Field::A, Field::B, true},
    {"window click into the combo refused", Move::ClickThroughWindow, Field::A, Field::Combo, true},
    {"window click on a button refused", Move::ClickThroughWindow, Field::B, Field::Button, true},
};

TEST(ValidateOnLeave, LeavingAFieldValidatesItAndARefusalKeepsTheFocus)
{
    for (const LeaveCase& c : leaveCases) {
        SCOPED_TRACE(c.name);
        FieldForm form;
        QWidget* from = pick(form, c.from);
        QWidget* to = pick(form, c.to);
        from->setFocus();
        if (auto* edit = qobject_cast<QLineEdit*>(from))
            edit->setSelection(1, 3);
        form.resetCounts();
        form.refuse[from] = c.refuse;

        perform(form, c.move, to);

        EXPECT_EQ(form.validated[from], 1);
        EXPECT_EQ(form.validated[to], 0);
        if (c.refuse) {
            EXPECT_EQ(QApplication::focusWidget(), from);
            EXPECT_EQ(form.focusIns.count[to], 0);
            EXPECT_EQ(form.gotFocus[to], 0);
            EXPECT_EQ(form.gotFocus[from], 0);
            EXPECT_EQ(form.clicks, 0);
            if (auto* edit = qobject_cast<QLineEdit*>(to)) {
                EXPECT_FALSE(edit->hasSelectedText());
            }
            if (auto* edit = qobject_cast<QLineEdit*>(from)) {
                EXPECT_EQ(edit->selectedText(), edit->text().mid(1, 3));
            }
        } else {
            EXPECT_EQ(QApplication::focusWidget(), to);
            EXPECT_EQ(form.focusIns.count[to], 1);
            EXPECT_EQ(form.gotFocus[to], to == form.button ? 0 : 1);
            EXPECT_EQ(form.clicks, to == form.button && c.move != Move::Tab ? 1 : 0);
        }
        // The refused click is over: the next one is delivered as usual.
        form.refuse[from] = false;
        perform(form, Move::Click, to);
        EXPECT_EQ(QApplication::focusWidget(), to);
    }
}

TEST(ValidateOnLeave, ToolbarCommandsAndCodeDoNotValidate)
{
    FieldForm form;
    form.resetCounts();
    form.refuse[form.a] = true;

    QTest::mouseClick(form.toolbar->widgetForAction(form.command), Qt::LeftButton);
    EXPECT_EQ(form.commands, 1);
    EXPECT_EQ(QApplication::focusWidget(), form.a);

    // A button's mnemonic clicks it without moving the focus; its command validates if it must.
    QTest::keyClick(form.a, Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.clicks == 1; }));
    EXPECT_EQ(QApplication::focusWidget(), form.a);

    form.b->setFocus(); // a command moving the focus
    EXPECT_EQ(QApplication::focusWidget(), form.b);
    EXPECT_EQ(form.gotFocus[form.b], 1);

    form.refuse[form.b] = true;
    form.b->hide(); // Qt moves the focus on by itself
    EXPECT_NE(QApplication::focusWidget(), form.b);
    EXPECT_EQ(form.validated[form.a], 0);
    EXPECT_EQ(form.validated[form.b], 0);
}

TEST(ValidateOnLeave, FirstFieldGetsItsGotFocusWhenTheWindowOpens)
{
    FieldForm form;
    EXPECT_EQ(form.gotFocus[form.a], 1);
    EXPECT_EQ(form.validated[form.a], 0);
}

struct ValidateControlsCase
{
    const char* name;
    Field focused;
    bool refuse;
    bool accepted;
    int validated;
};

TEST(ValidateOnLeave, ValidateControlsValidatesTheFocusedFieldInPlace)
{
    const ValidateControlsCase cases[] = {
        {"accepted", Field::A, false, true, 1},
        {"refused", Field::A, true, false, 1},
        {"combo refused", Field::Combo, true, false, 1},
        {"no field focused", Field::Button, true, true, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FieldForm form;
        QWidget* focused = pick(form, c.focused);
        focused->setFocus();
        form.resetCounts();
        form.refuse[focused] = c.refuse;

        EXPECT_EQ(form.leave->ValidateControls(), c.accepted);
        EXPECT_EQ(form.validated[focused], c.validated);
        EXPECT_EQ(QApplication::focusWidget(), focused);
        EXPECT_EQ(form.gotFocus[focused], 0);
    }
}

TEST(ValidateOnLeave, ValidateControlsInsideAValidateHandlerRunsNothing)
{
    FieldForm form;
    int runs = 0;
    bool nested = false;
    form.leave->setValidate(form.a, [&](bool& cancel) {
        ++runs;
        nested = form.leave->ValidateControls();
        cancel = true;
    });
    EXPECT_FALSE(form.leave->ValidateControls());
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(nested);
    EXPECT_EQ(ValidateOnLeave::of(form.b), form.leave);
}

// Accepts the real message box once it is up.
void answerMessageBoxSoon()
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            box->accept();
            timer->deleteLater();
        }
    });
    timer->start(10);
}

struct MessageBoxCase
{
    const char* name;
    Move move;
    bool refuse;
};

TEST(ValidateOnLeave, AMessageBoxInTheValidateHandlerDoesNotValidateAgain)
{
    const MessageBoxCase cases[] = {
        {"tab refused", Move::Tab, true},
        {"tab accepted", Move::Tab, false},
        {"click refused", Move::Click, true},
        {"click accepted", Move::Click, false},
        {"window click refused", Move::ClickThroughWindow, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FieldForm form;
        form.resetCounts();
        // The real message service: a modal box that takes the activation from the form.
        form.leave->setValidate(form.a, [&](bool& cancel) {
            ++form.validated[form.a];
            answerMessageBoxSoon();
            showExclamation(QStringLiteral("refused"), QStringLiteral("check"));
            cancel = c.refuse;
        });

        perform(form, c.move, form.b);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form.dialog));
        QTest::qWait(0);

        EXPECT_EQ(form.validated[form.a], 1);
        EXPECT_EQ(QApplication::focusWidget(), c.refuse ? form.a : form.b);
        EXPECT_EQ(form.focusIns.count[form.b], c.refuse ? 0 : 1);
        EXPECT_EQ(form.gotFocus[form.b], c.refuse ? 0 : 1);
        EXPECT_EQ(form.gotFocus[form.a], 0); // the focus returning after the box is no entry
        EXPECT_EQ(form.validated[form.b], 0);
    }
}

TEST(ValidateOnLeave, TheComboPopupBelongsToTheField)
{
    FieldForm form;
    form.combo->setFocus();
    form.resetCounts();
    form.refuse[form.combo] = true;

    form.combo->showPopup();
    QTest::qWait(0);
    form.combo->hidePopup();
    QTest::qWait(0);

    EXPECT_EQ(form.validated[form.combo], 0);
    EXPECT_EQ(form.gotFocus[form.combo], 0);
    EXPECT_EQ(QApplication::focusWidget(), form.combo);
}

} // namespace
} // namespace tolvinpt::test
