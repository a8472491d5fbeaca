#include "field_form.h"

#include "platform/widgets/messages.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <array>

namespace tolvinpt::test {
namespace {

enum class Field { A, B, Combo, Button };
enum class Move { Tab, Backtab, Mnemonic, Click, ClickThroughWindow };

QWidget* pick(FieldForm& form, Field field)
{
    return std::array<QWidget*, 4>{form.a, form.b, form.combo, form.button}[int(field)];
}

void perform(Move move, QWidget* target)
{
    // A click on an editable combo box lands on its line edit.
    if (auto* combo = qobject_cast<QComboBox*>(target))
        target = combo->lineEdit();
    switch (move) {
    case Move::Tab:
        return QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    case Move::Backtab:
        return QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    case Move::Mnemonic: // the label of b
        return QTest::keyClick(QApplication::focusWidget(), Qt::Key_B, Qt::AltModifier);
    case Move::Click:
        return QTest::mouseClick(target, Qt::LeftButton);
    case Move::ClickThroughWindow:
        return clickThrough(target);
    }
}

// A refusal keeps the focus and the selection; the target sees no focus-in, no GotFocus, no click.
TEST(ValidateOnLeave, LeavingAFieldValidatesItAndARefusalKeepsTheFocus)
{
    using enum Move;
    using enum Field;
    // clang-format off
    const std::tuple<Move, Field, Field, bool> cases[] = { // move, from, to, refused
        {Tab, A, B, false}, {Tab, A, B, true}, {Backtab, B, A, true}, {Tab, Combo, Button, true},
        {Mnemonic, A, B, false}, {Mnemonic, Combo, B, true}, {Click, A, B, false}, {Click, A, B, true},
        {Click, B, Combo, true}, {Click, Combo, A, true}, {Click, A, Button, false}, {Click, A, Button, true},
        {ClickThroughWindow, A, B, false}, {ClickThroughWindow, A, B, true}, {ClickThroughWindow, A, Combo, true},
        {ClickThroughWindow, B, Button, true}};
    // clang-format on
    for (size_t i = 0; i < std::size(cases); ++i) {
        const auto& [move, fromField, toField, refuse] = cases[i];
        SCOPED_TRACE(i);
        FieldForm form;
        QWidget* from = pick(form, fromField);
        QWidget* to = pick(form, toField);
        from->setFocus();
        if (auto* edit = qobject_cast<QLineEdit*>(from))
            edit->setSelection(1, 3);
        form.resetCounts();
        form.refuse[from] = refuse;

        perform(move, to);

        EXPECT_EQ(form.validated[from], 1);
        EXPECT_EQ(form.validated[to], 0);
        EXPECT_EQ(QApplication::focusWidget(), refuse ? from : to);
        EXPECT_EQ(form.focusIns.count[to], refuse ? 0 : 1);
        EXPECT_EQ(form.gotFocus[to], refuse || to == form.button ? 0 : 1);
        EXPECT_EQ(form.gotFocus[from], 0);
        EXPECT_EQ(form.clicks, !refuse && to == form.button && move != Move::Tab ? 1 : 0);
        if (auto* edit = qobject_cast<QLineEdit*>(to); edit && refuse) {
            EXPECT_FALSE(edit->hasSelectedText());
        }
        if (auto* edit = qobject_cast<QLineEdit*>(from); edit && refuse) {
            EXPECT_EQ(edit->selectedText(), edit->text().mid(1, 3));
        }
        // The refused click is over: the next one is delivered as usual.
        form.refuse[from] = false;
        perform(Move::Click, to);
        EXPECT_EQ(QApplication::focusWidget(), to);
    }
}

TEST(ValidateOnLeave, ToolbarCommandsAndCodeDoNotValidate)
{
    FieldForm form;
    EXPECT_EQ(form.gotFocus[form.a], 1); // the first field, when the window opens
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

    // The combo box's popup belongs to the field.
    form.combo->setFocus();
    form.refuse[form.combo] = true;
    form.combo->showPopup();
    QTest::qWait(0);
    form.combo->hidePopup();
    QTest::qWait(0);
    EXPECT_EQ(QApplication::focusWidget(), form.combo);
    EXPECT_EQ(form.gotFocus[form.combo], 1);

    form.refuse[form.b] = true;
    form.b->setFocus();
    form.b->hide(); // Qt moves the focus on by itself
    EXPECT_NE(QApplication::focusWidget(), form.b);
    EXPECT_EQ(form.validated[form.a] + form.validated[form.b] + form.validated[form.combo], 0);
}

// In place: the focus stays, no GotFocus; with no field focused there is nothing to refuse.
TEST(ValidateOnLeave, ValidateControlsValidatesTheFocusedFieldInPlace)
{
    const std::tuple<Field, bool, bool, int> cases[] = {{Field::A, false, true, 1},
                                                        {Field::A, true, false, 1},
                                                        {Field::Combo, true, false, 1},
                                                        {Field::Button, true, true, 0}};
    for (const auto& [field, refuse, accepted, validated] : cases) {
        SCOPED_TRACE(int(field));
        FieldForm form;
        QWidget* focused = pick(form, field);
        focused->setFocus();
        form.resetCounts();
        form.refuse[focused] = refuse;
        EXPECT_EQ(form.leave->ValidateControls(), accepted);
        EXPECT_EQ(form.validated[focused], validated);
        EXPECT_EQ(QApplication::focusWidget(), focused);
        EXPECT_EQ(form.gotFocus[focused], 0);
    }
    // Inside a running Validate handler it runs nothing.
    FieldForm form;
    int runs = 0;
    form.leave->setValidate(form.a, [&](bool& cancel) {
        ++runs;
        cancel = !form.leave->ValidateControls();
    });
    EXPECT_TRUE(form.leave->ValidateControls());
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(ValidateOnLeave::of(form.b), form.leave);
}

// The real message service: a modal box that takes the activation from the form, accepted once it is up.
TEST(ValidateOnLeave, AMessageBoxInTheValidateHandlerDoesNotValidateAgain)
{
    const std::pair<Move, bool> cases[] = {
        {Move::Tab, true}, {Move::Tab, false}, {Move::Click, false}, {Move::ClickThroughWindow, true}};
    for (const auto& [move, refuse] : cases) {
        SCOPED_TRACE(testing::Message() << "move " << int(move) << (refuse ? " refused" : " accepted"));
        FieldForm form;
        form.resetCounts();
        form.leave->setValidate(form.a, [&, refuse = refuse](bool& cancel) {
            ++form.validated[form.a];
            QTimer timer;
            QObject::connect(&timer, &QTimer::timeout, [] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                    box->accept();
            });
            timer.start(10);
            showExclamation(QStringLiteral("refused"), QStringLiteral("check"));
            cancel = refuse;
        });

        perform(move, form.b);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form.dialog));
        QTest::qWait(0);

        EXPECT_EQ(form.validated[form.a], 1);
        EXPECT_EQ(QApplication::focusWidget(), refuse ? form.a : form.b);
        EXPECT_EQ(form.focusIns.count[form.b], refuse ? 0 : 1);
        EXPECT_EQ(form.gotFocus[form.b], refuse ? 0 : 1);
        EXPECT_EQ(form.gotFocus[form.a], 0); // the focus returning after the box is no entry
        EXPECT_EQ(form.validated[form.b], 0);
    }
}

} // namespace
} // namespace tolvinpt::test
