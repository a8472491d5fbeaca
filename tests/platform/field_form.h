#pragma once

// A real, active window with a few fields, for tests of the focus and key glue.

#include "platform/widgets/validate_on_leave.h"
#include "tests/support/operator_input.h"

#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <map>

namespace tolvinpt::test {

// Counts the focus-in events that reach a widget (after every application-level filter).
class FocusInCounter final : public QObject
{
public:
    using QObject::QObject;
    std::map<QObject*, int> count;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn)
            ++count[watched];
        return false;
    }
};

// Two text fields (the second with a mnemonic label), an editable combo box, a button and a toolbar action,
// in tab order; each field has a Validate handler that accepts unless told to refuse, and a GotFocus handler,
// both counting.
struct FieldForm
{
    QDialog dialog;
    QToolBar* toolbar = new QToolBar(&dialog);
    QAction* command = toolbar->addAction(QStringLiteral("command"));
    QLineEdit* a = new QLineEdit(QStringLiteral("alpha"), &dialog);
    QLabel* label = new QLabel(QStringLiteral("&Bravo"), &dialog); // Alt+B moves to b
    QLineEdit* b = new QLineEdit(QStringLiteral("bravo"), &dialog);
    QComboBox* combo = new QComboBox(&dialog);
    QPushButton* button = new QPushButton(QStringLiteral("&OK"), &dialog);
    ValidateOnLeave* leave = new ValidateOnLeave(&dialog);
    FocusInCounter focusIns;

    std::map<QWidget*, bool> refuse;
    std::map<QWidget*, int> validated, gotFocus;
    int clicks = 0, commands = 0;

    FieldForm()
    {
        combo->setEditable(true);
        combo->addItems({QStringLiteral("JPY"), QStringLiteral("USD")});
        auto* layout = new QVBoxLayout(&dialog);
        label->setBuddy(b);
        for (QWidget* w : QList<QWidget*>{toolbar, a, label, b, combo, button})
            layout->addWidget(w);
        for (QWidget* field : QList<QWidget*>{a, b, combo}) {
            leave->setValidate(field, [this, field](bool& cancel) {
                ++validated[field];
                cancel = refuse[field];
            });
            leave->setGotFocus(field, [this, field] { ++gotFocus[field]; });
        }
        for (QWidget* w : QList<QWidget*>{a, b, combo, button})
            w->installEventFilter(&focusIns);
        QObject::connect(button, &QPushButton::clicked, [this] { ++clicks; });
        QObject::connect(command, &QAction::triggered, [this] { ++commands; });
        a->setFocus();
        EXPECT_TRUE(showActive(&dialog));
        EXPECT_EQ(QApplication::focusWidget(), a);
    }

    void resetCounts()
    {
        validated.clear();
        gotFocus.clear();
        focusIns.count.clear();
        clicks = 0;
    }
};

} // namespace tolvinpt::test
